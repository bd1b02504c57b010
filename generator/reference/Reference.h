#ifndef WRT_GENERATOR_REFERENCE_REFERENCE_H
#define WRT_GENERATOR_REFERENCE_REFERENCE_H

#include "generator/emit/Emit.h"
#include "generator/reference/PlatformFacts.h"

namespace bridgegen {

/// The source of the reference's pages: `content/api/NAMESPACE/TYPE.md` for each type that has a
/// place in Objective-C, which holds facts alone (front matter in JSON, keys in lower case; texts
/// in HTML), and `static/search/data.js`, all names with their pages.
OutputSet emitReference(const Input &input, const PlatformFacts &platform);

/// The script that tells the search all names: calls `wrtNames` with an array per type.
std::string emitSearchNames(const Input &input);

} // namespace bridgegen

#endif
