#ifndef WRT_TESTS_CATALOGUE_TABLE_H
#define WRT_TESTS_CATALOGUE_TABLE_H

#include "catalogue/reader/CatalogueTables.h"

namespace wrt::test {

/// The methods of every class that has any, by class name, in the order of the class.
using CatalogueTable = std::map<std::string, std::vector<catalogue::Method>>;

/// The table that the build made. Read once.
const CatalogueTable &catalogueTable();

/// Every class of the library. Read once.
const std::vector<catalogue::Class> &surfaceClasses();

} // namespace wrt::test

#endif
