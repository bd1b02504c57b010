#ifndef WRT_TOOLS_PRODUCT_RULES_H
#define WRT_TOOLS_PRODUCT_RULES_H

#include "Metadata.h"

#include <set>
#include <string>
#include <vector>

namespace wrt::pe {

/// What an image that is to be shipped has to do with others.
struct ProductFacts {
  /// What it exports beside its classes.
  std::set<std::string> functions;
  /// What it imports: a library's name, a space, a symbol.
  std::set<std::string> imports;
};

/// What must hold of an image that is to be shipped, whatever classes it has. Returns what does
/// not.
///
/// - An ARM Thumb-2 DLL, PE32, with dynamic base, no-execute and app container set, relocations
///   and an entry point in code.
/// - The sections `cfstring` and `.idata`, each once; no section both writable and executable.
/// - Exports: both symbols of every class, the functions named, and nothing else; each in the
///   image.
/// - Imports: those named, no more and no fewer.
/// - Every method's implementation is Thumb code in an executable section, and every word of
///   metadata that holds an address is relocated with the image.
/// - Every instruction that saves the return address lies in a function with an unwind record.
std::vector<std::string> checkProduct(const Image &image, const Metadata &metadata,
                                      const ProductFacts &facts);

} // namespace wrt::pe

#endif
