#ifndef WRT_TESTS_DECLARED_IIDS_H
#define WRT_TESTS_DECLARED_IIDS_H

#include <WRTObjcBridge/WRTTypes.h>

#include <map>
#include <string>
#include <vector>

namespace wrt::test {

/// The identifiers that the declarations themselves give to interfaces, read without bridgegen.
std::map<std::string, GUID> readDeclaredIids(const std::vector<std::string> &paths);

} // namespace wrt::test

#endif
