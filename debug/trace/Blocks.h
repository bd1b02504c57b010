#ifndef WRT_TRACE_BLOCKS_H
#define WRT_TRACE_BLOCKS_H

#include "debug/trace/Closure.h"
#include "debug/trace/Tables.h"
#include "platform/linux/objc/BlockLayout.h"

#include <objc/objc.h>

namespace wrt::trace {

class BlockArgument;

/// A block around one of the application's, laid down as the compiler does. On a stack at first;
/// its copies hold the application's block.
struct Wrapper {
  block::Block header;
  void *wrapped;
  const BlockArgument *argument;
};

/// An argument of a member that is a block: what is to be known to trace its calls.
class BlockArgument {
public:
  /// `signature` is the block's encoding. Throws as `Closure` does.
  BlockArgument(const Method &taker, const std::string &signature);
  BlockArgument(const BlockArgument &) = delete;

  /// A block for the library in place of the application's (borrowed, not nil).
  Wrapper wrap(void *wrapped) const;

private:
  static void invoked(ffi_cif *cif, void *result, void **arguments, void *data);

  Method invoke_;
  Closure closure_;
};

} // namespace wrt::trace

#endif
