#ifndef WRT_SUPPORT_PROTOCOL_H
#define WRT_SUPPORT_PROTOCOL_H

#import <Foundation/Foundation.h>

namespace wrt::support {

/// The protocol's name, autoreleased. Where it lies is the same in the runtimes of both targets;
/// the GNU runtime cannot be asked, as it does not know a protocol that no class of its module
/// adopts.
inline NSString *nameOf(Protocol *protocol) {
  struct Head {
    void *isa;
    const char *name;
  };
  return [NSString stringWithUTF8String:reinterpret_cast<const Head *>(protocol)->name];
}

} // namespace wrt::support

#endif
