#include "tests/exhaustive/MethodCall.h"

#include <algorithm>
#include <cstring>
#include <iostream>

namespace wrt::test {

namespace {

constexpr std::uint32_t kFailure = 0x80070057;            // E_INVALIDARG
constexpr std::uint32_t kNoInterface = 0x80004002;        // E_NOINTERFACE
constexpr std::uint32_t kClassNotRegistered = 0x80040154; // REGDB_E_CLASSNOTREG
/// What the error variable holds before a call; never looked at by the library.
constexpr Word kStale = 0x5A5A5A58;
/// How many problems are printed.
constexpr std::size_t kPrinted = 50;

EncodedType plain(char kind) {
  EncodedType type;
  type.kind = kind;
  return type;
}

Bytes bytesOf(Word word, const EncodedType &type = plain('^')) {
  Bytes bytes(sizeOf(type));
  std::memcpy(bytes.data(), &word, bytes.size());
  return bytes;
}

Word wordOf(const Bytes &bytes) {
  Word word = 0;
  for (std::size_t i = std::min(bytes.size(), sizeof word); i-- > 0;)
    word = word << 8 | bytes[i];
  return word;
}

} // namespace

MethodCall::MethodCall(TestMachine &machine, const Identifiers &identifiers,
                       const catalogue::Method &method, Outcome outcome)
    : machine_(machine), identifiers_(identifiers), method_(method), outcome_(outcome) {
  const std::vector<EncodedType> types = debug::parseEncoding(
      method.extendedEncoding.empty() ? method.encoding : method.extendedEncoding);
  result_ = types.front();
  if (isMember())
    types_.assign(types.begin() + 3, types.end() - 1);
  for (const EncodedType &type : types_) {
    if (type.isArray()) // the count of an in-array, else a place for it; the block, likewise
      slotTypes_.push_back(plain(type.name == "NSArray" ? 'I' : '^'));
    slotTypes_.push_back(type.isArray() ? plain('^') : type);
  }
  if (result_.kind != 'v')
    slotTypes_.insert(slotTypes_.end(), result_.isArray() ? 2 : 1, plain('^'));
}

void MethodCall::expect(bool holds, const std::string &what) {
  if (!holds)
    problems_.push_back(what);
}

const std::vector<std::string> &MethodCall::run() {
  const auto object = machine_.object();
  const int references = object.references;
  const int argumentReferences = machine_.argument().references;
  const auto counts = machine_.counts();
  try {
    const Word type = machine_.type(method_.className);
    const Word receiver =
        method_.isClassMethod ? type : machine_.send(type, "bridge:", object.pointer);
    std::vector<EncodedType> types = {plain('@'), plain(':')};
    std::vector<Bytes> values = {bytesOf(receiver), bytesOf(machine_.selector(method_.selector))};
    for (const EncodedType &each : types_) {
      passed_.push_back(makeArgument(each, static_cast<int>(passed_.size()) + 1));
      types.push_back(each);
      values.push_back(passed_.back());
    }
    const Word error = machine_.room + TestMachine::kRoomSize;
    machine_.write(error, bytesOf(kStale));
    types.push_back(plain('^'));
    values.push_back(bytesOf(error));
    object.queryStatus = outcome_ == Outcome::kInterfaceMissing ? kNoInterface : 0;
    machine_.current = this;
    const Bytes result = machine_.enter(method_, result_, types, values);
    machine_.current = nullptr;
    object.queryStatus = 0;
    checkRequests();
    checkResult(result);
    if (!isActivation())
      checkError();
  } catch (const std::exception &error) {
    machine_.current = nullptr;
    object.queryStatus = 0;
    machine_.drain();
    expect(false, error.what());
    return problems_;
  }
  machine_.drain();
  expect(object.references == references && machine_.argument().references == argumentReferences,
         "a reference is lost or kept");
  expect(machine_.counts() == counts, "an object, string, block of memory or delegate is kept");
  return problems_;
}

void MethodCall::asked(const Iid &iid, bool isArgument) {
  (isArgument ? argumentsAsked_ : asked_).push_back(iid);
}

Word MethodCall::activated(const std::u16string &className) {
  activated_.push_back(className);
  if (outcome_ == Outcome::kInterfaceMissing)
    return 0;
  ++machine_.object().references;
  return machine_.object().pointer;
}

Bytes MethodCall::makeArgument(const EncodedType &type, int seed) {
  if (type.isString())
    return bytesOf(machine_.text);
  if (type.isArray())
    return bytesOf(machine_.array);
  if (type.kind == '@')
    return bytesOf(
        machine_.send(machine_.type(type.bridgeName()), "bridge:", machine_.argument().pointer));
  if (type.kind == '?')
    return bytesOf(machine_.block);
  if (type.kind == '^')
    return bytesOf(machine_.room + TestMachine::kRoomSize * static_cast<Word>(1 + seed));
  // Beside an array it may be a capacity, and is one that can be had.
  const bool isBesideArray =
      result_.isArray() || std::ranges::any_of(types_, &EncodedType::isArray);
  if (isBesideArray && (type.kind == 'i' || type.kind == 'I'))
    return bytesOf(static_cast<Word>(seed), type);
  return pattern(type, seed);
}

std::uint32_t MethodCall::called(int slot, const std::vector<Bytes> &values) {
  ++calls_;
  expect(method_.slot == slot, "slot " + std::to_string(slot) + " is called");
  const Bytes *value = values.data();
  for (std::size_t i = 0; i < types_.size(); ++i) {
    checkArgument(i, value);
    value += types_[i].isArray() ? 2 : 1;
  }
  if (outcome_ == Outcome::kFailing)
    return kFailure;
  if (result_.isArray())
    expect(wordOf(value[1]) != 0, "no place for elements");
  if (result_.kind != 'v')
    writeResult(wordOf(*value));
  return static_cast<std::uint32_t>(slot % 2); // success, in one of its forms
}

void MethodCall::checkArgument(std::size_t index, const Bytes *values) {
  const EncodedType &type = types_[index];
  const Word word = wordOf(values[0]);
  const std::string name = "argument " + std::to_string(index + 1);
  if (type.isArray()) {
    expect(type.name == "NSArray" ? word == 0 : word != 0, name + " has another count");
    expect(wordOf(values[1]) != 0, name + " has no block");
  } else if (type.isString()) {
    expect(machine_.handleText(word) == TestMachine::kText, name + " is another string");
  } else if (type.kind == '@') {
    expect(word == machine_.argument().pointer, name + " is another object");
  } else if (type.kind == '?') {
    expect(word != 0 && machine_.isDelegate(word), name + " is no delegate");
  } else if (type.kind == '^' && type.fields[0].kind == '@') {
    expect(word != 0 && values[0] != passed_[index], name + " is no place of its own");
  } else {
    expect(areEqual(type, values[0].data(), passed_[index].data()), name + " is another");
  }
}

void MethodCall::writeResult(Word place) {
  expect(place != 0, "no place for the result");
  if (result_.isString()) {
    machine_.write(place, bytesOf(machine_.handle));
  } else if (result_.isArray()) {
    // Nothing is delivered: the places stay as the bridge left them.
  } else if (result_.kind == '@') {
    ++machine_.argument().references;
    machine_.write(place, bytesOf(machine_.argument().pointer));
  } else {
    machine_.write(place, result_.kind == 'B' ? Bytes{0x80} : pattern(result_, 9));
  }
}

void MethodCall::checkRequests() {
  const bool missing = outcome_ == Outcome::kInterfaceMissing;
  expect(calls_ == (missing || !isMember() ? 0 : 1),
         "the interface is called " + std::to_string(calls_) + " times");
  if (method_.isClassMethod) {
    const auto type = identifiers_.classes.find(method_.className);
    expect(type != identifiers_.classes.end() && activated_ == std::vector{type->second},
           "another class is activated");
  }
  if (!isActivation()) {
    const auto interface = identifiers_.interfaces.find(method_.interface);
    expect(interface != identifiers_.interfaces.end() && asked_ == std::vector{interface->second},
           "another interface is asked for");
  }
  std::vector<Iid> wanted;
  for (const EncodedType &type : types_)
    if (type.kind == '@' && !type.isString() && !type.isArray() && !missing)
      wanted.push_back(identifiers_.bridges.at(type.bridgeName()));
  expect(argumentsAsked_ == wanted, "arguments are asked for other interfaces");
}

void MethodCall::checkError() {
  const Word error =
      wordOf(machine_.read(machine_.room + TestMachine::kRoomSize, sizeOf(plain('^'))));
  const std::uint32_t status = outcome_ == Outcome::kSuccess   ? 0
                               : outcome_ == Outcome::kFailing ? kFailure
                               : method_.isClassMethod         ? kClassNotRegistered
                                                               : kNoInterface;
  // A swallowed failure leaves the variable alone; an accessor reports its own.
  if (outcome_ == Outcome::kInterfaceMissing && isMember())
    expect(error == kStale, "the error variable of a swallowed failure changes");
  else if (status == 0)
    expect(error == 0, "the error variable of a success is not cleared");
  else
    expect(error != 0 && error != kStale &&
               static_cast<std::uint32_t>(machine_.send(error, "code")) == status,
           "the error is another");
}

void MethodCall::checkResult(const Bytes &result) {
  const bool isEmpty = outcome_ != Outcome::kSuccess;
  const Word word = wordOf(result);
  if (!isMember()) {
    expect(word == (isEmpty ? 0 : machine_.object().pointer), "another pointer is handed out");
    machine_.object().references -= isEmpty ? 0 : 1;
  } else if (result_.kind == '@' && isEmpty) {
    expect(word == 0, "a failed call has a result");
  } else if (result_.isString()) {
    expect(word != 0 && machine_.stringText(word) == TestMachine::kText,
           "the result is another string");
  } else if (result_.isArray()) {
    expect(word != 0 && machine_.send(word, "count") == 0, "the result is another array");
  } else if (result_.kind == '@') {
    // An object begins with its class.
    expect(word != 0 &&
               wordOf(machine_.read(word, sizeOf(result_))) ==
                   machine_.type(result_.bridgeName()) &&
               machine_.send(word, "inner") == machine_.argument().pointer,
           "the result is no " + result_.name);
  } else if (result_.kind != 'v') {
    const Bytes wanted = isEmpty               ? Bytes(sizeOf(result_))
                         : result_.kind == 'B' ? Bytes{1}
                                               : pattern(result_, 9);
    expect(areEqual(result_, result.data(), wanted.data()), "the result is another");
  }
}

std::size_t sweep(TestMachine &machine, const CatalogueTable &table, const Identifiers &identifiers,
                  const char *title) {
  std::size_t methods = 0;
  std::size_t outcomes = 0;
  std::size_t wrong = 0;
  for (const auto &[className, all] : table) {
    // The hand-written classes are in no line of the identifiers; they have tests of their own.
    if (!identifiers.classes.contains(className) && !identifiers.bridges.contains(className))
      continue;
    methods += all.size();
    for (const catalogue::Method &method : all) {
      for (const Outcome outcome :
           {Outcome::kSuccess, Outcome::kFailing, Outcome::kInterfaceMissing}) {
        if (outcome == Outcome::kFailing && !method.slot)
          continue;
        ++outcomes;
        static const char *const kNames[] = {"success", "failing", "interface missing"};
        MethodCall call(machine, identifiers, method, outcome);
        for (const std::string &problem : call.run())
          if (++wrong <= kPrinted)
            std::cout << method.name() << " (" << kNames[static_cast<int>(outcome)]
                      << "): " << problem << '\n';
      }
    }
  }
  std::cout << title << ": " << methods << " methods, " << outcomes << " outcomes, " << wrong
            << " wrong\n";
  return wrong == 0 ? methods : 0;
}

} // namespace wrt::test
