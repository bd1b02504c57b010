/// Classes as receivers of messages on the path of a call. The GNU runtime looks a class up by name
/// at each `[Name message]`, which costs ten times the message; other runtimes keep a reference
/// that is filled in once.
#ifndef CLASS_RECEIVER_H
#define CLASS_RECEIVER_H

#if defined(__NEXT_RUNTIME__)

/// The class `name` as the receiver of a message.
#define WRT_CLASS(name) name

#else

#include <algorithm>
#include <cstddef>
#include <objc/runtime.h>

namespace wrt {

/// A class's name as a template argument.
template <size_t size>
struct ClassName {
  char text[size];

  consteval ClassName(const char (&name)[size]) { std::copy_n(name, size, text); }
};

/// The class of that name, looked up when it is first asked for. Threads that ask at once look it
/// up each for itself and find the same.
template <ClassName name>
Class classNamed() {
  static void *known;
  void *found = __atomic_load_n(&known, __ATOMIC_RELAXED);
  if (!found) [[unlikely]] {
    found = (void *)objc_lookUpClass(name.text);
    __atomic_store_n(&known, found, __ATOMIC_RELAXED);
  }
  return (Class)found;
}

} // namespace wrt

/// The class `name` as the receiver of a message.
#define WRT_CLASS(name) ::wrt::classNamed<#name>()

#endif

#endif
