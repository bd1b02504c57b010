#ifndef WRT_TESTS_METHOD_CALL_H
#define WRT_TESTS_METHOD_CALL_H

#include "tests/exhaustive/Identifiers.h"
#include "tests/exhaustive/TestMachine.h"

namespace wrt::test {

/// How a call of a method ends.
enum class Outcome : std::uint8_t { kSuccess, kFailing, kInterfaceMissing };

/// One call of one method, on a bridge of the machine's object or on the class, with an argument
/// made for each of its types.
class MethodCall {
public:
  MethodCall(TestMachine &machine, const Identifiers &identifiers, const catalogue::Method &method,
             Outcome outcome);

  /// Calls the method and says what is wrong with what it did.
  const std::vector<std::string> &run();

  // What the machine tells.
  /// One of its two objects is asked for an interface, or for a factory with it.
  void asked(const Iid &iid, bool isArgument = false);
  /// A factory or an instance of a class is asked for. What is answered: the object (+1) or 0.
  Word activated(const std::u16string &className);
  /// The object's function is called with these values; the status to return.
  std::uint32_t called(int slot, const std::vector<Bytes> &values);
  void expect(bool holds, const std::string &what);

  /// What the object's function takes behind the interface pointer.
  const std::vector<EncodedType> &slotTypes() const { return slotTypes_; }

private:
  bool isMember() const { return method_.slot.has_value(); }
  bool isActivation() const { return method_.selector == "activateInstance"; }
  Bytes makeArgument(const EncodedType &type, int seed);
  void checkArgument(std::size_t index, const Bytes *values);
  void writeResult(Word place);
  void checkRequests();
  void checkError();
  void checkResult(const Bytes &result);

  TestMachine &machine_;
  const Identifiers &identifiers_;
  const catalogue::Method &method_;
  const Outcome outcome_;
  EncodedType result_;
  std::vector<EncodedType> types_;
  std::vector<EncodedType> slotTypes_;
  std::vector<Bytes> passed_;
  std::vector<Iid> asked_;
  std::vector<Iid> argumentsAsked_;
  std::vector<std::u16string> activated_;
  int calls_ = 0;
  std::vector<std::string> problems_;
};

/// Calls every method of the classes that `identifiers` has, in every outcome: a member's slot
/// succeeds, fails, is not there; accessors and activations do not fail otherwise. Prints what is
/// wrong and, behind `title`, the numbers. How many methods there were, 0 if something was wrong.
std::size_t sweep(TestMachine &machine, const CatalogueTable &table, const Identifiers &identifiers,
                  const char *title);

} // namespace wrt::test

#endif
