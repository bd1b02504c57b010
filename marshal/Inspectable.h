#ifndef WRT_MARSHAL_INSPECTABLE_H
#define WRT_MARSHAL_INSPECTABLE_H

#include <WRTObjcBridge/WRTIInspectableBridge.h>

#include "marshal/ClassReference.h"

/// The bridge of values whose WinRT type is the plain object type.
WRT_CLASS_REFERENCE(WRTIInspectableBridge);

/// The interface that stands for the plain object type, as generated code names those of other
/// types.
namespace wrt::IInspectable {

/// The accessor of arguments that may be any object.
inline void *interface(id object, NSError **error) {
  return [object _WRTIInspectableWithError:error];
}

} // namespace wrt::IInspectable

#endif
