#ifndef WRT_GENERATOR_ABI_FUNCTION_H
#define WRT_GENERATOR_ABI_FUNCTION_H

#include "generator/model/Type.h"

namespace bridgegen {

/// The language of a function table: C structures (`WRTIBuffer *`), C++ classes (`IBuffer *`), or
/// C++ templates for components (`IVector<T> *`).
enum class AbiLanguage { C, Cxx, Component };

/// One argument of an interface function, after the interface pointer.
struct AbiParameter {
  std::string type; ///< with a space behind it unless it ends in `*`
  std::string name;
};

/// The arguments of the interface function behind the member, in the order of the ABI.
std::vector<AbiParameter> abiParameters(const Member &member, AbiLanguage language);

/// The arguments of a delegate's `Invoke`.
std::vector<AbiParameter> abiParameters(const DelegateType &delegate, AbiLanguage language);

/// How a value of the type stands in the ABI, without a space behind it: `int`, `HSTRING`, `IBuffer
/// *`.
std::string abiSpelling(const Type &type, AbiLanguage language);

} // namespace bridgegen

#endif
