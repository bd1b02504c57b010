#ifndef WRT_TOOLS_PRODUCT_RULES_H
#define WRT_TOOLS_PRODUCT_RULES_H

#include "Metadata.h"

#include <set>
#include <string>
#include <vector>

namespace wrt::pe {

/// What must hold of an image that is to be shipped, whatever classes it has. Returns what does
/// not.
///
/// - An ARM Thumb-2 DLL, PE32, with dynamic base, no-execute and app container set, relocations and
/// an
///   entry point in code.
/// - The sections `cfstring` and `.idata`, each once; no section both writable and executable.
/// - Exports: both symbols of every class, the functions named, and nothing else; each in the
/// image.
/// - Imports: only from the sibling libraries and the API sets of the system.
/// - Every method's implementation is Thumb code in an executable section, and every word of
/// metadata
///   that holds an address is relocated with the image.
std::vector<std::string> checkProduct(const Image &image, const Metadata &metadata,
                                      const std::set<std::string> &functions);

} // namespace wrt::pe

#endif
