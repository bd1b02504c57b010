#ifndef WRT_API_TABLE_H
#define WRT_API_TABLE_H

#include <cstddef>
#include <string_view>

namespace wrt::components {

/// What the declarations tell of, sorted; made by foundation/apitable, which describes the lines.
extern const std::string_view kApiTable[];
extern const size_t kApiTableSize;

} // namespace wrt::components

#endif
