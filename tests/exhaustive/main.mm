// Calls every method of the catalogue through the runtime on a recording object, in every outcome,
// and checks what crossed: the slot, the interface that was asked for, the argument words, the
// references, the error variable, the result. Before that, that every class of the surface is in
// the library with its superclass and exactly the methods that are listed.

#include "tests/exhaustive/DeclaredIids.h"
#include "tests/exhaustive/MemberCall.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/WRTUnknownBridge.h>

#import <objc/runtime.h>

#include <cstdio>
#include <cstring>
#include <set>

using namespace wrt::test;
namespace catalogue = wrt::catalogue;

namespace {

constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002); // E_NOINTERFACE

class Run {
public:
  explicit Run(std::map<std::string, GUID> iids) : declared_(std::move(iids)) {}

  void surface(const catalogue::Class &line, const std::vector<catalogue::Method> &methods) {
    Class type = objc_lookUpClass(line.name.c_str());
    if (!type || line.superclass != class_getName(class_getSuperclass(type))) {
      std::printf("exhaustive: no class %s under %s\n", line.name.c_str(), line.superclass.c_str());
      ++wrong_;
      return;
    }
    std::multiset<std::string> listed;
    for (const catalogue::Method &method : methods)
      // Comes with automatic reference counting, which this runtime has not.
      if (method.selector != ".cxx_destruct")
        listed.insert(method.side() + method.selector);
    std::multiset<std::string> present;
    for (const char side : {'-', '+'}) {
      unsigned count = 0;
      Method *list = class_copyMethodList(side == '-' ? type : object_getClass(type), &count);
      for (unsigned i = 0; i < count; ++i)
        present.insert(side + std::string(sel_getName(method_getName(list[i]))));
      free(static_cast<void *>(list));
    }
    if (listed != present) {
      std::printf("exhaustive: %s has %zu methods, %zu are listed, or others\n", line.name.c_str(),
                  present.size(), listed.size());
      ++wrong_;
    }
  }

  void member(const catalogue::Method &method) {
    for (Outcome outcome : {Outcome::kSuccess, Outcome::kFailing, Outcome::kInterfaceMissing}) {
      static const char *const kNames[] = {"success", "failing", "interface missing"};
      MemberCall call(method, object_, argument_);
      call.run(outcome);
      ++outcomes_;
      report(method, kNames[static_cast<int>(outcome)], call.problems());
      checkRequest(method);
    }
    ++members_;
  }

  /// An accessor hands out the interface that it asks for, or the failure.
  void accessor(const catalogue::Method &method) {
    std::vector<std::string> problems;
    Class type = objc_lookUpClass(method.className.c_str());
    SEL selector = sel_getUid(method.selector.c_str());
    Method implementation = method.isClassMethod ? class_getClassMethod(type, selector)
                                                 : class_getInstanceMethod(type, selector);
    if (!implementation) {
      report(method, "accessor", {"no such method"});
      return;
    }
    using Function = void *(*)(id, SEL, NSError **);
    auto *function = reinterpret_cast<Function>(
        reinterpret_cast<void *>(method_getImplementation(implementation)));
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    for (bool missing : {false, true}) {
      object_.queryStatus = 0;
      id receiver = method.isClassMethod ? static_cast<id>(type) : [type bridge:object_.pointer()];
      object_.queries.clear();
      object_.queryStatus = missing ? kNoInterface : 0;
      activationRequest() = {{}, {}, missing ? nullptr : &object_};
      const int before = object_.references;
      NSError *error = nil;
      void *interface = function(receiver, selector, &error);
      if (missing) {
        if (interface || !error)
          problems.push_back("a missing interface is not reported");
      } else {
        if (interface != object_.pointer() || error || object_.references != before + 1)
          problems.push_back("hands out no reference");
        --object_.references;
      }
      checkRequest(method);
      ++outcomes_;
    }
    object_.queryStatus = 0;
    [pool release];
    report(method, "accessor", problems);
    ++accessors_;
  }

  void activation(const catalogue::Method &method) {
    std::vector<std::string> problems;
    activationRequest() = {{}, {}, &object_};
    Class type = objc_lookUpClass(method.className.c_str());
    if ([type activateInstance] != object_.pointer())
      problems.push_back("does not activate");
    --object_.references;
    if (activationRequest().className.empty())
      problems.push_back("has no class name");
    classNames_.insert(activationRequest().className);
    report(method, "activation", problems);
    ++activations_;
    ++outcomes_;
  }

  /// Prints the outcome; whether everything was right.
  bool finish(size_t expected) {
    if (classNames_.size() != activations_) {
      std::printf("exhaustive: %zu classes share an activation name\n",
                  activations_ - classNames_.size());
      ++wrong_;
    }
    const size_t tried = members_ + accessors_ + activations_;
    if (tried != expected)
      std::printf("exhaustive: %zu methods of %zu were tried\n", tried, expected);
    std::printf("exhaustive: %zu members, %zu accessors, %zu activations tried, %zu outcomes, "
                "%zu wrong\n",
                members_, accessors_, activations_, outcomes_, wrong_);
    return wrong_ == 0 && tried == expected;
  }

private:
  /// Which interface the library asked for, if it came to that: the one that is declared for a
  /// plain interface; for an instantiation one and the same, of its own, in every class.
  void checkRequest(const catalogue::Method &method) {
    const GUID *asked = method.isClassMethod      ? &activationRequest().iid
                        : object_.queries.empty() ? nullptr
                                                  : &object_.queries.front();
    if (!asked) {
      report(method, "request", {"no interface was asked for"});
      return;
    }
    const auto [known, isNew] = declared_.emplace(method.interface, *asked);
    if (isNew && (asked->Data3 >> 12 != 5 || asked->Data4[0] >> 6 != 2))
      report(method, "request", {"no name-based identifier"});
    if (!(known->second == *asked))
      report(method, "request", {"another interface was asked for"});
  }

  void report(const catalogue::Method &method, const char *where,
              const std::vector<std::string> &problems) {
    for (const std::string &problem : problems) {
      if (++wrong_ <= 50) {
        std::printf("exhaustive: %s (%s): %s\n", method.name().c_str(), where, problem.c_str());
      }
    }
  }

  std::map<std::string, GUID> declared_;
  std::set<std::u16string> classNames_;
  RecordingObject object_;
  RecordingObject argument_;
  size_t members_ = 0;
  size_t accessors_ = 0;
  size_t activations_ = 0;
  size_t outcomes_ = 0;
  size_t wrong_ = 0;
};

} // namespace

int main(int argc, char **argv) {
  if (argc < 2) {
    std::fprintf(stderr, "Usage: exhaustive_tests DECLARATIONS.IDL...\n");
    return 2;
  }
  // Missing interfaces are logged by the library; this is not what is looked at here.
  setenv("WRT_LOG_LEVEL", "1", 1);
  Run run(readDeclaredIids({argv + 1, argv + argc}));
  size_t listed = 0;
  for (const catalogue::Class &line : surfaceClasses()) {
    const auto found = catalogueTable().find(line.name);
    const bool isEmpty = found == catalogueTable().end();
    run.surface(line, isEmpty ? std::vector<catalogue::Method>() : found->second);
    // What is written by hand has tests of its own.
    if (line.isHandWritten() || isEmpty)
      continue;
    listed += found->second.size();
    for (const catalogue::Method &method : found->second) {
      if (method.slot)
        run.member(method);
      else if (method.selector == "activateInstance")
        run.activation(method);
      else
        run.accessor(method);
    }
  }
  return run.finish(listed) ? 0 : 1;
}
