#ifndef WRT_GENERATOR_METADATA_MEMBER_DECLARER_H
#define WRT_GENERATOR_METADATA_MEMBER_DECLARER_H

#include "generator/metadata/Types.h"

namespace bridgegen::metadata {

/// Turns the methods of an interface into the members of its declaration, slot by slot.
class MemberDeclarer {
public:
  MemberDeclarer(const Types &types, const Definition &interface)
      : types_(types), interface_(interface) {}

  std::vector<DeclaredMember> run();

private:
  using Role = Method::Role;

  std::string problemOf(const Method &method) const;
  std::string problemOf(const Method &method, const Parameter &parameter) const;
  std::string crossing(const TypeName &type, const Method &method) const;
  bool isDelegate(const TypeName &type) const;

  void add(const Method &method, const Method *next);
  void addAccessor(const Method &method);
  void addMethod(const Method &method);
  void reserve(const Method &method, const std::string &problem);

  const Types &types_;
  const Definition &interface_;
  std::vector<DeclaredMember> members_;
};

} // namespace bridgegen::metadata

#endif
