#include "debug/trace/Methods.h"

#include "debug/trace/Blocks.h"
#include "debug/trace/Show.h"

#import <Foundation/Foundation.h>

#import <objc/runtime.h>

#include <WRTStatus.h>
#include <algorithm>
#include <deque>
#include <memory>
#include <stdexcept>

namespace wrt::trace {

namespace {

using debug::EncodedType;

/// Where an error variable still has this, nothing was told.
alignas(16) char untouched[16];

/// A method whose place has been taken.
class Traced {
public:
  Traced(const Method &method, std::vector<EncodedType> types, Class owner, ::Method place)
      : method_(method), closure_(std::move(types), called, this),
        original_(reinterpret_cast<void (*)()>(method_getImplementation(place))) {
    for (size_t i = kFirst; i < closure_.count(); ++i) {
      const EncodedType &type = closure_.argument(i);
      if (type.kind == '?' && !type.name.empty())
        blocks_.emplace_back(i, std::make_unique<BlockArgument>(method, type.name));
    }
    replaceMethod(owner, place, reinterpret_cast<IMP>(closure_.code()));
  }
  Traced(const Traced &) = delete;

private:
  /// Behind receiver and selector.
  static constexpr size_t kFirst = 2;

  static void called(ffi_cif *cif, void *result, void **arguments, void *data) {
    const auto &traced = *static_cast<const Traced *>(data);
    if (Silence::isKept()) {
      ffi_call(cif, traced.original_, result, arguments);
      return;
    }
    Closure::Places places;
    std::copy_n(arguments, cif->nargs, places.begin());
    if (traced.method_.what == Method::What::Accessor && Crossing::isInLibrary())
      traced.ask(cif, result, places);
    else
      traced.cross(cif, result, places);
  }

  /// The library asks for an interface on a member's behalf.
  void ask(ffi_cif *cif, void *result, Closure::Places &places) const {
    NSError **asked = *static_cast<NSError ***>(places[cif->nargs - 1]);
    NSError *error = nil;
    NSError **place = asked ? asked : &error;
    places[cif->nargs - 1] = &place;
    ffi_call(cif, original_, result, places.data());
    const HRESULT status = *place ? static_cast<HRESULT>([*place code]) : status::kNoInterface;
    // The queries that accessors are made of do not know whose they are.
    if (!*static_cast<void **>(result) && method_.member.ends_with(method_.interface))
      Crossing::current()->note(method_.interface, status);
  }

  void cross(ffi_cif *cif, void *result, Closure::Places &places) const {
    id receiver = *static_cast<id *>(places[0]);
    Class type = method_.isClassMethod ? static_cast<Class>(receiver) : object_getClass(receiver);
    Crossing crossing(Crossing::Direction::Out, method_, class_getName(type));
    const bool hasError = method_.hasError();
    ArgumentTexts texts(crossing, closure_, kFirst, cif->nargs - (hasError ? 1 : 0));
    texts.showBefore(places);

    auto *const kUntouched = reinterpret_cast<NSError *>(untouched);
    NSError *error = kUntouched;
    NSError **errorPlace = &error;
    NSError **callers = nullptr;
    if (hasError) {
      callers = *static_cast<NSError ***>(places[cif->nargs - 1]);
      places[cif->nargs - 1] = &errorPlace;
    }
    std::array<Wrapper, 4> wrappers;
    std::array<Wrapper *, 4> wrapping;
    for (size_t i = 0; i < blocks_.size(); ++i) {
      const auto &[index, block] = blocks_[i];
      if (void *wrapped = *static_cast<void **>(places[index])) {
        wrappers.at(i) = block->wrap(wrapped);
        wrapping[i] = &wrappers[i];
        places[index] = &wrapping[i];
      }
    }

    callThrough(crossing, cif, original_, result, places);

    Ending ending;
    if (hasError && error == kUntouched) {
      ending.status = crossing.missingStatus();
      ending.isCalled = false;
    } else if (hasError) {
      if (callers)
        *callers = error;
      ending.status = error ? static_cast<HRESULT>([error code]) : status::kOk;
    } else if (method_.what == Method::What::Member) {
      ending.isEmpty = !*static_cast<void **>(result);
    }
    crossing.end(ending);
    texts.showAfter(places, ending);
    if (crossing.isWanted())
      crossing.setResult(resultText(closure_, result));
  }

  const Method &method_;
  Closure closure_;
  void (*original_)();
  std::vector<std::pair<size_t, std::unique_ptr<BlockArgument>>> blocks_;
};

/// Whether two encodings mean the same: the catalogue's are those of 32-bit targets, and protocols
/// are not told everywhere.
bool areAlike(const EncodedType &left, const EncodedType &right) {
  constexpr auto kind = [](const EncodedType &type) {
    switch (type.kind) {
    case 'l':
      return 'i';
    case 'L':
      return 'I';
    case 'c': // BOOL
    case 'C':
      return 'B';
    default:
      return type.kind;
    }
  };
  return kind(left) == kind(right) && (!left.isStructure() || left.name == right.name) &&
         std::ranges::equal(left.fields, right.fields, areAlike);
}

[[noreturn]] void refuse(const Method &method, const char *what) {
  throw std::runtime_error("catalogue.tsv is of another version than the library: " +
                           method.text(method.className.c_str()) + what);
}

} // namespace

IMP replaceMethod(Class owner, ::Method method, IMP by) {
  // The runtime writes the new code into the class's dispatch table, which all classes share that
  // have received no message yet; asking makes the class one of its own.
  class_getMethodImplementation(owner, method_getName(method));
  return method_setImplementation(method, by);
}

void traceMethods(const Settings &settings) {
  static auto &all = *new std::deque<Traced>;
  for (const Method &method : settings.tables.methods) {
    const bool isRoot =
        method.className == "WRTUnknownBridge" || method.className == "WRTInspectableBridge";
    if (!isRoot && !settings.options.wantsClass(method.className.c_str()))
      continue;
    Class type = objc_lookUpClass(method.className.c_str());
    SEL selector = sel_registerName(method.selector.c_str());
    // One that is inherited is another one.
    const auto find = [&](Class of) {
      return method.isClassMethod ? class_getClassMethod(of, selector)
                                  : class_getInstanceMethod(of, selector);
    };
    ::Method place = type ? find(type) : nullptr;
    if (!place || place == find(class_getSuperclass(type)))
      refuse(method, " is not there");
    if (!std::ranges::equal(debug::parseEncoding(method.encoding),
                            debug::parseEncoding(method_getTypeEncoding(place)), areAlike))
      refuse(method, " has other types");
    all.emplace_back(method, debug::parseEncoding(method.extendedEncoding),
                     method.isClassMethod ? object_getClass(static_cast<id>(type)) : type, place);
  }
}

} // namespace wrt::trace
