// The generic families on objects that Wine made: an asynchronous action with its completion block,
// a vector of strings; and an iterable of ours that Wine reads.

#include "tests/wine/classes/Members.h"
#include "tests/wine/classes/SpeechSource.h"

#include "platform/linux/components/collections/Vector.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTSupport/WRTSupport.h>

using namespace wrt;
using namespace wrt::test;

namespace {

/// AsyncStatus (Windows 10 SDK 10.0.16299.0, asyncinfo.h).
constexpr int kCompleted = 1;

void sleepABit() { [NSThread sleepForTimeInterval:0.01]; }

/// Waits until `operation` has ended, two seconds at most; its status then.
int wait(WRTIAsyncInfoBridge *operation) {
  int status = 0;
  for (int i = 0; i < 200 && status == 0; ++i) {
    status = [operation getStatusWithError:nullptr];
    if (status == 0)
      sleepABit();
  }
  return status;
}

/// Has the recognizer compile its constraints.
void compile(SpeechSource &source) {
  void *operation = nullptr;
  ASSERT_EQ(0, source.compileConstraints(&operation));
  EXPECT_EQ(kCompleted, wait([WRTIAsyncInfoBridge bridgeTransfer:operation]));
}

/// A new action, which may have ended already.
WRTIAsyncActionBridge *start(SpeechSource &source) {
  void *action = nullptr;
  EXPECT_EQ(0, source.startSession(&action));
  return [WRTIAsyncActionBridge bridgeTransfer:action];
}

WRTIAsyncActionBridge *newAction(SpeechSource &source) {
  compile(source);
  return start(source);
}

/// What a completion block saw.
struct Completion {
  int calls = 0;
  int status = -1;
  bool isSameAction = false;
  bool isOtherThread = false;
  HRESULT results = -1;
};

/// Starts an action and sets a completion block as soon as it can; waits until the block has run,
/// five seconds at most.
Completion complete(SpeechSource &source, NSError **error) {
  __block Completion seen;
  NSConditionLock *done = [[[NSConditionLock alloc] initWithCondition:0] autorelease];
  NSThread *const caller = [NSThread currentThread];
  __block WRTIAsyncActionBridge *action = nil;
  id handler = [[^HRESULT(id<WRTIAsyncActionBridge> finished, int status) {
    [done lock];
    NSError *resultsError = nil;
    [finished getResultsWithError:&resultsError];
    ++seen.calls;
    seen.status = status;
    seen.isSameAction = [static_cast<id>(finished) isEqual:action];
    seen.isOtherThread = [NSThread currentThread] != caller;
    seen.results = static_cast<HRESULT>([resultsError code]);
    [done unlockWithCondition:1];
    return 0;
  } copy] autorelease];
  action = start(source);
  [action setCompletedWithHandler:handler error:error];
  if ([done lockWhenCondition:1 beforeDate:[NSDate dateWithTimeIntervalSinceNow:5]])
    [done unlock];
  NSError *again = nil;
  [action setCompletedWithHandler:handler error:&again];
  EXPECT_EQ(status::kIllegalDelegateAssignment, [again code]);
  return seen;
}

// The block runs on a thread of Wine's when it is set before the action has ended, and in the call
// that sets it when afterwards. Who is first is chance; several tries see both.
void setCompleted(NSError **error) {
  SpeechSource source;
  compile(source);
  int onOtherThreads = 0;
  int tries = 0;
  while (tries < 200 && onOtherThreads == 0) {
    const Completion seen = complete(source, tries == 0 ? error : nullptr);
    EXPECT_EQ(1, seen.calls);
    EXPECT_EQ(kCompleted, seen.status);
    EXPECT_TRUE(seen.isSameAction);
    EXPECT_EQ(0, seen.results);
    onOtherThreads += seen.isOtherThread;
    ++tries;
  }
  EXPECT_EQ(1, onOtherThreads);
}

void getResults(NSError **error) {
  SpeechSource source;
  WRTIAsyncActionBridge *action = newAction(source);
  EXPECT_EQ(kCompleted, wait([WRTIAsyncInfoBridge cast:action]));
  [action getResultsWithError:error];
}

/// The body of a member that acts on what an action that has ended tells of itself.
std::function<void(NSError **)> onInfo(void (*act)(WRTIAsyncInfoBridge *, NSError **)) {
  return [act](NSError **error) {
    SpeechSource source;
    WRTIAsyncInfoBridge *info = [WRTIAsyncInfoBridge cast:newAction(source)];
    wait(info);
    act(info, error);
  };
}

using Strings = id<WRTIVector__1_WRTHSTRING_Bridge>;

/// A list of Wine's that has read "alpha", "", "gamma 😀" from a list of ours.
Strings newStrings(NSError **error = nullptr) {
  implement::ComPtr<implement::IIterable<implement::String>> ours;
  ours = implement::make<implement::Vector<implement::String>>(
             implement::Items<implement::String>{implement::StringHolder(u"alpha"),
                                                 implement::StringHolder(),
                                                 implement::StringHolder(u"gamma 😀")})
             .as<implement::IIterable<implement::String>>();
  WRTIIterable__1_WRTHSTRING_Bridge *bridge = [WRTIIterable__1_WRTHSTRING_Bridge bridge:ours.get()];
  void *iterable = [bridge _WRTIIterable__1_WRTHSTRINGWithError:error];
  void *vector = nullptr;
  handOver(2);
  EXPECT_EQ(0, makePhrases(iterable, &vector));
  WRTIUnknownSafeRelease(iterable);
  return [WRTIVector__1_WRTHSTRING_Bridge bridgeTransfer:vector];
}

/// All elements, in parentheses.
std::string contents(Strings strings) {
  NSArray *all = [strings getManyWithStartIndex:0 capacity:64 error:nullptr];
  return all == nil ? "nothing"
                    : [[NSString stringWithFormat:@"(%@)", [all componentsJoinedByString:@")("]]
                          UTF8String];
}

void iterable(NSError **error) { EXPECT_EQ("(alpha)()(gamma 😀)", contents(newStrings(error))); }

void getAt(NSError **error) {
  Strings strings = newStrings();
  EXPECT_TRUE([@"gamma 😀" isEqual:[strings getAtWithIndex:2 error:error]]);
  NSError *bounds = nil;
  EXPECT_EQ(nil, [strings getAtWithIndex:3 error:&bounds]);
  EXPECT_EQ(status::kBounds, [bounds code]);
}
void getSize(NSError **error) { EXPECT_EQ(3u, [newStrings() getSizeWithError:error]); }

void getView(NSError **error) {
  Strings strings = newStrings();
  id<WRTIVectorView__1_WRTHSTRING_Bridge> view = [strings getViewWithError:error];
  [strings clearWithError:nullptr];
  EXPECT_EQ(3u, [view getSizeWithError:nullptr]) << "the elements of that moment";
  EXPECT_TRUE([@"alpha" isEqual:[view getAtWithIndex:0 error:nullptr]]);
}

// The list of this Wine compares handles. A bridge makes a new one for every call, so it cannot
// find anything there.
void indexOf(NSError **error) {
  Strings strings = newStrings();
  unsigned index = 77;
  const bool found = [strings indexOfWithValue:@"gamma 😀" index:&index error:error];
  EXPECT_EQ(expectedAnswer() == "works", found);
  EXPECT_EQ(found ? 2u : 0u, index);
}
/// The body of a member that changes a list, by what the list holds then.
std::function<void(NSError **)> changes(const char *expected, void (*act)(Strings, NSError **)) {
  return [=](NSError **error) {
    Strings strings = newStrings();
    act(strings, error);
    EXPECT_EQ(expected, contents(strings));
  };
}

void getMany(NSError **error) {
  NSArray *two = [newStrings() getManyWithStartIndex:1 capacity:64 error:error];
  NSArray *const expected = [NSArray arrayWithObjects:@"", @"gamma 😀", nil];
  EXPECT_TRUE([two isEqual:expected]);
}
void replaceAll(NSError **error) {
  Strings strings = newStrings();
  NSMutableArray *values = [NSMutableArray array];
  for (int i = 0; i < 33; ++i)
    [values addObject:[NSString stringWithFormat:@"%d", i]];
  [strings replaceAllWithValues:values error:error];
  EXPECT_TRUE([values isEqual:[strings getManyWithStartIndex:0 capacity:64 error:nullptr]]);
  [strings replaceAllWithValues:[NSArray array] error:nullptr];
  EXPECT_EQ(0u, [strings getSizeWithError:nullptr]);
}

// The application layer on the same objects.

void await(NSError **error) {
  SpeechSource source;
  const long before = liveDelegates();
  EXPECT_TRUE(WRTAwait(newAction(source), error));
  // Wine's thread gives the completion block up when it has been called.
  for (int i = 0; i < 200 && liveDelegates() > before; ++i)
    sleepABit();
}

void each(NSError **error) {
  NSMutableArray *seen = [NSMutableArray array];
  handOver(-2); // the layer gives up what Wine's list hands out, unlike the bridge's members
  for (NSString *phrase in WRTEach(newStrings(), error))
    [seen addObject:phrase];
  NSArray *const expected = [NSArray arrayWithObjects:@"alpha", @"", @"gamma 😀", nil];
  EXPECT_TRUE([seen isEqual:expected]);
}

void errorDescription(NSError **error) {
  NSError *bounds = nil;
  Strings strings = newStrings(error);
  [strings getAtWithIndex:3 error:&bounds];
  EXPECT_TRUE([WRTErrorDescription(bounds) hasSuffix:@"(E_BOUNDS, 0x8000000B)"]);
}

const Member members[] = {
    {"(WRTSupport).WRTAwait", await},
    {"(WRTSupport).WRTEach", each},
    {"(WRTSupport).WRTErrorDescription", errorDescription},
    {"IAsyncAction.put_Completed", setCompleted},
    {"IAsyncAction.GetResults", getResults},
    {"IAsyncInfo.Id", onInfo([](WRTIAsyncInfoBridge *info, NSError **error) {
       EXPECT_EQ(0u, [info getIdWithError:error]);
     })},
    {"IAsyncInfo.Status", onInfo([](WRTIAsyncInfoBridge *info, NSError **error) {
       EXPECT_EQ(kCompleted, [info getStatusWithError:error]);
     })},
    {"IAsyncInfo.ErrorCode", onInfo([](WRTIAsyncInfoBridge *info, NSError **error) {
       EXPECT_EQ(0, [info getErrorCodeWithError:error]);
     })},
    {"IAsyncInfo.Cancel",
     onInfo([](WRTIAsyncInfoBridge *info, NSError **error) { [info cancelWithError:error]; })},
    {"IAsyncInfo.Close",
     onInfo([](WRTIAsyncInfoBridge *info, NSError **error) { [info closeWithError:error]; })},
    {"IIterable<String>.read_by_Wine", iterable},
    {"IVector<String>.GetAt", getAt},
    {"IVector<String>.Size", getSize},
    {"IVector<String>.GetView", getView},
    {"IVector<String>.IndexOf", indexOf},
    {"IVector<String>.SetAt", changes("(alpha)(beta)(gamma 😀)",
                                      [](Strings all, NSError **error) {
                                        [all setAtWithIndex:1 item:@"beta" error:error];
                                      })},
    {"IVector<String>.InsertAt", changes("(alpha)(beta)()(gamma 😀)",
                                         [](Strings all, NSError **error) {
                                           [all insertAtWithIndex:1 item:@"beta" error:error];
                                         })},
    {"IVector<String>.RemoveAt",
     changes("()(gamma 😀)",
             [](Strings all, NSError **error) { [all removeAtWithIndex:0 error:error]; })},
    {"IVector<String>.Append",
     changes("(alpha)()(gamma 😀)(delta)",
             [](Strings all, NSError **error) { [all appendWithItem:@"delta" error:error]; })},
    {"IVector<String>.RemoveAtEnd",
     changes("(alpha)()", [](Strings all, NSError **error) { [all removeAtEndWithError:error]; })},
    // This Wine finds a start index of 0 out of range when there is nothing.
    {"IVector<String>.Clear",
     changes("nothing", [](Strings all, NSError **error) { [all clearWithError:error]; })},
    {"IVector<String>.GetMany", getMany},
    {"IVector<String>.ReplaceAll", replaceAll},
};

} // namespace
