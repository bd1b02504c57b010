#include "platform/arm/doubles/generated/NamedDelegate.h"

#include "platform/arm/doubles/bridge/Delegate.h"

#include <cstddef>

namespace {

const char *lastFactory = "";

static_assert(offsetof(Delegate, block) == 24);

/// Every delegate's Invoke: the block takes the delegate's place in the first register and the
/// other arguments stay where they are, whatever they are. A block's function is its fourth word.
/// On i386, where the doubles run natively, the first argument lies behind the return address.
[[gnu::naked]] HRESULT invokeBlock() {
#if defined(__i386__)
  asm("movl 4(%esp), %eax\n"
      "movl 24(%eax), %eax\n"
      "movl %eax, 4(%esp)\n"
      "jmp *12(%eax)\n");
#else
  asm("ldr r0, [r0, #24]\n"
      "ldr r12, [r0, #12]\n"
      "bx r12\n");
#endif
}

} // namespace

void *makeNamedDelegate(void *block, const char *factory) {
  lastFactory = factory;
  return makeDelegate(block, reinterpret_cast<void *>(invokeBlock));
}

const char *testLastFactory() { return lastFactory; }
