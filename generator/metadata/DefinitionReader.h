#ifndef WRT_GENERATOR_METADATA_DEFINITION_READER_H
#define WRT_GENERATOR_METADATA_DEFINITION_READER_H

#include "generator/metadata/Definition.h"

namespace bridgegen::metadata {

/// The types that one file defines, in the order of its table. Attributes, API contracts and what
/// declarations have built in are left out. Throws `Refused` for whatever WinRT does not allow.
std::vector<Definition> readDefinitions(const Tables &tables);

} // namespace bridgegen::metadata

#endif
