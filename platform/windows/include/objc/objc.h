/// The Objective-C language's basic types on 32-bit Windows.
#ifndef OBJC_OBJC_H
#define OBJC_OBJC_H

#if defined(_WIN32)
/// Marks a class that lives in another library.
#define OBJC_IMPORT __declspec(dllimport)
/// Marks a class that this library exports.
#define OBJC_EXPORT __declspec(dllexport)
#else
#define OBJC_IMPORT
#define OBJC_EXPORT __attribute__((visibility("default")))
#endif

/// Encodes as `c`.
typedef signed char BOOL;
#define YES ((BOOL)1)
#define NO ((BOOL)0)

typedef struct objc_class *Class;
typedef struct objc_object {
  Class isa;
} *id;
typedef struct objc_selector *SEL;
typedef void (*IMP)(void);

#if defined(__cplusplus)
#define nil nullptr
#define Nil nullptr
#else
#define nil ((void *)0)
#define Nil ((void *)0)
#endif

#endif
