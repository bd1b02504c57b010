// The functions that compiled code calls for its blocks. GNUstep Base brings functions of the same
// names that know another layout, and libBlocksRuntime's do not retain captured objects; so these
// have to be found first, which `checkBlockRuntime` makes sure of.

#include "platform/linux/objc/BlockLayout.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <Block.h>
#include <ObjCRuntime.h>
#include <WRTObjcBridge/WRTTypes.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

extern "C" {
extern void *_NSConcreteMallocBlock[];

void _Block_object_assign(void *to, const void *object, int flags);
void _Block_object_dispose(const void *object, int flags);
}

namespace wrt::block {
namespace {

/// Copying a block cannot fail as far as its callers know.
void *allocate(size_t size, WRTLedgerKind kind) {
  void *memory = std::malloc(size);
  if (memory == nullptr) {
    std::fputs("zorvex: no memory for a block\n", stderr);
    std::abort();
  }
  WRTLedgerAdd(kind, 1);
  return memory;
}

void deallocate(void *memory, WRTLedgerKind kind) {
  WRTLedgerAdd(kind, -1);
  std::free(memory);
}

Block *copyToHeap(const Block *source) {
  const Descriptor *descriptor = source->descriptor;
  auto *copy = static_cast<Block *>(allocate(descriptor->size, kWRTLedgerBlocks));
  std::memcpy(copy, source, descriptor->size);
  copy->isa = static_cast<void *>(_NSConcreteMallocBlock);
  copy->flags |= kOnHeap;
  copy->references = 1;
  if ((copy->flags & kHasCopyDispose) != 0)
    descriptor->copy(copy, source);
  return copy;
}

/// Another owner for a variable; the first time, it moves to the heap, where both the frame that it
/// came from and the new owner hold it. Only the thread that owns the frame does that.
Byref *retainByref(Byref *variable) {
  Byref *heap = variable->forwarding;
  if ((heap->flags & kOnHeap) != 0) {
    std::atomic_ref(heap->flags).fetch_add(1, std::memory_order_relaxed);
    return heap;
  }
  heap = static_cast<Byref *>(allocate(variable->size, kWRTLedgerBlockVariables));
  std::memcpy(heap, variable, variable->size);
  heap->flags = (variable->flags & ~kReferenceMask) | kOnHeap | 2;
  heap->forwarding = heap;
  variable->forwarding = heap;
  if ((variable->flags & kHasCopyDispose) != 0)
    variable->keep(heap, variable);
  return heap;
}

void releaseByref(Byref *variable) {
  Byref *heap = variable->forwarding;
  if ((heap->flags & kOnHeap) == 0)
    return;
  const int32_t before = std::atomic_ref(heap->flags).fetch_sub(1, std::memory_order_acq_rel);
  if ((before & kReferenceMask) != 1)
    return;
  if ((before & kHasCopyDispose) != 0)
    heap->destroy(heap);
  deallocate(heap, kWRTLedgerBlockVariables);
}

[[gnu::constructor]] void checkBlockRuntime() {
  Dl_info own{};
  Dl_info found{};
  void *symbol = dlsym(RTLD_DEFAULT, "_Block_copy");
  if (dladdr(reinterpret_cast<void *>(&checkBlockRuntime), &own) != 0 &&
      dladdr(symbol, &found) != 0 && own.dli_fbase == found.dli_fbase)
    return;
  std::fprintf(stderr, "zorvex: the block functions of %s are in use; link zorvex before it\n",
               found.dli_fname != nullptr ? found.dli_fname : "another library");
  std::abort();
}

} // namespace
} // namespace wrt::block

using namespace wrt::block;

extern "C" WRT_DLLEXPORT void *_Block_copy(const void *source) {
  auto *block = static_cast<Block *>(const_cast<void *>(source));
  if (block == nullptr || (block->flags & kIsGlobal) != 0)
    return block;
  if ((block->flags & kOnHeap) == 0)
    return copyToHeap(block);
  std::atomic_ref(block->references).fetch_add(1, std::memory_order_relaxed);
  return block;
}

extern "C" WRT_DLLEXPORT void _Block_release(const void *object) {
  auto *block = static_cast<Block *>(const_cast<void *>(object));
  if (block == nullptr || (block->flags & kOnHeap) == 0)
    return;
  if (std::atomic_ref(block->references).fetch_sub(1, std::memory_order_acq_rel) != 1)
    return;
  if ((block->flags & kHasCopyDispose) != 0)
    block->descriptor->dispose(block);
  deallocate(block, kWRTLedgerBlocks);
}

extern "C" WRT_DLLEXPORT void _Block_object_assign(void *to, const void *object, int flags) {
  auto **field = static_cast<const void **>(to);
  auto *mutableObject = const_cast<void *>(object);
  switch (flags & ~kFieldIsWeak) {
  case kFieldIsObject:
    *field = objc_retain(static_cast<id>(mutableObject));
    break;
  case kFieldIsBlock:
    *field = _Block_copy(object);
    break;
  case kFieldIsByref:
    *field = retainByref(static_cast<Byref *>(mutableObject));
    break;
  default:
    *field = object;
  }
}

extern "C" WRT_DLLEXPORT void _Block_object_dispose(const void *object, int flags) {
  auto *mutableObject = const_cast<void *>(object);
  switch (flags & ~kFieldIsWeak) {
  case kFieldIsObject:
    objc_release(static_cast<id>(mutableObject));
    break;
  case kFieldIsBlock:
    _Block_release(object);
    break;
  case kFieldIsByref:
    releaseByref(static_cast<Byref *>(mutableObject));
    break;
  default:
    break;
  }
}
