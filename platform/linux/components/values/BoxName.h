#ifndef WRT_COMPONENTS_BOX_NAME_H
#define WRT_COMPONENTS_BOX_NAME_H

#include <WRTObjcBridge/WRTTypes.h>
#include <string>
#include <string_view>

namespace wrt::implement {

/// The runtime class name of boxed values: ``Windows.Foundation.IReference`1<Int32>`` for
/// "IReference" and the type signature "i4". Empty for types that have no name of their own.
WRT_DLLEXPORT std::u16string boxName(std::string_view interface, std::string_view signature);

} // namespace wrt::implement

#endif
