#include "ArmMachine.h"

#include "Metadata.h"
#include "tests/exhaustive/MethodCall.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstring>

namespace wrt::test {

const std::uint32_t kPointerSize = 4;

} // namespace wrt::test

namespace wrt::sweep {

using emulator::Address;
using emulator::HostCall;

namespace {

Address address(Word word) { return static_cast<Address>(word); }

std::string key(bool isClassMethod, const std::string &className, const std::string &selector) {
  return fmt::format("{}{} {}", isClassMethod ? '+' : '-', className, selector);
}

} // namespace

ArmMachine::ArmMachine(const std::vector<std::string> &files) {
  process_.hostImports = {"WRTGetActivationFactory", "WRTActivateInstance"};
  defineActivation();
  for (const std::string &file : files)
    if (!process_.attach(process_.load(file)))
      throw emulator::Fault(file + " refuses to be attached");
  const emulator::Module &product =
      *process_.findModule(std::filesystem::path(files.back()).filename().string());
  for (const auto &[name, type] : pe::Metadata::read(product.image).classes)
    for (const pe::ObjCMethod &method : type.methods)
      implementations_[key(method.isClassMethod, name, method.selector)] =
          product.address(method.implementation);
  constexpr const char *kCounters[] = {"testLiveObjects", "testLiveStrings", "testLiveTaskBlocks",
                                       "testLiveDelegates"};
  std::ranges::transform(kCounters, counters_.begin(),
                         [this](const char *name) { return process_.find(name); });

  text = objc_.send(objc_.string(kText), "retain");
  handle = objc_.handle(kText);
  array = objc_.send(objc_.send(objc_.type("NSMutableArray"), "array"), "retain");
  machine_.define("the block", [](const HostCall &) -> std::uint32_t { return 0; });
  block = objc_.block(machine_.hostFunction("the block"));
  room = process_.allocate(kRooms * kRoomSize);
  for (emulator::HostObject *each : {&object_, &argument_})
    each->asked = [this, each](const emulator::Iid &iid, const HostCall &) {
      if (!current)
        return;
      current->asked(iid, each == &argument_);
      checkUnwinding();
    };
  object_.called = [this](int slot, const HostCall &) { return receive(slot); };
}

/// The activation functions stand in front of the double's.
void ArmMachine::defineActivation() {
  machine_.define("WRTGetActivationFactory", [this](const HostCall &call) -> std::uint32_t {
    checkUnwinding();
    emulator::Iid iid;
    std::ranges::copy(machine_.read(call[1], iid.size()), iid.begin());
    current->asked(iid);
    const Word factory = current->activated(objc_.handleText(call[0]));
    machine_.writeWord(call[2], address(factory));
    return factory ? 0 : 0x80040154; // REGDB_E_CLASSNOTREG
  });
  machine_.define("WRTActivateInstance", [this](const HostCall &call) -> std::uint32_t {
    checkUnwinding();
    return address(current->activated(machine_.readWideString(call[0])));
  });
}

void ArmMachine::checkUnwinding() {
  const std::string problem = unwinder_.unwind();
  current->expect(problem.empty(), problem);
}

Word ArmMachine::send(Word receiver, const std::string &selector, Word argument) {
  return objc_.send(address(receiver), selector, address(argument));
}

std::u16string ArmMachine::stringText(Word string) { return objc_.stringText(address(string)); }

std::u16string ArmMachine::handleText(Word handle) { return objc_.handleText(address(handle)); }

// As the double lays a delegate out: its block comes last.
bool ArmMachine::isDelegate(Word object) { return machine_.readWord(address(object) + 24) != 0; }

Bytes ArmMachine::read(Word place, std::uint32_t size) {
  return machine_.read(address(place), size);
}

void ArmMachine::write(Word place, const Bytes &bytes) {
  machine_.write(address(place), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

Bytes ArmMachine::enter(const catalogue::Method &method, const EncodedType &result,
                        const std::vector<EncodedType> &types, const std::vector<Bytes> &values) {
  const auto function =
      implementations_.find(key(method.isClassMethod, method.className, method.selector));
  if (function == implementations_.end())
    throw std::runtime_error("no such method");
  write(room, Bytes(kRoomSize, 0xCC));
  Arguments arguments;
  Placement placement;
  if (isReturnedInMemory(result))
    put(arguments, {placement.nextWord()}, {address(room)});
  for (std::size_t i = 0; i < types.size(); ++i)
    put(arguments, placement.next(types[i]), wordsOf(types[i], values[i]));
  const Registers left = machine_.enter(function->second, arguments);
  return isReturnedInMemory(result) ? read(room, sizeOf(result))
                                    : take(result, resultWords(result, left));
}

std::uint32_t ArmMachine::receive(int slot) {
  if (!current)
    throw emulator::Fault(fmt::format("slot {} is called outside of a method", slot));
  checkUnwinding();
  const Registers at = machine_.registers();
  Placement placement;
  placement.nextWord(); // the interface pointer, which the object has looked at
  std::vector<Bytes> values;
  for (const EncodedType &type : current->slotTypes()) {
    std::vector<std::uint32_t> words;
    for (const Placement::Place &place : placement.next(type))
      words.push_back(get(machine_, at, place));
    values.push_back(take(type, words));
  }
  return current->called(slot, values);
}

Bytes ArmMachine::take(const EncodedType &type, const std::vector<std::uint32_t> &words) {
  Bytes bytes(sizeOf(type));
  if (bytes.empty())
    return bytes;
  std::memcpy(bytes.data(), words.data(), bytes.size());
  if (!type.isStructure())
    current->expect(wordsOf(type, bytes)[0] == words[0], "a number does not fill its word");
  return bytes;
}

test::TestMachine::Counts ArmMachine::counts() {
  Counts counts;
  for (std::size_t i = 0; i < counts.size(); ++i)
    counts.at(i) = machine_.call(counters_.at(i), {});
  return counts;
}

} // namespace wrt::sweep
