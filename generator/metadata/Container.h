#ifndef WRT_GENERATOR_METADATA_CONTAINER_H
#define WRT_GENERATOR_METADATA_CONTAINER_H

#include "generator/metadata/Bytes.h"

namespace bridgegen::metadata {

/// The streams of a metadata file: what a PE image has behind its CLI header.
struct Container {
  std::string_view version; ///< `WindowsRuntime 1.4`
  Bytes tables;             ///< `#~`
  Bytes strings;
  Bytes blobs;
};

/// Finds the streams of Windows metadata. Throws `Fault` when the file is none.
Container openContainer(std::string_view file);

} // namespace bridgegen::metadata

#endif
