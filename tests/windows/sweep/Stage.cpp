#include "Stage.h"

#include "Metadata.h"
#include "Text.h"

#include <algorithm>
#include <cstring>

namespace wrt::sweep {

namespace {

constexpr std::uint32_t kFailure = 0x80070057;            // E_INVALIDARG
constexpr std::uint32_t kClassNotRegistered = 0x80040154; // REGDB_E_CLASSNOTREG
constexpr const char16_t *kText = u"crossing";
/// What the error variable holds before a call; never looked at by the library.
constexpr std::uint32_t kStale = 0x5A5A5A58;
constexpr std::uint32_t kRoomSize = 64;

emulator::Iid readIid(emulator::Machine &machine, Address address) {
  emulator::Iid iid;
  std::ranges::copy(machine.read(address, iid.size()), iid.begin());
  return iid;
}

} // namespace

Stage::Stage(const std::vector<std::string> &files, Identifiers identifiers)
    : identifiers_(std::move(identifiers)) {
  process_.hostImports = {"WRTGetActivationFactory", "WRTActivateInstance"};
  defineActivation();
  for (const std::string &file : files)
    if (!process_.attach(process_.load(file)))
      throw emulator::Fault(file + " refuses to be attached");
  const emulator::Module &product =
      *process_.findModule(std::filesystem::path(files.back()).filename().string());
  for (const auto &[name, type] : pe::Metadata::read(product.image).classes)
    for (const pe::ObjCMethod &method : type.methods)
      implementations_[pe::join(method.isClassMethod ? '+' : '-', '[', name, ' ', method.selector,
                                ']')] = product.address(method.implementation);
  for (const char *name :
       {"testLiveObjects", "testLiveStrings", "testLiveTaskBlocks", "testLiveDelegates"})
    counters_.push_back(process_.find(name));

  text_ = objc_.send(objc_.string(kText), "retain");
  textHandle_ = objc_.handle(kText);
  array_ = objc_.send(objc_.send(objc_.type("NSMutableArray"), "array"), "retain");
  machine_.define("the block", [](const HostCall &) -> std::uint32_t { return 0; });
  block_ = objc_.block(machine_.hostFunction("the block"));
  room_ = process_.allocate(16 * kRoomSize);
  object_.asked = [this](const emulator::Iid &iid, const HostCall &) {
    if (!current_)
      return;
    current_->asked.push_back(iid);
    checkUnwinding();
  };
  argument_.asked = [this](const emulator::Iid &iid, const HostCall &) {
    if (!current_)
      return;
    current_->argumentsAsked.push_back(iid);
    checkUnwinding();
  };
  object_.called = [this](int slot, const HostCall &call) { return receive(slot, call); };
}

/// The activation functions stand in front of the double's: the object is every class's factory.
void Stage::defineActivation() {
  machine_.define("WRTGetActivationFactory", [this](const HostCall &call) -> std::uint32_t {
    current_->activated.push_back(objc_.handleText(call[0]));
    current_->asked.push_back(readIid(machine_, call[1]));
    checkUnwinding();
    const bool missing = current_->outcome == Outcome::kInterfaceMissing;
    object_.references += missing ? 0 : 1;
    machine_.writeWord(call[2], missing ? 0 : object_.pointer());
    return missing ? kClassNotRegistered : 0;
  });
  machine_.define("WRTActivateInstance", [this](const HostCall &call) -> std::uint32_t {
    current_->activated.push_back(machine_.readWideString(call[0]));
    checkUnwinding();
    const bool missing = current_->outcome == Outcome::kInterfaceMissing;
    object_.references += missing ? 0 : 1;
    return missing ? 0 : object_.pointer();
  });
}

void Stage::checkUnwinding() {
  const std::string problem = unwinder_.unwind();
  current_->expect(problem.empty(), problem);
}

Stage::Counts Stage::counts() {
  Counts counts{};
  for (std::size_t i = 0; i < counts.size(); ++i)
    counts.at(i) = machine_.call(counters_[i], {});
  return counts;
}

std::vector<std::string> Stage::call(const catalogue::Method &method, Outcome outcome) {
  Call call{method, outcome, {}, {}, {}, {}, {}, {}, 0, {}};
  if (!implementations_.count(method.name()))
    return {"no such method"};
  const std::vector<EncodedType> types = debug::parseEncoding(
      method.extendedEncoding.empty() || method.extendedEncoding == "-" ? method.encoding
                                                                        : method.extendedEncoding);
  call.result = types.front();
  if (call.isMember())
    call.types.assign(types.begin() + 3, types.end() - 1);
  const Counts before = counts();
  const int references = object_.references;
  const int argumentReferences = argument_.references;
  try {
    const Address type = objc_.type(method.className);
    const Address receiver =
        method.isClassMethod ? type : objc_.send(type, "bridge:", object_.pointer());
    makeArguments(call);
    current_ = &call;
    object_.queryStatus =
        outcome == Outcome::kInterfaceMissing ? emulator::HostObject::kNoInterface : 0;
    const Registers left = enter(call, receiver);
    current_ = nullptr;
    object_.queryStatus = 0;
    checkRequests(call);
    checkResult(call, left);
    if (!call.isActivation())
      checkError(call);
    objc_.drain();
  } catch (const std::exception &error) {
    current_ = nullptr;
    object_.queryStatus = 0;
    call.expect(false, error.what());
    objc_.drain();
    return call.problems;
  }
  call.expect(object_.references == references && argument_.references == argumentReferences,
              "a reference is lost or kept");
  call.expect(counts() == before, "an object, string, block of memory or delegate is kept");
  return call.problems;
}

void Stage::makeArguments(Call &call) {
  int seed = 0;
  bool hasArray = call.result.isArray();
  for (const EncodedType &type : call.types)
    hasArray = hasArray || type.isArray();
  for (const EncodedType &type : call.types) {
    ++seed;
    std::uint32_t word = 0;
    if (type.isString())
      word = text_;
    else if (type.isArray())
      word = array_;
    else if (type.kind == '@')
      word = objc_.send(objc_.type(type.bridgeName()), "bridge:", argument_.pointer());
    else if (type.kind == '?')
      word = block_;
    else if (type.kind == '^')
      word = room_ + kRoomSize * static_cast<std::uint32_t>(2 + seed);
    else if (hasArray && (type.kind == 'i' || type.kind == 'I'))
      word = static_cast<std::uint32_t>(seed); // a capacity, which is allocated
    else {
      call.values.push_back(pattern(type, seed));
      continue;
    }
    Bytes bytes(4);
    std::memcpy(bytes.data(), &word, bytes.size());
    call.values.push_back(bytes);
  }
}

Registers Stage::enter(Call &call, Address receiver) {
  const Bytes garbage(2 * kRoomSize, 0xCC);
  machine_.write(room_, garbage.data(), static_cast<std::uint32_t>(garbage.size()));
  machine_.writeWord(room_ + kRoomSize, kStale);
  Arguments arguments;
  Placement placement;
  if (isReturnedInMemory(call.result))
    put(arguments, {placement.nextWord()}, {room_});
  put(arguments, {placement.nextWord()}, {receiver});
  put(arguments, {placement.nextWord()}, {objc_.selector(call.method.selector)});
  for (std::size_t i = 0; i < call.types.size(); ++i)
    put(arguments, placement.next(call.types[i]), wordsOf(call.types[i], call.values[i]));
  put(arguments, {placement.nextWord()}, {room_ + kRoomSize});
  return machine_.enter(implementations_.at(call.method.name()), arguments);
}

std::uint32_t Stage::receive(int slot, const HostCall &) {
  if (!current_)
    throw emulator::Fault(pe::join("slot ", slot, " is called outside of a method"));
  Call &call = *current_;
  ++call.calls;
  call.expect(call.method.slot == slot, pe::join("slot ", slot, " is called"));
  checkUnwinding();
  const Registers at = machine_.registers();
  Placement placement;
  placement.nextWord(); // the interface pointer, which the object has looked at
  for (std::size_t i = 0; i < call.types.size(); ++i)
    checkArgument(call, i, placement, at);
  if (call.outcome == Outcome::kFailing)
    return kFailure;
  if (call.result.kind != 'v') {
    const Address place = get(machine_, at, placement.nextWord());
    if (call.result.isArray())
      call.expect(get(machine_, at, placement.nextWord()) != 0, "no place for elements");
    call.expect(place != 0, "no place for the result");
    writeResult(call.result, place);
  }
  return static_cast<std::uint32_t>(slot % 2); // success, in one of its forms
}

void Stage::checkArgument(Call &call, std::size_t index, Placement &placement,
                          const Registers &at) {
  const EncodedType &type = call.types[index];
  const std::string name = pe::join("argument ", index + 1);
  if (type.isArray()) {
    const std::uint32_t count = get(machine_, at, placement.nextWord());
    const Address block = get(machine_, at, placement.nextWord());
    call.expect(type.name == "NSArray" ? count == 0 : count != 0, name + " has another count");
    call.expect(block != 0, name + " has no block");
    return;
  }
  std::vector<std::uint32_t> words;
  for (const Placement::Place &place : placement.next(type))
    words.push_back(get(machine_, at, place));
  const std::vector<std::uint32_t> passed = wordsOf(type, call.values[index]);
  if (type.isString()) {
    call.expect(objc_.handleText(words[0]) == kText, name + " is another string");
  } else if (type.kind == '@') {
    call.expect(words[0] == argument_.pointer(), name + " is another object");
  } else if (type.kind == '?') {
    // As the double lays a delegate out: its block comes last.
    call.expect(words[0] != 0 && machine_.readWord(words[0] + 24) != 0, name + " is no delegate");
  } else if (type.kind == '^' && type.fields[0].kind == '@') {
    call.expect(words[0] != 0 && words[0] != passed[0], name + " is no place of its own");
  } else if (type.isStructure()) {
    Bytes bytes(4 * words.size());
    std::memcpy(bytes.data(), words.data(), bytes.size());
    bytes.resize(sizeOf(type));
    call.expect(areEqual(type, bytes.data(), call.values[index].data()),
                name + " is another structure");
  } else {
    call.expect(words == passed,
                pe::join(name, " is ", pe::Hex{words[0]}, ", not ", pe::Hex{passed[0]}));
  }
}

void Stage::writeResult(const EncodedType &type, Address place) {
  if (type.isArray())
    return; // nothing is delivered: the places stay as the bridge left them
  Bytes bytes = pattern(type, 9);
  if (type.kind == '@') {
    const Address word = type.isString() ? textHandle_ : argument_.pointer();
    argument_.references += type.isString() ? 0 : 1;
    std::memcpy(bytes.data(), &word, sizeof word);
  } else if (type.kind == 'B') {
    bytes = {0x80};
  }
  machine_.write(place, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

void Stage::checkRequests(Call &call) {
  const bool missing = call.outcome == Outcome::kInterfaceMissing;
  if (call.isMember())
    call.expect(call.calls == (missing ? 0 : 1),
                pe::join("the interface is called ", call.calls, " times"));
  if (call.method.isClassMethod) {
    const auto type = identifiers_.classes.find(call.method.className);
    call.expect(type != identifiers_.classes.end() && call.activated.size() == 1 &&
                    call.activated[0] == type->second,
                "another class is activated");
  }
  if (!call.isActivation()) {
    const auto interface = identifiers_.interfaces.find(call.method.interface);
    call.expect(interface != identifiers_.interfaces.end() && call.asked.size() == 1 &&
                    call.asked[0] == interface->second,
                "another interface is asked for");
  }
  std::vector<emulator::Iid> wanted;
  for (const EncodedType &type : call.types)
    if (type.kind == '@' && !type.isString() && !type.isArray() && !missing)
      wanted.push_back(identifiers_.bridges.at(type.bridgeName()));
  call.expect(call.argumentsAsked == wanted, "arguments are asked for other interfaces");
}

void Stage::checkError(Call &call) {
  const Address error = machine_.readWord(room_ + kRoomSize);
  // A swallowed failure leaves the variable alone; an accessor reports its own.
  if (call.outcome == Outcome::kInterfaceMissing && call.isMember()) {
    call.expect(error == kStale, "the error variable of a swallowed failure changes");
    return;
  }
  const std::uint32_t status = call.outcome == Outcome::kSuccess   ? 0
                               : call.outcome == Outcome::kFailing ? kFailure
                               : call.method.isClassMethod         ? kClassNotRegistered
                                                                   : object_.kNoInterface;
  if (status == 0)
    call.expect(error == 0 || (error == kStale && !call.isMember() && !call.method.isClassMethod),
                "the error variable of a success is not cleared");
  else
    call.expect(error != 0 && error != kStale && objc_.send(error, "code") == status,
                "the error is another");
}

void Stage::checkResult(Call &call, const Registers &left) {
  const EncodedType &type = call.result;
  const bool isEmpty = call.outcome != Outcome::kSuccess;
  const Address word = left.core[0];
  if (!call.isMember()) {
    call.expect(word == (isEmpty ? 0 : object_.pointer()), "another pointer is handed out");
    object_.references -= isEmpty ? 0 : 1;
  } else if (type.kind == '@') {
    if (isEmpty)
      call.expect(word == 0, "a failed call has a result");
    else if (type.isString())
      call.expect(word != 0 && objc_.stringText(word) == kText, "the result is another string");
    else if (type.isArray())
      call.expect(word != 0 && objc_.send(word, "count") == 0, "the result is another array");
    else
      call.expect(word != 0 && machine_.readWord(word) == objc_.type(type.bridgeName()) &&
                      objc_.send(word, "inner") == argument_.pointer(),
                  "the result is no " + type.name);
  } else if (type.kind != 'v') {
    Bytes wanted = isEmpty ? Bytes(sizeOf(type)) : pattern(type, 9);
    if (type.kind == 'B')
      wanted = {isEmpty ? std::uint8_t{0} : std::uint8_t{1}};
    const Bytes bytes =
        isReturnedInMemory(type) ? machine_.read(room_, sizeOf(type)) : resultOf(type, left);
    call.expect(areEqual(type, bytes.data(), wanted.data()), "the result is another");
    // The rest of the register is the callee's to fill.
    if (!type.isStructure() && sizeOf(type) < 4)
      call.expect(word == wordsOf(type, wanted)[0], "the result is not extended to its register");
  }
}

} // namespace wrt::sweep
