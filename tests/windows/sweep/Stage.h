#ifndef WRT_TESTS_SWEEP_STAGE_H
#define WRT_TESTS_SWEEP_STAGE_H

#include "HostObject.h"
#include "Identifiers.h"
#include "Layout.h"
#include "ObjectiveC.h"
#include "Unwinder.h"

#include "catalogue/reader/CatalogueTables.h"

#include <array>
#include <unordered_map>

namespace wrt::sweep {

using emulator::Address;
using emulator::HostCall;

/// How a call of a method ends.
enum class Outcome : std::uint8_t { kSuccess, kFailing, kInterfaceMissing };

/// The process in which methods are called: the product among the doubles, the objects behind all
/// bridges and the values that are passed.
class Stage {
public:
  /// Loads and attaches the DLLs; the product is the last one.
  Stage(const std::vector<std::string> &files, Identifiers identifiers);

  /// Calls a method in one way and says what is wrong with what it did.
  std::vector<std::string> call(const catalogue::Method &method, Outcome outcome);

private:
  /// One call while it is under way.
  struct Call {
    const catalogue::Method &method;
    Outcome outcome;
    EncodedType result;
    std::vector<EncodedType> types;
    /// Of numbers, structures and pointers: what is passed.
    std::vector<Bytes> values;
    std::vector<emulator::Iid> asked;
    std::vector<emulator::Iid> argumentsAsked;
    /// The class for which a factory or an instance was asked, and the factory's interface.
    std::vector<std::u16string> activated;
    int calls = 0;
    std::vector<std::string> problems;

    void expect(bool holds, const std::string &what) {
      if (!holds)
        problems.push_back(what);
    }
    bool isMember() const { return method.slot.has_value(); }
    bool isActivation() const { return method.selector == "activateInstance"; }
  };
  /// What the doubles count: objects, strings, task memory, delegates.
  using Counts = std::array<std::uint32_t, 4>;

  void defineActivation();
  void makeArguments(Call &call);
  Registers enter(Call &call, Address receiver);
  /// Looks at how the function of the host that runs can be left: to the method's caller.
  void checkUnwinding();
  std::uint32_t receive(int slot, const HostCall &host);
  void checkArgument(Call &call, std::size_t index, Placement &placement, const Registers &at);
  void writeResult(const EncodedType &type, Address place);
  void checkRequests(Call &call);
  void checkError(Call &call);
  void checkResult(Call &call, const Registers &left);
  Counts counts();

  emulator::Process process_;
  emulator::Machine &machine_ = process_.machine();
  emulator::ObjectiveC objc_{process_};
  Identifiers identifiers_;
  emulator::Unwinder unwinder_{process_};
  emulator::HostObject object_{process_};
  emulator::HostObject argument_{process_};
  std::unordered_map<std::string, Address> implementations_;
  std::vector<Address> counters_;
  Address text_ = 0;
  Address textHandle_ = 0;
  Address array_ = 0;
  Address block_ = 0;
  /// Room for a result, for the error, and for what pointers point at.
  Address room_ = 0;
  Call *current_ = nullptr;
};

} // namespace wrt::sweep

#endif
