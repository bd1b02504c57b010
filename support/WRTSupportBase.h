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

/// Around functions that are defined in a header: they are C and C++ in one, for which there is no
/// spelling that every warning of both likes.
#define WRT_SUPPORT_BEGIN                                                                          \
  _Pragma("clang diagnostic push") _Pragma("clang diagnostic ignored \"-Wold-style-cast\"")        \
      _Pragma("clang diagnostic ignored \"-Wzero-as-null-pointer-constant\"")                      \
          _Pragma("clang diagnostic ignored \"-Wdeclaration-after-statement\"")                    \
              _Pragma("clang diagnostic ignored \"-Wused-but-marked-unused\"")                     \
                  _Pragma("clang diagnostic ignored \"-Wnullable-to-nonnull-conversion\"")
#define WRT_SUPPORT_END _Pragma("clang diagnostic pop")

#endif
