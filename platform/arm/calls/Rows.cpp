#include "Rows.h"

#include <fmt/core.h>

namespace wrt::emulator {

namespace {

constexpr std::u16string_view kText = u"seventeen characters or so";
constexpr std::uint32_t kStrings = 17;
constexpr std::uint32_t kFailure = 0x80070057; // E_INVALIDARG

std::string quoted(const std::u16string &text) {
  return '"' + std::string(text.begin(), text.end()) + '"';
}

} // namespace

Rows::Rows(Process &process) : process_(process) {
  text_ = objc_.send(objc_.string(std::u16string(kText)), "retain");
  textHandle_ = objc_.handle(std::u16string(kText));
  test_ = bridge("WRTTestInterfaceBridge", object_);
  const Module &product = *process_.findModule("WRTObjcBridge_zorvex.dll");
  machine_.countInstructions(product.base, product.image.size());
  addNumbers();
  addStringsAndObjects();
  addArrays();
  addOthers();
}

Address Rows::bridge(const std::string &type, const HostObject &object) {
  return objc_.send(objc_.send(objc_.type(type), "bridge:", object.pointer()), "retain");
}

void Rows::giveOut(Address place) {
  ++child_.references;
  machine_.writeWord(place, child_.pointer());
}

void Rows::add(const std::string &name, int slot, Address receiver, const std::string &selector,
               const std::function<std::string(const HostCall &)> &body, std::uint32_t first,
               std::uint32_t second, std::uint32_t status) {
  rows_.push_back({name, [=, this] {
                     object_.called = [=, this](int called, const HostCall &call) {
                       if (called != slot)
                         throw Fault(fmt::format("{}: slot {}, not {}", name, called, slot));
                       crossed_.push_back(fmt::format("slot {}{}", slot, body(call)));
                       return status;
                     };
                     objc_.send(receiver, selector, first, second);
                   }});
}

void Rows::addNumbers() {
  add("void call", 6, test_, "voidFunctionWithError:", [](const HostCall &) { return ""; });
  add("Int32 get", 30, test_, "returnPrimitiveWithError:", [](const HostCall &call) {
    call.machine().writeWord(call[1], 5);
    return " -> 5";
  });
  add(
      "Int32 set", 7, test_,
      "inPrimitiveWithX:error:", [](const HostCall &call) { return fmt::format(": {}", call[1]); },
      5);
}

void Rows::addStringsAndObjects() {
  add("String get", 39, test_, "returnStringWithError:", [this](const HostCall &call) {
    machine_.writeWord(call[1], textHandle_);
    return " -> " + quoted(objc_.handleText(textHandle_));
  });
  add(
      "String set", 19, test_, "inStringWithArg:error:",
      [this](const HostCall &call) { return ": " + quoted(objc_.handleText(call[1])); }, text_);
  add("object get", 33, test_, "returnInterfaceWithError:", [this](const HostCall &call) {
    giveOut(call[1]);
    return " -> another object";
  });
  add(
      "object in", 15, test_, "inInterfaceWithArg:error:",
      [this](const HostCall &call) {
        return call[1] == child_.pointer() ? ": another object" : ": nothing that was passed";
      },
      bridge("WRTTestInterfaceBridge", child_));
  // A structure of 8 bytes is returned through memory, whose address goes in front of the receiver.
  const Address place = process_.allocate(8);
  rows_.push_back({"struct get", [=, this] {
                     object_.called = [this](int slot, const HostCall &call) -> std::uint32_t {
                       machine_.writeWord(call[1], 6);
                       machine_.writeWord(call[1] + 4, 7);
                       crossed_.push_back(fmt::format("slot {} -> {{6, 7}}", slot));
                       return 0;
                     };
                     machine_.call(process_.find("objc_msgSend_stret"),
                                   {place, test_, objc_.selector("returnStructWithError:"), 0});
                   }});
}

void Rows::addArrays() {
  const Address strings = objc_.send(objc_.send(objc_.type("NSMutableArray"), "array"), "retain");
  const Address filled = objc_.send(objc_.send(objc_.type("NSMutableArray"), "array"), "retain");
  for (std::uint32_t i = 0; i < kStrings; ++i)
    objc_.send(strings, "addObject:", text_);
  add(
      "17 strings in", 20, test_, "inStringArrayWithArr:error:",
      [this](const HostCall &call) {
        return fmt::format(": {}, the first {}", call[1],
                           quoted(objc_.handleText(machine_.readWord(call[2]))));
      },
      strings);
  // The elements are the caller's: made before, because a call cannot be made within one.
  rows_.push_back(
      {"17 strings out", [=, this] {
         std::vector<Address> handles;
         for (std::uint32_t i = 0; i < kStrings; ++i)
           handles.push_back(objc_.handle(std::u16string(kText)));
         object_.called = [this, handles](int slot, const HostCall &call) -> std::uint32_t {
           machine_.writeWord(call[2], call[1]);
           machine_.write(call[3], handles.data(), 4 * call[1]);
           crossed_.push_back(fmt::format("slot {}: room for {}", slot, call[1]));
           return 0;
         };
         objc_.send(test_, "outStringArrayPreallocatedWithSize:arr:error:", kStrings, filled);
       }});
}

void Rows::addOthers() {
  machine_.define("block", [this](const HostCall &call) -> std::uint32_t {
    crossed_.push_back(fmt::format("the block: {}", call[1]));
    return 0;
  });
  const Address block = objc_.block(machine_.hostFunction("block"));
  // The object keeps the delegate by AddRef, whose count is a status of success, and calls it
  // afterwards.
  rows_.push_back(
      {"delegate invoke", [=, this] {
         Address delegate = 0;
         object_.called = [&](int slot, const HostCall &call) -> std::uint32_t {
           delegate = call[1];
           crossed_.push_back(fmt::format("slot {}: a delegate", slot));
           call.continueIn(machine_.readWord(machine_.readWord(delegate) + 4), {delegate});
           return 0;
         };
         objc_.send(test_, "inDelegateWithArg:error:", block);
         const Address table = machine_.readWord(delegate);
         machine_.call(machine_.readWord(table + 12), {delegate, 5, textHandle_, child_.pointer()});
         machine_.call(machine_.readWord(table + 8), {delegate});
       }});
  const Address error = process_.allocate(4);
  machine_.writeWord(error, 0);
  add(
      "failing call", 6, test_, "voidFunctionWithError:",
      [](const HostCall &) { return fmt::format(" fails with {:#x}", kFailure); }, error, 0,
      kFailure);
  const Address name = process_.allocate(32);
  machine_.write(name, u"TestClass", sizeof u"TestClass");
  rows_.push_back({"create + release", [=, this] {
                     machine_.call(process_.find("testSetFactory"), {name, object_.pointer()});
                     object_.called = [this](int, const HostCall &call) -> std::uint32_t {
                       giveOut(call[1]);
                       crossed_.push_back("an instance is made");
                       return 0;
                     };
                     const Address made = objc_.send(objc_.type("WRTTestClassBridge"), "alloc");
                     objc_.send(objc_.send(made, "init"), "release");
                     machine_.call(process_.find("testSetFactory"), {name, 0});
                   }});
  add(
      "vector GetAt", 6, bridge("WRTIVector__1_WRTHSTRING_Bridge", object_),
      "getAtWithIndex:error:",
      [this](const HostCall &call) {
        machine_.writeWord(call[2], textHandle_);
        return fmt::format(": {} -> {}", call[1], quoted(objc_.handleText(textHandle_)));
      },
      500);
  addFamilies();
}

void Rows::addFamilies() {
  const Address regions = bridge("WRTIIterator__1_WRTRegionOfInterest_P_Bridge", object_);
  add("iterator Current", 6, regions, "getCurrentWithError:", [this](const HostCall &call) {
    giveOut(call[1]);
    return " -> another object";
  });
  add(
      "map lookup", 6, bridge("WRTIMap__2_WRTHSTRING_WRTIVector__1_WRTHSTRING_P_Bridge", object_),
      "lookupWithKey:error:",
      [this](const HostCall &call) {
        giveOut(call[2]);
        return fmt::format(": {} -> another object", quoted(objc_.handleText(call[1])));
      },
      text_);
  const Address operation = bridge("WRTIAsyncOperation__1_WRTUINT32_Bridge", object_);
  add("operation result", 8, operation, "getResultsWithError:", [](const HostCall &call) {
    call.machine().writeWord(call[1], 5);
    return " -> 5";
  });
  add(
      "set a completion", 6, operation,
      "setCompletedWithHandler:error:", [](const HostCall &) { return ": a delegate"; },
      objc_.block(machine_.hostFunction("block")));
  add("boxed Int32 get", 11, bridge("WRTIPropertyValueBridge", object_),
      "getInt32WithError:", [](const HostCall &call) {
        call.machine().writeWord(call[1], 5);
        return " -> 5";
      });
}

std::uint64_t Rows::run(const Row &row) {
  crossed_.clear();
  const std::uint64_t before = machine_.instructions();
  row.call();
  const std::uint64_t taken = machine_.instructions() - before;
  objc_.drain();
  return taken;
}

} // namespace wrt::emulator
