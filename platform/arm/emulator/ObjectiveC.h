#ifndef WRT_ARM_OBJECTIVE_C_H
#define WRT_ARM_OBJECTIVE_C_H

#include "Process.h"

namespace wrt::emulator {

/// The Objective-C side of the emulated process, for programs of the host. The doubles have to be
/// loaded.
class ObjectiveC {
public:
  explicit ObjectiveC(Process &process) : process_(process) {}

  /// A class that any module exports.
  Address type(const std::string &name) const { return process_.find("OBJC_CLASS_$_" + name); }
  /// The selector's text in memory, the same for the same text.
  Address selector(const std::string &text);
  /// Sends a message with up to two arguments.
  std::uint32_t send(Address receiver, const std::string &selector, std::uint32_t first = 0,
                     std::uint32_t second = 0);

  /// A string handle (+1).
  Address handle(const std::u16string &text);
  std::u16string handleText(Address handle) const;
  /// An autoreleased `NSString`.
  Address string(const std::u16string &text);
  std::u16string stringText(Address string);
  /// A block without variables whose function is `function`, with the block as its first argument.
  Address block(Address function);
  /// Releases everything that was autoreleased.
  void drain();

private:
  Process &process_;
  std::map<std::string, Address> selectors_;
};

} // namespace wrt::emulator

#endif
