#ifndef WRT_GENERATOR_REFERENCE_PAGES_H
#define WRT_GENERATOR_REFERENCE_PAGES_H

#include "generator/project/BridgeClass.h"
#include "generator/reference/Places.h"
#include "generator/reference/PlatformFacts.h"
#include "generator/reference/Uses.h"

namespace bridgegen {

/// Writes the page of a type.
class Pages {
public:
  Pages(const Input &input, const PlatformFacts &platform);

  std::string page(const Type &type) const;

private:
  std::string page(const InterfaceType &type) const;
  std::string page(const ClassType &type) const;
  std::string page(const StructType &type) const;
  std::string page(const EnumType &type) const;
  std::string page(const DelegateType &type) const;

  std::string names(const Type &type) const;
  std::string inFull(const BridgeMethod &method) const;
  std::string inShort(const BridgeMethod &method) const;
  std::string parameters(const BridgeMethod &method) const;
  std::string overloads(const InterfaceType &interface, const Member &member) const;
  std::string group(const ClassType::Listed &listed, const char *title) const;
  std::string adopters(const InterfaceType &type) const;
  std::string uses(const Type &type) const;

  const Model &model_;
  const PlatformFacts &platform_;
  Places places_;
  Uses uses_;
};

} // namespace bridgegen

#endif
