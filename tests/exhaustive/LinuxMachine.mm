#include "tests/exhaustive/LinuxMachine.h"

#include "debug/trace/Closure.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/ledger/WRTLedger.h"
#include "tests/exhaustive/MethodCall.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

#import <objc/message.h>
#import <objc/runtime.h>

#include <bit>
#include <cstring>
#include <stdexcept>

namespace wrt::test {

const std::uint32_t kPointerSize = sizeof(void *);

namespace {

/// The one that there is, for the functions below.
LinuxMachine *theMachine;

template <class T>
T *at(Word word) {
  return reinterpret_cast<T *>(word); // NOLINT(performance-no-int-to-ptr)
}

template <class T>
Word wordOf(T *pointer) {
  return reinterpret_cast<Word>(pointer);
}

id objectAt(Word word) { return static_cast<id>(at<void>(word)); }

#if defined(__x86_64__)
constexpr ffi_abi kInterfaceFunctions = FFI_GNUW64;
#else
constexpr ffi_abi kInterfaceFunctions = FFI_DEFAULT_ABI;
#endif

} // namespace

LinuxMachine::LinuxMachine() : pool_([[NSAutoreleasePool alloc] init]) {
  theMachine = this;
  NSString *const string = @"crossing";
  text = wordOf(string);
  HSTRING made = nullptr;
  makeString(kText, &made);
  handle = wordOf(made);
  array = wordOf([[NSMutableArray alloc] init]);
  void *const function = ^HRESULT {
    return 0;
  };
  block = wordOf(function);
  alignas(16) static std::uint8_t rooms[kRooms * kRoomSize];
  room = wordOf(rooms);
}

Word LinuxMachine::type(const std::string &className) {
  return wordOf(objc_lookUpClass(className.c_str()));
}

Word LinuxMachine::selector(const std::string &text) { return wordOf(sel_getUid(text.c_str())); }

Word LinuxMachine::send(Word receiver, const std::string &selector, Word argument) {
  const SEL name = sel_getUid(selector.c_str());
  return reinterpret_cast<Word (*)(id, SEL, Word)>(reinterpret_cast<void *>(
      objc_msg_lookup(objectAt(receiver), name)))(objectAt(receiver), name, argument);
}

std::u16string LinuxMachine::stringText(Word string) {
  NSString *const text = objectAt(string);
  std::u16string units([text length], 0);
  [text getCharacters:reinterpret_cast<unichar *>(units.data())];
  return units;
}

std::u16string LinuxMachine::handleText(Word handle) {
  return std::u16string(viewOf(static_cast<HSTRING>(at<void>(handle))));
}

bool LinuxMachine::isDelegate(Word object) {
  void *unknown = nullptr;
  WRTIUnknownQueryInterface(at<void>(object), &abi::IUnknown::kIid, &unknown);
  WRTIUnknownSafeRelease(unknown);
  return unknown != nullptr;
}

Bytes LinuxMachine::read(Word place, std::uint32_t size) {
  return {at<std::uint8_t>(place), at<std::uint8_t>(place + size)};
}

void LinuxMachine::write(Word place, const Bytes &bytes) {
  std::memcpy(at<void>(place), bytes.data(), bytes.size());
}

Bytes LinuxMachine::enter(const catalogue::Method &method, const EncodedType &result,
                          const std::vector<EncodedType> &types, const std::vector<Bytes> &values) {
  Class type = objc_lookUpClass(method.className.c_str());
  const SEL selector = sel_getUid(method.selector.c_str());
  Method found = method.isClassMethod ? class_getClassMethod(type, selector)
                                      : class_getInstanceMethod(type, selector);
  if (!found)
    throw std::runtime_error("no such method");
  std::vector<ffi_type *> ffiTypes;
  std::vector<void *> places;
  for (std::size_t i = 0; i < types.size(); ++i) {
    ffiTypes.push_back(types[i].ffi());
    places.push_back(const_cast<std::uint8_t *>(values[i].data()));
  }
  ffi_cif cif;
  if (ffi_prep_cif(&cif, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), result.ffi(),
                   ffiTypes.data()) != FFI_OK)
    throw std::runtime_error("libffi cannot make this call");
  // An accessor's is one that nobody calls.
  slot_ = method.slot.value_or(RecordingObject::kSlots - 1);
  std::vector<EncodedType> parameters = debug::parseEncoding("i^v"); // status, interface pointer
  parameters.insert(parameters.end(), current->slotTypes().begin(), current->slotTypes().end());
  const trace::Closure closure(std::move(parameters), receive, this, kInterfaceFunctions);
  void *const stray = std::exchange(object_.slots[slot_], closure.code());
  alignas(16) std::uint8_t bytes[kRoomSize] = {};
  ffi_call(&cif, reinterpret_cast<void (*)()>(method_getImplementation(found)), bytes,
           places.data());
  object_.slots[slot_] = stray;
  return {bytes, bytes + sizeOf(result)};
}

void LinuxMachine::receive(ffi_cif *cif, void *result, void **arguments, void *machine) {
  std::vector<Bytes> values;
  for (unsigned i = 1; i < cif->nargs; ++i) {
    const auto *begin = static_cast<std::uint8_t *>(arguments[i]);
    values.emplace_back(begin, begin + cif->arg_types[i]->size);
  }
  const auto &self = *static_cast<LinuxMachine *>(machine);
  *static_cast<ffi_sarg *>(result) = static_cast<HRESULT>(self.current->called(self.slot_, values));
}

void LinuxMachine::drain() {
  [pool_ release];
  pool_ = [[NSAutoreleasePool alloc] init];
}

TestMachine::Counts LinuxMachine::counts() {
  const WRTLedgerCounts all = WRTLedgerRead();
  return {all.live[kWRTLedgerObjects], all.live[kWRTLedgerStringHandles],
          all.live[kWRTLedgerTaskBlocks], all.live[kWRTLedgerDelegates]};
}

LinuxMachine::RecordingObject::RecordingObject(LinuxMachine &machine) : machine(machine) {
  for (void *&slot : slots)
    slot = reinterpret_cast<void *>(&LinuxMachine::stray);
  slots[0] = reinterpret_cast<void *>(&queryInterface);
  slots[1] = reinterpret_cast<void *>(&addRef);
  slots[2] = reinterpret_cast<void *>(&release);
}

HRESULT LinuxMachine::queryInterface(RecordingObject *self, const Iid *iid, void **result) {
  if (MethodCall *call = self->machine.current)
    call->asked(*iid, self == &self->machine.argument_);
  if (self->queryStatus == 0) {
    ++self->references;
    *result = self;
  }
  return static_cast<HRESULT>(self->queryStatus);
}

std::uint32_t LinuxMachine::addRef(RecordingObject *self) {
  return static_cast<std::uint32_t>(++self->references);
}

std::uint32_t LinuxMachine::release(RecordingObject *self) {
  return static_cast<std::uint32_t>(--self->references);
}

HRESULT LinuxMachine::stray(RecordingObject *self) {
  self->machine.current->expect(false, "another slot is called");
  return 0;
}

} // namespace wrt::test

using namespace wrt::test;

// The test program's own activation stands in front of the platform's.
extern "C" __attribute__((visibility("default"))) HRESULT WRTGetActivationFactory(HSTRING className,
                                                                                  const GUID *iid,
                                                                                  void **factory) {
  theMachine->current->asked(std::bit_cast<Iid>(*iid));
  *factory = at<void>(theMachine->current->activated(std::u16string(wrt::viewOf(className))));
  return *factory ? 0 : wrt::status::kClassNotRegistered;
}

extern "C" __attribute__((visibility("default"))) void *
WRTActivateInstance(const char16_t *className) {
  return at<void>(theMachine->current->activated(className));
}
