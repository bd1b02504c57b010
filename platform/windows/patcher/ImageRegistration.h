#ifndef WRT_PATCHER_IMAGE_REGISTRATION_H
#define WRT_PATCHER_IMAGE_REGISTRATION_H

#include "Services.h"

namespace wrt::startup {

/// Hands the image's classes to the Objective-C runtime: the first of the known runtime libraries
/// that is loaded. Without one, or when it lacks the function, nothing is registered.
template <class Services>
void registerImage(const void *imageInfo, const void *imageBase, Services &services) {
  static constexpr const char16_t *kRuntimes[] = {u"zorvex.dll", u"objc_zorvex.dll",
                                                  u"objc4_noncompact.dll"};
  for (const char16_t *name : kRuntimes) {
    void *runtime = services.getModuleHandle(name);
    if (!runtime)
      continue;
    using Load = void (*)(const void *info, const void *base);
    if (auto load = reinterpret_cast<Load>(services.getProcAddress(runtime, "__objc_image_load")))
      load(imageInfo, imageBase);
    return;
  }
}

/// Takes the image's classes back, through the main program, which may forward to its runtime or
/// not.
template <class Services>
void unregisterImage(const void *imageInfo, Services &services) {
  void *program = services.getModuleHandle(nullptr);
  using Unload = void (*)(const void *info);
  if (auto unload =
          reinterpret_cast<Unload>(services.getProcAddress(program, "__objc_image_unload")))
    unload(imageInfo);
}

} // namespace wrt::startup

#endif
