#include "tests/exhaustive/MemberCall.h"

#include "platform/linux/implement/StringHolder.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/WRTUnknownBridge.h>

#import <objc/runtime.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace wrt::test {

namespace {

constexpr HRESULT kFailure = static_cast<HRESULT>(0x80070057);            // E_INVALIDARG
constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002);        // E_NOINTERFACE
constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(0x80040154); // REGDB_E_CLASSNOTREG

NSString *const kText = @"crossing";

Class bridgeClass(const EncodedType &type) { return objc_lookUpClass(type.bridgeName().c_str()); }

template <class T>
T read(const void *place) {
  T value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

template <class T>
void write(void *place, T value) {
  std::memcpy(place, &value, sizeof value);
}

/// Room behind every pointer that is passed.
alignas(16) unsigned char room[8][64];

} // namespace

MemberCall::MemberCall(const catalogue::Method &method, RecordingObject &object,
                       RecordingObject &argumentObject)
    : method_(method), object_(object), argumentObject_(argumentObject) {
  std::vector<EncodedType> types = parseEncoding(method.extendedEncoding);
  result_ = types.front();
  for (size_t i = 3; i + 1 < types.size(); ++i)
    arguments_.push_back({types[i]});
}

void MemberCall::makeArguments() {
  int seed = 0;
  for (Argument &argument : arguments_)
    makeArgument(argument, ++seed);
}

void MemberCall::makeArgument(Argument &argument, int seed) {
  const EncodedType &type = argument.type;
  if (type.isString()) {
    write(argument.value, kText);
  } else if (type.isArray()) {
    write<id>(argument.value, [NSMutableArray array]);
    argument.words = 2; // count and block, or the places for them
  } else if (type.kind == '@') {
    Class bridge = bridgeClass(type);
    expect(bridge != Nil, "no class " + type.name);
    write<id>(argument.value, [bridge bridge:argumentObject_.pointer()]);
  } else if (type.kind == '?') {
    HRESULT (^block)() = ^HRESULT {
      return 0;
    };
    write<id>(argument.value, block);
  } else if (type.kind == '^') {
    write<void *>(argument.value, room[seed]);
  } else {
    std::ranges::copy(pattern(type, seed), argument.value);
    // Beside an array it may be a capacity, and is one that can be had.
    const bool isBesideArray =
        result_.isArray() ||
        std::ranges::any_of(arguments_, &EncodedType::isArray, &Argument::type);
    if (isBesideArray && (type.kind == 'i' || type.kind == 'I'))
      argument.value[3] = 0;
  }
}

std::vector<ffi_type *> MemberCall::slotTypes() const {
  std::vector<ffi_type *> types;
  for (const Argument &argument : arguments_) {
    if (argument.type.isArray()) {
      // An in-array begins with its count; everything else is places.
      const bool isIn = argument.type.name == "NSArray";
      types.push_back(isIn ? &ffi_type_uint32 : &ffi_type_pointer);
      types.push_back(&ffi_type_pointer);
    } else {
      types.push_back(argument.type.ffi());
    }
  }
  if (result_.kind != 'v')
    types.push_back(&ffi_type_pointer);
  if (result_.isArray())
    types.push_back(&ffi_type_pointer);
  return types;
}

HRESULT MemberCall::receive(void **arguments) {
  ++calls_;
  size_t word = 0;
  for (const Argument &argument : arguments_) {
    checkWord(argument, arguments[word]);
    if (argument.words == 2)
      expect(read<void *>(arguments[word + 1]) != nullptr, "an array without a block");
    word += static_cast<size_t>(argument.words);
  }
  if (outcome_ == Outcome::kFailing)
    return kFailure;
  if (result_.kind != 'v')
    writeResult(read<void *>(arguments[word]));
  return 0;
}

void MemberCall::checkWord(const Argument &argument, void *place) {
  const EncodedType &type = argument.type;
  if (type.isString()) {
    expect(viewOf(read<HSTRING>(place)) == u"crossing", "a string argument is another");
  } else if (type.isArray()) {
    if (type.name == "NSArray")
      expect(read<uint32_t>(place) == 0, "an empty array has elements");
    else
      expect(read<void *>(place) != nullptr, "no place for a count");
  } else if (type.kind == '@') {
    expect(read<void *>(place) == argumentObject_.pointer(), "an object argument is another");
  } else if (type.kind == '?') {
    void *delegate = read<void *>(place);
    void *unknown = nullptr;
    expect(delegate && WRTIUnknownQueryInterface(delegate, &abi::IUnknown::kIid, &unknown) >= 0,
           "a block argument is no delegate");
    if (unknown)
      WRTIUnknownRelease(unknown);
  } else if (type.kind == '^') {
    // Out-values of the caller's are passed on; strings and objects get a place of the bridge's
    // own.
    expect(read<void *>(place) != nullptr, "no place for an out-value");
  } else {
    expect(areEqual(type, static_cast<unsigned char *>(place), argument.value),
           "a number argument is another");
  }
}

void MemberCall::writeResult(void *place) {
  if (result_.isString()) {
    makeString(u"crossing", &returnedString_);
    write(place, returnedString_);
  } else if (result_.isArray()) {
    // Nothing is delivered: the places stay as the bridge left them.
  } else if (result_.kind == '@') {
    ++argumentObject_.references;
    write<void *>(place, argumentObject_.pointer());
  } else if (result_.kind == 'B') {
    write<unsigned char>(place, 0x80);
  } else {
    std::ranges::copy(pattern(result_, 9), static_cast<unsigned char *>(place));
  }
}

void MemberCall::checkResult(const void *result) {
  const bool isEmpty = outcome_ != Outcome::kSuccess;
  if (result_.kind == '@' || result_.kind == '?') {
    id object = read<id>(result);
    if (isEmpty)
      expect(object == nil, "a failed call has a result");
    else if (result_.isString())
      expect([object isEqual:kText], "a string result is another");
    else if (result_.isArray())
      expect(object && [object count] == 0, "an array result is another");
    else
      expect([object class] == bridgeClass(result_) && [object inner] == argumentObject_.pointer(),
             "an object result is no " + result_.name);
    return;
  }
  unsigned char wanted[64] = {};
  if (!isEmpty && result_.kind == 'B')
    wanted[0] = 1;
  else if (!isEmpty)
    std::ranges::copy(pattern(result_, 9), wanted);
  expect(areEqual(result_, static_cast<const unsigned char *>(result), wanted),
         "a number result is another");
}

void MemberCall::run(Outcome outcome) {
  outcome_ = outcome;
  calls_ = 0;
  object_.queryStatus = argumentObject_.queryStatus = 0;
  object_.queries.clear();
  object_.strayCalls = 0;
  Class type = objc_lookUpClass(method_.className.c_str());
  if (type == Nil) {
    expect(false, "no such class");
    return;
  }
  SEL selector = sel_getUid(method_.selector.c_str());
  Method method = method_.isClassMethod ? class_getClassMethod(type, selector)
                                        : class_getInstanceMethod(type, selector);
  if (!method) {
    expect(false, "no such method");
    return;
  }

  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  const int before = object_.references;
  const int argumentBefore = argumentObject_.references;
  id receiver = method_.isClassMethod ? static_cast<id>(type) : [type bridge:object_.pointer()];
  makeArguments();
  const bool missing = outcome == Outcome::kInterfaceMissing;
  object_.queryStatus = missing ? kNoInterface : 0;
  activationRequest() = {{}, {}, missing ? nullptr : &object_};
  object_.expect(*method_.slot, slotTypes(),
                 [this](void **arguments) { return receive(arguments); });

  NSError *const stale = [NSError errorWithDomain:@"stale" code:1 userInfo:nil];
  NSError *error = stale;
  NSError **errorPlace = &error;
  std::vector<ffi_type *> types = {&ffi_type_pointer, &ffi_type_pointer};
  std::vector<void *> places = {&receiver, &selector};
  for (Argument &argument : arguments_) {
    types.push_back(argument.type.ffi());
    places.push_back(argument.value);
  }
  types.push_back(&ffi_type_pointer);
  places.push_back(&errorPlace);
  ffi_cif cif;
  expect(ffi_prep_cif(&cif, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), result_.ffi(),
                      types.data()) == FFI_OK,
         "libffi cannot make this call");
  alignas(16) unsigned char result[64] = {};
  ffi_call(&cif, reinterpret_cast<void (*)()>(method_getImplementation(method)), result,
           places.data());

  expect(calls_ == (missing ? 0 : 1) && object_.strayCalls == 0,
         missing ? "the interface is called although it is missing" : "another slot is called");
  if (missing)
    expect(error == stale, "the error variable of a swallowed failure changes");
  else
    expect(outcome == Outcome::kSuccess ? error == nil : error != stale && [error code] == kFailure,
           "the error variable is wrong");
  if (result_.kind != 'v')
    checkResult(result);
  object_.forget();
  object_.queryStatus = 0;
  [pool release];
  WRTHSTRINGRelease(std::exchange(returnedString_, nullptr));
  expect(object_.references == before, "a reference to the object is lost or kept");
  expect(argumentObject_.references == argumentBefore,
         "a reference to an argument or result is lost or kept");
}

ActivationRequest &activationRequest() {
  static ActivationRequest request;
  return request;
}

} // namespace wrt::test

using namespace wrt::test;

// The test program's own activation stands in front of the platform's.
extern "C" __attribute__((visibility("default"))) HRESULT WRTGetActivationFactory(HSTRING className,
                                                                                  const GUID *iid,
                                                                                  void **factory) {
  ActivationRequest &request = activationRequest();
  request.className = wrt::viewOf(className);
  request.iid = *iid;
  *factory = nullptr;
  if (!request.factory)
    return kClassNotRegistered;
  ++request.factory->references;
  *factory = request.factory->pointer();
  return 0;
}

extern "C" __attribute__((visibility("default"))) void *
WRTActivateInstance(const char16_t *className) {
  ActivationRequest &request = activationRequest();
  request.className = className;
  if (!request.factory)
    return nullptr;
  ++request.factory->references;
  return request.factory->pointer();
}
