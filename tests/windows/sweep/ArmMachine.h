#ifndef WRT_TESTS_SWEEP_ARM_MACHINE_H
#define WRT_TESTS_SWEEP_ARM_MACHINE_H

#include "HostObject.h"
#include "Layout.h"
#include "ObjectiveC.h"
#include "Unwinder.h"
#include "tests/exhaustive/TestMachine.h"

#include <unordered_map>

namespace wrt::sweep {

using test::Word;

/// The emulated process with the product among the doubles. Whenever a function of the host runs,
/// it looks at how that can be left; and at how small numbers fill their registers.
class ArmMachine : public test::TestMachine {
public:
  /// Loads and attaches the DLLs; the product is the last one.
  explicit ArmMachine(const std::vector<std::string> &files);

  Object object() override { return asObject(object_); }
  Object argument() override { return asObject(argument_); }
  Word type(const std::string &className) override { return objc_.type(className); }
  Word selector(const std::string &text) override { return objc_.selector(text); }
  Word send(Word receiver, const std::string &selector, Word argument) override;
  std::u16string stringText(Word string) override;
  std::u16string handleText(Word handle) override;
  bool isDelegate(Word object) override;
  Bytes read(Word place, std::uint32_t size) override;
  void write(Word place, const Bytes &bytes) override;
  Bytes enter(const catalogue::Method &method, const EncodedType &result,
              const std::vector<EncodedType> &types, const std::vector<Bytes> &values) override;
  void drain() override { objc_.drain(); }
  Counts counts() override;

private:
  static Object asObject(emulator::HostObject &object) {
    return {object.pointer(), object.references, object.queryStatus};
  }
  void defineActivation();
  void checkUnwinding();
  std::uint32_t receive(int slot);
  /// A value out of its words, the last of which has to be filled up.
  Bytes take(const EncodedType &type, const std::vector<std::uint32_t> &words);

  emulator::Process process_;
  emulator::Machine &machine_ = process_.machine();
  emulator::ObjectiveC objc_{process_};
  emulator::Unwinder unwinder_{process_};
  emulator::HostObject object_{process_};
  emulator::HostObject argument_{process_};
  std::unordered_map<std::string, emulator::Address> implementations_;
  std::array<emulator::Address, 4> counters_{};
};

} // namespace wrt::sweep

#endif
