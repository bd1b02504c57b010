#ifndef WRT_MARSHAL_ACCESSOR_H
#define WRT_MARSHAL_ACCESSOR_H

#include <WRTObjcBridge/WRTTypes.h>

#import <Foundation/Foundation.h>

namespace wrt {

/// The body of every instance accessor: the interface `iid` of the object behind `bridge`, with a
/// reference for the caller (+1), or null and the failure in `*error` (null allowed).
void *queryInterface(id bridge, const GUID &iid, NSError **error);

/// The body of every class-side accessor: the interface `iid` (+1) of the activation factory of
/// `className`, or null and the failure in `*error` (null allowed). Asked for anew each time.
void *activationFactory(const char16_t *className, const GUID &iid, NSError **error);

} // namespace wrt

#endif
