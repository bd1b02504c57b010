#ifndef WRT_TOOLS_CATALOGUE_COMPARISON_H
#define WRT_TOOLS_CATALOGUE_COMPARISON_H

#include "Metadata.h"

#include "catalogue/reader/CatalogueTables.h"

#include <string>
#include <vector>

namespace wrt::pe {

/// What differs between a catalogue and an image's methods, one line each: methods that are
/// missing, that have another encoding, or that the catalogue does not have although it has their
/// class.
std::vector<std::string> compareWithCatalogue(const Metadata &metadata,
                                              const std::vector<catalogue::Method> &listed);

} // namespace wrt::pe

#endif
