#ifndef WRT_PATCHER_IMAGE_INFO_H
#define WRT_PATCHER_IMAGE_INFO_H

#include <cstdint>

namespace wrt::startup {

/// A list of pointers that the linker puts together from all object files; a null stands at each
/// end.
struct ImageList {
  void **begin;
  void **end;
};

/// What the Objective-C runtime is told about an image. The first two words are those that the
/// compiler writes into each object file's image information.
struct ImageInfo {
  std::uint32_t version;
  std::uint32_t flags;
  ImageList classes;
  ImageList nonLazyClasses;
  ImageList categories;
  ImageList protocols;
  ImageList classReferences;
  ImageList superclassReferences;
  ImageList selectorReferences;
  ImageList protocolReferences;
};

/// This image's record, for `__objc_image_load` and `__objc_image_unload`.
const ImageInfo &imageInfo();

} // namespace wrt::startup

#endif
