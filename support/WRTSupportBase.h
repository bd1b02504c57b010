/// What all headers of WRTSupport have in common.
#ifndef WRT_SUPPORT_BASE_H
#define WRT_SUPPORT_BASE_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

/// Marks what the library exports.
#if defined(_WIN32)
#define WRT_SUPPORT_API
#else
#define WRT_SUPPORT_API __attribute__((visibility("default")))
#endif

/// Begins a function that is defined in a header, once for each type of its arguments; C has
/// overloads too.
#define WRT_SUPPORT_OVERLOAD static inline __attribute__((overloadable, unused))

#endif
