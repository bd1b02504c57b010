#ifndef WRT_GENERATOR_SIGNATURE_H
#define WRT_GENERATOR_SIGNATURE_H

#include "generator/model/Type.h"

#include <unordered_map>

namespace bridgegen {

/// Says which types have a signature. Each type is looked at once, however often others contain it.
class Signatures {
public:
  /// Whether the type has one: its signature would not contain itself, and needs no class without a
  /// default interface.
  bool has(const Type &type);

  /// The identifier of an instance of a generic interface or delegate: the name-based UUID (version
  /// 5, SHA-1) of its signature in the Windows Runtime's namespace. All zeros when an argument has
  /// no signature.
  Guid identifier(const Instance &instance);

private:
  bool allHave(const Instance &instance);
  bool lookInto(const Type &type);

  std::unordered_map<const Type *, bool> known_; ///< false while a type is being looked into
};

} // namespace bridgegen

#endif
