#ifndef WRT_GENERATOR_MEMBER_BUILDER_H
#define WRT_GENERATOR_MEMBER_BUILDER_H

#include "generator/model/Resolver.h"

namespace bridgegen {

/// Makes the slots of an interface's table from its members as declared, in order from slot 6.
/// Parameters whose types are unknown are reported and left out.
class MemberBuilder {
public:
  MemberBuilder(Resolver &resolver, const Model &model, Diagnostics &diagnostics,
                const Context &context)
      : resolver_(resolver), model_(model), diagnostics_(diagnostics), context_(context) {}

  std::vector<Member> build(const std::vector<syntax::Member> &members);

private:
  void add(const syntax::Property &property);
  void add(const syntax::Method &method);
  void add(const syntax::Event &event);
  void add(const syntax::Reserved &reserved);

  Member &next(MemberKind kind, const Name &name);
  const Type &typeOf(const syntax::TypeName &name);
  Parameter parameter(const syntax::Parameter &declared);
  Parameter plainParameter(const syntax::TypeName &type, std::string name);
  const Type &countType(const syntax::Count &count);
  void checkParameters(const syntax::Method &method);

  Resolver &resolver_;
  const Model &model_;
  Diagnostics &diagnostics_;
  const Context &context_;
  std::vector<Member> members_;
};

} // namespace bridgegen

#endif
