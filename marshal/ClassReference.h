#ifndef WRT_MARSHAL_CLASS_REFERENCE_H
#define WRT_MARSHAL_CLASS_REFERENCE_H

#include "marshal/Object.h"

/// Declares `kFooClass`, the structure that the compiler makes for the Objective-C class `Foo`. Its
/// symbol's name belongs to the runtime, and only the preprocessor can put it together. May be
/// repeated.
#define WRT_CLASS_REFERENCE(name) WRT_CLASS_REFERENCE_OF(WRT_BRIDGE_API, name)

/// The same for a class of another library, whose classes `api` marks.
#if defined(__NEXT_RUNTIME__)
#define WRT_CLASS_SYMBOL "OBJC_CLASS_$_"
// Marked for export like the class itself: the compiler takes the symbol as it is declared first.
#define WRT_CLASS_REFERENCE_OF(api, name)                                                          \
  extern "C" api const wrt::ClassStructure k##name##Class __asm__(WRT_CLASS_SYMBOL #name)
#else
#define WRT_CLASS_SYMBOL "_OBJC_CLASS_"
#define WRT_CLASS_REFERENCE_OF(api, name)                                                          \
  extern "C" const wrt::ClassStructure k##name##Class __asm__(WRT_CLASS_SYMBOL #name)
#endif

#endif
