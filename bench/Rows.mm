#include "bench/Row.h"

#include "bench/FamilyRows.h"
#include "bench/Messages.h"
#include "bench/QuietComponent.h"
#include "bench/WrittenOut.h"
#include "platform/linux/string/HString.h"

#include <ClassReceiver.h>
#include <WRTBridge.h>
#include <WRTBridgeUtil.h>
#include <platform/test.platform.h>

namespace wrt::bench {

namespace {

using implement::ComPtr;

/// What all rows work on; lives to the end of the process.
struct Fixture {
  ComPtr<QuietObject> object = implement::make<QuietObject>();
  ComPtr<QuietObject> failing = implement::make<QuietObject>();
  void *identity = object->identity();
  WRTTestInterfaceBridge *bridge = retained([WRTTestInterfaceBridge bridge:identity]);
  WrittenOut *written = retained([WrittenOut bridge:identity]);
  WRTTestInterfaceBridge *failingBridge =
      retained([WRTTestInterfaceBridge bridge:failing->identity()]);
  WrittenOut *failingWritten = retained([WrittenOut bridge:failing->identity()]);
  NSString *string = retained(@"seventeen characters or so");
  NSMutableArray *strings = [[NSMutableArray alloc] init];
  NSMutableArray *filled = [[NSMutableArray alloc] init];

  Fixture() {
    failing->failure = static_cast<HRESULT>(0x80070057);
    makeString(u"seventeen characters or so", &object->string);
    for (int i = 0; i < 17; ++i)
      [strings addObject:string];
  }

  template <class T>
  static T retained(T thing) {
    return [thing retain];
  }
};

Fixture &fixture() {
  static Fixture instance;
  return instance;
}

/// Asks for the test interface as a member does, without messages.
class Held {
public:
  explicit Held(void *object = fixture().identity) {
    WRTIUnknownQueryInterface(object, &abi::TestInterface::kIid,
                              reinterpret_cast<void **>(&interface_));
  }
  ~Held() { WRTIUnknownRelease(interface_); }
  abi::TestInterface *operator->() const { return interface_; }

private:
  abi::TestInterface *interface_ = nullptr;
};

/// The rows of the test interfaces.
std::vector<Row> testRows() {
  return {
      {"void call", kCall, [] { [fixture().bridge voidFunctionWithError:nullptr]; },
       [] { [fixture().written voidFunctionWithError:nullptr]; }, [] { Held()->VoidFunction(); }},
      {"Int32 get", kCall, [] { [fixture().bridge returnPrimitiveWithError:nullptr]; },
       [] { [fixture().written returnPrimitiveWithError:nullptr]; },
       [] {
         int32_t value = 0;
         Held()->ReturnPrimitive(&value);
       }},
      {"Int32 set", kCall, [] { [fixture().bridge inPrimitiveWithX:5 error:nullptr]; },
       [] { [fixture().written inPrimitiveWithX:5 error:nullptr]; },
       [] { Held()->InPrimitive(5); }},
      {"String get", kCall, [] { [fixture().bridge returnStringWithError:nullptr]; },
       [] { [fixture().written returnStringWithError:nullptr]; },
       [] {
         HSTRING handle = nullptr;
         Held()->ReturnString(&handle);
         [WRTHSTRINGToCFString(handle) release];
       }},
      {"String set", kCall + kArgument + kCleanupList + kCleanup,
       [] { [fixture().bridge inStringWithArg:fixture().string error:nullptr]; },
       [] { [fixture().written inStringWithArg:fixture().string error:nullptr]; },
       [] {
         HSTRING handle = WRTHSTRINGFromCFString(fixture().string);
         Held()->InString(handle);
         WRTHSTRINGRelease(handle);
       }},
      {"object get", kCall + kBridge, [] { [fixture().bridge returnInterfaceWithError:nullptr]; },
       [] { [fixture().written returnInterfaceWithError:nullptr]; },
       [] {
         abi::TestInterface *object = nullptr;
         Held()->ReturnInterface(&object);
         WRTIUnknownRelease(object);
       }},
      {"object in", kCall + kArgument + kCleanupList + kQuery + kCleanup,
       [] { [fixture().bridge inInterfaceWithArg:fixture().bridge error:nullptr]; },
       [] { [fixture().written inInterfaceWithArg:fixture().written error:nullptr]; },
       [] {
         const Held argument;
         Held()->InInterface(argument.operator->());
       }},
      {"struct get", kCall, [] { [fixture().bridge returnStructWithError:nullptr]; },
       [] { [fixture().written returnStructWithError:nullptr]; },
       [] {
         WRTTestStruct value{};
         Held()->ReturnStruct(&value);
       }},
      {"17 strings in", kCall + kArgument + kCleanupList + kBatch + 18 * kCleanup + 2 + 18 + 17,
       [] { [fixture().bridge inStringArrayWithArr:fixture().strings error:nullptr]; },
       [] { [fixture().written inStringArrayWithArr:fixture().strings error:nullptr]; },
       [] {
         auto *block = static_cast<HSTRING *>(WRTTaskMemAlloc(17 * sizeof(HSTRING)));
         for (int i = 0; i < 17; ++i)
           block[i] = WRTHSTRINGFromCFString(fixture().string);
         Held()->InStringArray(17, block);
         for (int i = 0; i < 17; ++i)
           WRTHSTRINGRelease(block[i]);
         WRTTaskMemFree(block);
       }},
      {"17 strings out", kCall + kArgument + kCleanupList + kCleanup + 1 + 17,
       [] {
         [fixture().bridge outStringArrayPreallocatedWithSize:17
                                                          arr:fixture().filled
                                                        error:nullptr];
       },
       [] {
         [fixture().written outStringArrayPreallocatedWithSize:17
                                                           arr:fixture().filled
                                                         error:nullptr];
       },
       [] {
         auto *block = static_cast<HSTRING *>(WRTTaskMemAlloc(17 * sizeof(HSTRING)));
         int32_t count = 0;
         Held()->OutStringArrayPreallocated(17, &count, block);
         for (int i = 0; i < count; ++i) {
           [WRTHSTRINGToCFString(block[i]) release];
           WRTHSTRINGRelease(block[i]);
         }
         WRTTaskMemFree(block);
       }},
      {"delegate invoke",
       kCall + kArgument + kCleanupList + kCleanup + kDelegate + kStringArgument +
           2 * kBridgeArgument,
       [] {
         [fixture().bridge
             inDelegateWithArg:^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
               return 0;
             }
                         error:nullptr];
       },
       [] {
         [fixture().written inDelegateWithArg:static_cast<id>(^HRESULT(int, NSString *, id, id) {
                              return 0;
                            })
                                        error:nullptr];
       },
       [] {
         struct Handler final : abi::TestDelegate {
           HRESULT WRT_ABI QueryInterface(const GUID *, void **) override { return -1; }
           uint32_t WRT_ABI AddRef() override { return 2; }
           uint32_t WRT_ABI Release() override { return 1; }
           HRESULT WRT_ABI Invoke(int32_t, HSTRING, abi::TestInterface *,
                                  abi::TestInterface *) override {
             return 0;
           }
         } handler;
         Held()->InDelegate(&handler);
       }},
      {"failing call", kCall + 1,
       [] {
         NSError *error = nil;
         [fixture().failingBridge voidFunctionWithError:&error];
       },
       [] {
         NSError *error = nil;
         [fixture().failingWritten voidFunctionWithError:&error];
       },
       [] { Held(fixture().failing->identity())->VoidFunction(); }},
      {"create + release", kCreation,
       [] { [[[WRT_CLASS(WRTTestClassBridge) alloc] init] release]; },
       [] { [[[WRT_CLASS(WrittenOut) alloc] init] release]; },
       [] { WRTIUnknownRelease(WRTActivateInstance(WRTTestClassClassString)); }},
  };
}

} // namespace

const std::vector<Row> &rows() {
  static const std::vector<Row> table = [] {
    std::vector<Row> all = testRows();
    const std::vector<Row> families = familyRows();
    all.insert(all.end(), families.begin(), families.end());
    return all;
  }();
  return table;
}

} // namespace wrt::bench
