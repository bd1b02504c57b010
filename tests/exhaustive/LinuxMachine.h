#ifndef WRT_TESTS_LINUX_MACHINE_H
#define WRT_TESTS_LINUX_MACHINE_H

#include "tests/exhaustive/Identifiers.h"
#include "tests/exhaustive/TestMachine.h"

#import <Foundation/Foundation.h>

#include <WRTAbi.h>

namespace wrt::test {

/// This process. libffi makes calls and interface functions of any signature.
class LinuxMachine : public TestMachine {
public:
  LinuxMachine();

  Object object() override { return object_.asObject(); }
  Object argument() override { return argument_.asObject(); }
  Word type(const std::string &className) override;
  Word selector(const std::string &text) override;
  Word send(Word receiver, const std::string &selector, Word argument) override;
  std::u16string stringText(Word string) override;
  std::u16string handleText(Word handle) override;
  bool isDelegate(Word object) override;
  Bytes read(Word place, std::uint32_t size) override;
  void write(Word place, const Bytes &bytes) override;
  Bytes enter(const catalogue::Method &method, const EncodedType &result,
              const std::vector<EncodedType> &types, const std::vector<Bytes> &values) override;
  void drain() override;
  Counts counts() override;

private:
  /// A WinRT object of which at most one function behind those of `IUnknown` is expected.
  struct RecordingObject {
    static constexpr int kSlots = 256;

    explicit RecordingObject(LinuxMachine &machine);
    Object asObject() { return {reinterpret_cast<Word>(this), references, queryStatus}; }

    void **table = slots;
    void *slots[kSlots];
    LinuxMachine &machine;
    int references = 1;
    std::uint32_t queryStatus = 0;
  };

  static HRESULT WRT_ABI queryInterface(RecordingObject *self, const Iid *iid, void **result);
  static std::uint32_t WRT_ABI addRef(RecordingObject *self);
  static std::uint32_t WRT_ABI release(RecordingObject *self);
  static HRESULT WRT_ABI stray(RecordingObject *self);
  static void receive(ffi_cif *cif, void *result, void **arguments, void *machine);

  RecordingObject object_{*this};
  RecordingObject argument_{*this};
  /// The slot that is expected to be called.
  int slot_ = 0;
  NSAutoreleasePool *pool_;
};

} // namespace wrt::test

#endif
