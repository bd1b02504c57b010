#ifndef WRT_TRACE_VALUES_H
#define WRT_TRACE_VALUES_H

#include "debug/Encoding.h"
#include "debug/trace/Tables.h"

namespace wrt::trace {

/// The value at `place`, shortened to what fits a line: a text in quotes, `<WRTUriBridge 0x...>`, a
/// number, `{1, 2}`; what it points at behind `&` for a pointer to a number or object, if that can
/// be read and `follows`.
std::string valueText(const debug::EncodedType &type, const void *place, const Tables &tables,
                      bool follows);

} // namespace wrt::trace

#endif
