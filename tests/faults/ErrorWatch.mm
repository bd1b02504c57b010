#include "debug/Encoding.h"
#include "tests/faults/Fault.h"

#import <WRTObjcBridge/WRTUnknownBridge.h>
#include <WRTStatus.h>

#import <objc/runtime.h>

#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <optional>

namespace wrt::test::faults {

namespace {

/// A method with its place in the watch.
struct Watched {
  std::string name;
  /// Asks for an interface, and tells why there is none; all others are members, which swallow it.
  bool isAccessor = false;
  IMP original = nullptr;
  ffi_cif cif{};
  std::vector<debug::EncodedType> types;
  std::vector<ffi_type *> parameters;
};

/// A call of a watched method, on the stack of its thread.
struct Running {
  const Watched &method;
  Running *outer;
  /// How many accessors it has sent.
  int accessors = 0;
  /// What the error variable must hold afterwards, where a fault decides it; 0 for success.
  std::optional<HRESULT> status;
  /// Whether the variable must be as before, and the result empty.
  bool isSwallowed = false;
};

thread_local Running *innermost = nullptr;

/// What is wrong with the error after `call`, or null.
const char *wrongError(const Running &call, NSError *before, NSError *after) {
  if (call.isSwallowed)
    return after == before ? nullptr : "the failure of the accessor is not swallowed";
  if (call.status)
    return (after == before ? !*call.status && !before : [after code] == *call.status)
               ? nullptr
               : "the fault is told otherwise";
  const bool isOurs =
      [[after domain] isEqual:@"WRT"] && [after code] < 0 && ![[after userInfo] count];
  return !after || after == before || isOurs ? nullptr : "the error is none of the library's";
}

bool isEmpty(const debug::EncodedType &type, const void *result) {
  static constexpr unsigned char kZeros[64] = {};
  return type.kind == 'v' || std::memcmp(result, kZeros, type.ffi()->size) == 0;
}

} // namespace

// Has a name that can be found on the stack.
extern "C" __attribute__((visibility("default"))) void
wrtWatchedCall(ffi_cif *cif, void *result, void **arguments, void *data) {
  auto &method = *static_cast<Watched *>(data);
  struct Frame {
    Running call;
    explicit Frame(const Watched &method) : call{method, innermost, 0, {}, false} {
      innermost = &call;
    }
    Frame(const Frame &) = delete;
    ~Frame() { innermost = call.outer; }
  } frame(method);
  if (method.isAccessor && frame.call.outer)
    ++frame.call.outer->accessors;
  // A caller that wants no error is given a variable all the same.
  NSError *own = [NSError errorWithDomain:@"stale" code:1 userInfo:nil];
  auto &place = *static_cast<NSError ***>(arguments[cif->nargs - 1]);
  NSError **const callers = place;
  if (!callers)
    place = &own;
  NSError **const used = place;
  NSError *const before = *used;
  ffi_call(cif, reinterpret_cast<void (*)()>(method.original), result, arguments);
  const char *wrong = wrongError(frame.call, before, *used);
  const bool mustBeEmpty =
      frame.call.isSwallowed || (method.isAccessor && frame.call.status.has_value());
  if (!wrong && mustBeEmpty && !isEmpty(method.types.front(), result))
    wrong = "a failed call has a result";
  if (wrong)
    tell("error " + method.name + ": " + wrong + ": " +
         ([*used description] ? [[*used description] UTF8String] : "nil"));
}

namespace {

/// Whether the platform calls back between the running accessor and the member around it: then the
/// accessor is of no argument of the member's.
bool isCalledBack() {
  void *addresses[128];
  const int count = backtrace(addresses, std::size(addresses));
  for (int i = 0, calls = 0; i < count && calls < 2; ++i) {
    if (ownerOf(addresses[i]) == Owner::Platform)
      return true;
    Dl_info info;
    calls +=
        dladdr(addresses[i], &info) && info.dli_saddr == reinterpret_cast<void *>(&wrtWatchedCall);
  }
  return false;
}

/// Watches `method` of `type` if it tells errors.
void watch(Class type, Method method, const char *mark) {
  const std::string selector = sel_getName(method_getName(method));
  if (!selector.ends_with("rror:") || selector.starts_with("queryInterface") ||
      ownerOf(reinterpret_cast<void *>(method_getImplementation(method))) != Owner::Library)
    return;
  const bool isAccessor = selector.starts_with("_WRT");
  // The three of `IInspectable` do tell that there is no interface.
  if (!isAccessor && type == objc_getClass("WRTInspectableBridge"))
    return;
  auto *watched = new Watched;
  watched->name = mark + std::string("[") + class_getName(type) + " " + selector + "]";
  watched->isAccessor = isAccessor;
  watched->types = debug::parseEncoding(method_getTypeEncoding(method));
  for (size_t i = 1; i < watched->types.size(); ++i)
    watched->parameters.push_back(watched->types[i].ffi());
  void *code = nullptr;
  auto *closure = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code));
  if (!closure ||
      ffi_prep_cif(&watched->cif, FFI_DEFAULT_ABI,
                   static_cast<unsigned>(watched->parameters.size()), watched->types[0].ffi(),
                   watched->parameters.data()) != FFI_OK ||
      ffi_prep_closure_loc(closure, &watched->cif, wrtWatchedCall, watched, code) != FFI_OK)
    std::abort();
  watched->original = method_setImplementation(method, reinterpret_cast<IMP>(code));
}

/// Uses what Foundation makes when a class is first used, which it cannot on two threads at once.
/// The processes of the outcomes begin where this one stands.
void warmUp() {
  @autoreleasepool {
    NSMutableArray *array = [NSMutableArray arrayWithObjects:[NSNull null], @1, [NSDate date], nil];
    [array addObject:[NSString stringWithFormat:@"%@", array]];
    [array addObject:[NSMutableString stringWithString:@"text"]];
    [array addObject:[NSMutableData dataWithData:[NSData data]]];
    [array addObject:[NSMutableDictionary dictionaryWithObject:@1 forKey:@"key"]];
    [array addObject:[[[NSConditionLock alloc] initWithCondition:NO] autorelease]];
    [array addObject:[[[NSLock alloc] init] autorelease]];
    @try {
      [[[array reverseObjectEnumerator] allObjects] objectAtIndex:99];
    } @catch (NSException *exception) {
      [array addObject:[exception description]];
    }
  }
  void *address = nullptr;
  backtrace(&address, 1);
}

bool isBridge(Class type) {
  for (; type; type = class_getSuperclass(type))
    if (type == objc_getClass("WRTUnknownBridge"))
      return true;
  return false;
}

} // namespace

void watchErrors() {
  warmUp();
  std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
  objc_getClassList(classes.data(), static_cast<int>(classes.size()));
  for (Class type : classes) {
    if (!isBridge(type))
      continue;
    const std::pair<Class, const char *> sides[] = {{type, "-"}, {object_getClass(type), "+"}};
    for (auto [side, mark] : sides) {
      unsigned count = 0;
      Method *methods = class_copyMethodList(side, &count);
      for (unsigned i = 0; i < count; ++i)
        watch(type, methods[i], mark);
      free(methods);
    }
  }
}

bool isWatching() { return innermost != nullptr; }

void noteStrike(const Fault &fault) {
  Running *call = innermost;
  if (!call)
    return;
  const std::string_view function = fault.function;
  const bool isOfAccessors = function == "WRTIUnknownQueryInterface" ||
                             function == "WRTGetActivationFactory" ||
                             function == "WRTHSTRINGCreateReference";
  if (isOfAccessors && call->method.isAccessor) {
    call->status = fault.strike == Strike::Failure ? kStruck : 0;
    Running *member = call->outer;
    // The first accessor is the receiver's; those behind it are of arguments and elements.
    if (member && member->accessors == 1)
      member->isSwallowed = true;
    else if (member && !isCalledBack())
      member->status = fault.strike == Strike::Failure ? kStruck : status::kNoInterface;
  } else if (function == "WRTTaskMemAlloc") {
    call->status = status::kOutOfMemory;
  }
}

} // namespace wrt::test::faults
