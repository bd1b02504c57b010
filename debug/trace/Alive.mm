#include "debug/trace/Alive.h"

#include "debug/trace/Crossing.h"
#include "debug/trace/Methods.h"

#import <WRTObjcBridge/WRTUnknownBridge.h>

#import <objc/runtime.h>

#include <atomic>
#include <map>
#include <mutex>
#include <unistd.h>
#include <unordered_map>

namespace wrt::trace {

namespace {

/// What is alive, and under which text it is counted.
struct Lives {
  std::mutex mutex;
  std::unordered_map<const void *, std::string> all;
};

// Never destroyed: threads may outlast main.
Lives &lives() {
  static auto &instance = *new Lives;
  return instance;
}

std::atomic<bool> isOn{false};
id (*originalInit)(id, SEL, void *);
void (*originalDealloc)(id, SEL);

id tracedInit(id self, SEL selector, void *inner) {
  id bridge = originalInit(self, selector, inner);
  if (bridge)
    noteMade(bridge, class_getName(object_getClass(bridge)));
  return bridge;
}

void tracedDealloc(id self, SEL selector) {
  noteGone(self);
  originalDealloc(self, selector);
}

template <class Function>
void replace(const char *selector, Function by, Function &original) {
  Class root = objc_lookUpClass("WRTUnknownBridge");
  ::Method method = class_getInstanceMethod(root, sel_registerName(selector));
  original = reinterpret_cast<Function>(reinterpret_cast<void *>(method_getImplementation(method)));
  replaceMethod(root, method, reinterpret_cast<IMP>(reinterpret_cast<void *>(by)));
}

} // namespace

void traceLives() {
  replace("initWithInner:", tracedInit, originalInit);
  replace("dealloc", tracedDealloc, originalDealloc);
  isOn = true;
}

void noteMade(const void *thing, const char *what) {
  if (!isOn)
    return;
  const Crossing *crossing = Crossing::current();
  std::string text = what;
  text += crossing ? " of " + crossing->method().text(crossing->receiver())
                   : " of the application's own making";
  Lives &known = lives();
  const std::lock_guard lock(known.mutex);
  known.all.insert_or_assign(thing, std::move(text));
}

void noteGone(const void *thing) {
  if (!isOn)
    return;
  Lives &known = lives();
  const std::lock_guard lock(known.mutex);
  known.all.erase(thing);
}

} // namespace wrt::trace

using namespace wrt::trace;

void WRTTraceWriteAlive() {
  std::map<std::string, size_t> counts;
  if (isOn) {
    Lives &known = lives();
    const std::lock_guard lock(known.mutex);
    for (const auto &[thing, text] : known.all)
      ++counts[text];
  }
  std::string lines;
  for (const auto &[text, count] : counts)
    lines += "alive: " + std::to_string(count) + " " + text + "\n";
  if (!isOn)
    lines = "alive: not noted, WRT_TRACE_ALIVE is not 1\n";
  else if (counts.empty())
    lines = "alive: nothing\n";
  writeAll(settings().output, lines);
}
