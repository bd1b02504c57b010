#include "ObjectiveC.h"

namespace wrt::emulator {

Address ObjectiveC::selector(const std::string &text) {
  const auto [found, isNew] = selectors_.try_emplace(text, 0);
  if (isNew) {
    const auto size = static_cast<std::uint32_t>(text.size() + 1);
    found->second = process_.allocate(size);
    process_.machine().write(found->second, text.c_str(), size);
  }
  return found->second;
}

std::uint32_t ObjectiveC::send(Address receiver, const std::string &text, std::uint32_t first,
                               std::uint32_t second) {
  return process_.machine().call(process_.find("objc_msgSend"),
                                 {receiver, selector(text), first, second});
}

Address ObjectiveC::handle(const std::u16string &text) {
  const auto length = static_cast<std::uint32_t>(text.size());
  const Address characters = process_.allocate(2 * length + 2);
  process_.machine().write(characters, text.c_str(), 2 * length + 2);
  const Address handle =
      process_.machine().call(process_.find("testMakeString"), {characters, length});
  process_.release(characters);
  return handle;
}

std::u16string ObjectiveC::handleText(Address handle) const {
  if (handle == 0)
    return {};
  // As the double of the string functions lays a handle out: references, length, text.
  return process_.machine().readWideString(process_.machine().readWord(handle + 8));
}

Address ObjectiveC::string(const std::u16string &text) {
  const Address made = handle(text);
  const Address string = process_.machine().call(process_.find("WRTHSTRINGToCFString"), {made});
  process_.machine().call(process_.find("WRTHSTRINGRelease"), {made});
  return send(string, "autorelease");
}

std::u16string ObjectiveC::stringText(Address string) {
  const Address made = process_.machine().call(process_.find("WRTHSTRINGFromCFString"), {string});
  const std::u16string text = handleText(made);
  process_.machine().call(process_.find("WRTHSTRINGRelease"), {made});
  return text;
}

Address ObjectiveC::block(Address function) {
  const Address block = process_.allocate(28);
  // isa, flags (a global block), reserved, function, descriptor: reserved, size.
  const std::uint32_t words[] = {
      process_.find("_NSConcreteGlobalBlock"), 1u << 28, 0, function, block + 20, 0, 20};
  process_.machine().write(block, words, sizeof words);
  return block;
}

void ObjectiveC::drain() { process_.machine().call(process_.find("testPoolPop"), {0}); }

} // namespace wrt::emulator
