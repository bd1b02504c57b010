#ifndef FOUNDATION_NSOBJCRUNTIME_H
#define FOUNDATION_NSOBJCRUNTIME_H

#include <objc/objc.h>
#include <stddef.h>
#include <stdint.h>

/// The class library's own build and its doubles define this as `OBJC_EXPORT`.
#if !defined(FOUNDATION_CLASS)
#define FOUNDATION_CLASS OBJC_IMPORT
#endif

#if defined(_WIN64)
typedef long long NSInteger;
typedef unsigned long long NSUInteger;
#else
typedef int NSInteger;
typedef unsigned int NSUInteger;
#endif
#if defined(__cplusplus)
static_assert(sizeof(NSInteger) == sizeof(void *), "as wide as a pointer");
#endif

/// The largest number there is.
#define NSNotFound ((NSInteger)(~(NSUInteger)0 >> 1))

#if defined(__cplusplus)
#define FOUNDATION_EXTERN extern "C"
#else
#define FOUNDATION_EXTERN extern
#endif

/// What the class library exports as data.
#if defined(_WIN32)
#define FOUNDATION_IMPORT FOUNDATION_EXTERN __declspec(dllimport)
#else
#define FOUNDATION_IMPORT FOUNDATION_EXTERN
#endif

#define NS_ENUM(type, name)                                                                        \
  enum name : type name;                                                                           \
  enum name : type
#define NS_OPTIONS(type, name)                                                                     \
  enum __attribute__((flag_enum)) name : type name;                                                \
  enum __attribute__((flag_enum)) name : type

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_RETURNS_RETAINED __attribute__((ns_returns_retained))

typedef struct {
  NSUInteger location;
  NSUInteger length;
} NSRange;

@class NSString;
FOUNDATION_EXTERN Class NSClassFromString(NSString *name);
FOUNDATION_EXTERN NSString *NSStringFromClass(Class aClass);
FOUNDATION_EXTERN SEL NSSelectorFromString(NSString *name);

#endif
