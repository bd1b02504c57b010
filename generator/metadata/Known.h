#ifndef WRT_GENERATOR_METADATA_KNOWN_H
#define WRT_GENERATOR_METADATA_KNOWN_H

#include "generator/metadata/Family.h"
#include "generator/model/Model.h"

#include <deque>
#include <set>

namespace bridgegen::metadata {

/// The declarations that an import builds upon: what they have is referred to and not repeated.
class Known {
public:
  /// Nothing is known.
  Known();
  /// Reads declarations files. On errors `diagnostics` tells them and the result is not to be used.
  Known(const std::deque<Source> &sources, Diagnostics &diagnostics);

  const Model &model() const { return *model_; }
  /// A type or an instance by its full name, or null.
  const Type *find(const std::string &fullName) const { return model_->find(fullName); }
  /// A generic interface or delegate by its full name, or null.
  const Family *family(const std::string &fullName) const;
  /// Whether a file is called so.
  bool hasUnit(const std::string &name) const;
  /// The type that has this bridge name, or null.
  const Type *bridge(const std::string &bridgeName) const;

private:
  struct Resolver;

  std::vector<syntax::Unit> units_;
  std::unique_ptr<Model> model_;
  std::map<std::string, Family> families_;
  std::map<std::string, const Type *> bridges_;
};

} // namespace bridgegen::metadata

#endif
