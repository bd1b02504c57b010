#ifndef WRT_TESTS_CATALOGUE_TABLE_H
#define WRT_TESTS_CATALOGUE_TABLE_H

#include "catalogue/reader/CatalogueTables.h"

namespace wrt::test {

/// The methods of every class that has any, by class name, in the order of the class.
using CatalogueTable = std::map<std::string, std::vector<catalogue::Method>>;

/// `catalogue.tsv`. Throws as `catalogue::readMethods` does.
CatalogueTable readCatalogue(const std::string &file);

} // namespace wrt::test

#endif
