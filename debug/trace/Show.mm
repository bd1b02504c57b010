#include "debug/trace/Show.h"

#include "debug/trace/Values.h"

#import <Foundation/Foundation.h>

#import <objc/runtime.h>

namespace wrt::trace {

void callThrough(Crossing &crossing, ffi_cif *cif, void (*function)(), void *result,
                 Closure::Places &places) {
  crossing.start();
  @try {
    ffi_call(cif, function, result, places.data());
  } @catch (NSException *exception) {
    crossing.raised([[exception name] UTF8String]);
    @throw;
  } @catch (id exception) {
    crossing.raised(class_getName(object_getClass(exception)));
    @throw;
  }
  crossing.stop();
}

bool ArgumentTexts::comesOut(size_t index) const {
  const debug::EncodedType &type = closure_.argument(index);
  return type.kind == '^' || (type.kind == '@' && type.name == "NSMutableArray");
}

void ArgumentTexts::showBefore(const Closure::Places &places) {
  if (!crossing_.isWanted())
    return;
  const Silence silence;
  @autoreleasepool {
    for (size_t i = first_; i < end_; ++i)
      texts_.push_back(valueText(closure_.argument(i), places[i], settings().tables, false));
  }
  tell();
}

void ArgumentTexts::showAfter(const Closure::Places &places, const Ending &ending) {
  if (!crossing_.isWanted() || ending.isFailure())
    return;
  const Silence silence;
  @autoreleasepool {
    for (size_t i = first_; i < end_; ++i) {
      if (comesOut(i))
        texts_[i - first_] = valueText(closure_.argument(i), places[i], settings().tables, true);
    }
  }
  tell();
}

void ArgumentTexts::tell() {
  std::string text;
  for (const std::string &each : texts_)
    text += (text.empty() ? "" : ", ") + each;
  crossing_.setArguments("(" + text + ")");
}

std::string resultText(const Closure &closure, const void *result) {
  if (closure.result().kind == 'v')
    return {};
  const Silence silence;
  @autoreleasepool {
    return valueText(closure.result(), result, settings().tables, false);
  }
}

} // namespace wrt::trace
