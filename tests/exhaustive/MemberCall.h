#ifndef WRT_TESTS_MEMBER_CALL_H
#define WRT_TESTS_MEMBER_CALL_H

#include "tests/catalogue/CatalogueTable.h"
#include "tests/exhaustive/Patterns.h"
#include "tests/exhaustive/RecordingObject.h"

#import <Foundation/Foundation.h>

namespace wrt::test {

using debug::parseEncoding;

/// How a call of a member ends.
enum class Outcome { kSuccess, kFailing, kInterfaceMissing };

/// One call of one member through the runtime, on a bridge of a recording object (or on the class,
/// whose factory is one), with an argument made for each of the method's types.
class MemberCall {
public:
  /// `argumentObject` is the object behind every bridge that is passed in.
  MemberCall(const catalogue::Method &method, RecordingObject &object,
             RecordingObject &argumentObject);

  /// Calls the member and collects what is wrong.
  void run(Outcome outcome);

  const std::vector<std::string> &problems() const { return problems_; }

private:
  /// What one argument is for the method and what the slot must get for it.
  struct Argument {
    EncodedType type;
    unsigned char value[32] = {};
    /// How many words the interface function takes for it.
    int words = 1;
  };

  void makeArguments();
  void makeArgument(Argument &argument, int seed);
  std::vector<ffi_type *> slotTypes() const;
  HRESULT receive(void **arguments);
  void checkWord(const Argument &argument, void *place);
  void writeResult(void *place);
  void checkResult(const void *result);
  void expect(bool holds, const std::string &what) {
    if (!holds)
      problems_.push_back(what);
  }

  const catalogue::Method &method_;
  RecordingObject &object_;
  RecordingObject &argumentObject_;
  EncodedType result_;
  std::vector<Argument> arguments_;
  Outcome outcome_ = Outcome::kSuccess;
  int calls_ = 0;
  /// The string that was returned; the bridge leaves its handle to WinRT's side.
  HSTRING returnedString_ = nullptr;
  std::vector<std::string> problems_;
};

/// The class-name constant and the interface for which the library last asked for a factory or an
/// instance, and what it is answered.
struct ActivationRequest {
  std::u16string className;
  GUID iid{};
  /// Answered; null fails the request with `REGDB_E_CLASSNOTREG`.
  RecordingObject *factory = nullptr;
};
ActivationRequest &activationRequest();

} // namespace wrt::test

#endif
