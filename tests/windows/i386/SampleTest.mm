// Calls the sample library through real messages. Its WinRT objects live here and record
// what reaches them.
#include "sample/Sample.h"
#include "arm/Check.h"

#include <WRTObjcBridge/WRTConversions.h>
#include <WRTObjcBridge/WRTIInspectableBridge.h>
#include <WRTUnknown.h>

using namespace wrt::test;

namespace {

constexpr HRESULT kUnexpected = static_cast<HRESULT>(0x8000FFFF);

/// An object with the sample's interfaces. Its functions stand in the tables below.
struct SampleObject {
  const void *table;
  int references = 1;
  GUID statics = WRT_SAMPLE_STATICS_IID;
  bool hasInterface = true;
  bool sawText = false;
  int names = 0;
  void *handler = nullptr;
  SampleObject *child = nullptr;
  // What a caller of the interface would release and the bridges do not.
  HSTRING text = nullptr;
  void *nameBlock = nullptr;
};

HRESULT queryInterface(SampleObject *self, const GUID *iid, void **result) {
  const GUID sample = WRT_SAMPLE_IID;
  const bool known = *iid == WRTIUnknownGetUUID() || *iid == self->statics ||
                     (*iid == sample && self->hasInterface);
  *result = known ? self : nullptr;
  self->references += known;
  return known ? 0 : kNoInterface;
}
uint32_t addReference(SampleObject *self) { return static_cast<uint32_t>(++self->references); }
uint32_t release(SampleObject *self) { return static_cast<uint32_t>(--self->references); }

HRESULT getText(SampleObject *self, HSTRING *text) {
  *text = self->text = testMakeString(u"Gr\u00fc\u00dfe", 5);
  return 0;
}
HRESULT setText(SampleObject *self, HSTRING text) {
  self->sawText = hasText(text, u"a literal");
  return 0;
}
HRESULT mix(SampleObject *, WRTSampleColor color, WRTSampleColor *result) {
  *result = {color.B, color.G, color.R, color.A};
  return 0;
}
HRESULT advance(SampleObject *, int steps, WRTSampleSpan span, WRTSampleSpan *result) {
  result->Duration = span.Duration + steps;
  return 0;
}
HRESULT scale(SampleObject *, float factor, double by, double *result) {
  *result = static_cast<double>(factor) * by;
  return 0;
}
HRESULT getBounds(SampleObject *, WRTSampleRect *result) {
  *result = {1.5f, -2.5f, 3.25f, 4.75f};
  return 0;
}
HRESULT pad(SampleObject *, WRTSampleThickness in, WRTSampleThickness *result) {
  *result = {in.Bottom, in.Right, in.Top, in.Left};
  return 0;
}
HRESULT swap(SampleObject *, WRTSamplePair pair, WRTSamplePair *result) {
  *result = {pair.second, pair.first};
  return 0;
}
HRESULT getId(SampleObject *, GUID *result) {
  *result = WRT_SAMPLE_IID;
  return 0;
}
HRESULT isEnabled(SampleObject *, unsigned char *result) {
  *result = 0x80;
  return 0;
}
HRESULT spill(SampleObject *, int a, long long b, float c, int d, double e, long long f,
              long long *result) {
  const bool arrived =
      a == 1 && b == 0x200000002 && c == 3.0f && d == 4 && e == 5.0 && f == 0x600000006;
  *result = arrived ? 0x123456789A : 0;
  return 0;
}
HRESULT setNames(SampleObject *self, int count, HSTRING *names) {
  static const char16_t *const kExpected[] = {u"one", u"two", u"three"};
  self->names = 0;
  for (int i = 0; i < count && i < 3; ++i)
    self->names += hasText(names[i], kExpected[i]);
  return 0;
}
HRESULT getNames(SampleObject *self, int *count, HSTRING **names) {
  *count = 2;
  *names = static_cast<HSTRING *>(WRTTaskMemAlloc(2 * sizeof(HSTRING)));
  self->nameBlock = *names;
  (*names)[0] = testMakeString(u"x", 1);
  (*names)[1] = testMakeString(u"yz", 2);
  return 0;
}
HRESULT addChanged(SampleObject *self, void *handler, WRTEventRegistrationToken *token) {
  WRTIUnknownAddRef(handler);
  self->handler = handler;
  token->value = 0x7FFFFFFF12345678;
  return 0;
}
HRESULT getChild(SampleObject *self, void **child) {
  *child = self->child;
  if (self->child)
    addReference(self->child);
  return 0;
}
HRESULT setChild(SampleObject *self, SampleObject *child) {
  self->child = child;
  return 0;
}
HRESULT fail(SampleObject *) { return kUnexpected; }

using Function = void (*)();

template <class F>
Function slot(F *function) {
  return reinterpret_cast<Function>(function);
}

const Function *sampleTable() {
  static const Function table[] = {slot(queryInterface),
                                   slot(addReference),
                                   slot(release),
                                   nullptr,
                                   nullptr,
                                   nullptr,
                                   slot(getText),
                                   slot(setText),
                                   slot(mix),
                                   slot(advance),
                                   slot(scale),
                                   slot(getBounds),
                                   slot(pad),
                                   slot(swap),
                                   slot(getId),
                                   slot(isEnabled),
                                   slot(spill),
                                   slot(setNames),
                                   slot(getNames),
                                   slot(addChanged),
                                   slot(getChild),
                                   slot(setChild),
                                   slot(fail)};
  return table;
}

HRESULT answer(SampleObject *, int *result) {
  *result = 42;
  return 0;
}

const Function *staticsTable() {
  static const Function table[] = {
      slot(queryInterface), slot(addReference), slot(release), nullptr, nullptr, nullptr,
      slot(answer)};
  return table;
}

HRESULT raise(SampleObject &object, void *sender, long long value) {
  using Invoke = HRESULT (*)(void *, void *, long long);
  return (*static_cast<Invoke **>(object.handler))[3](object.handler, sender, value);
}

void testStrings(WRTISampleBridge *bridge, SampleObject &object) {
  NSError *error = nil;
  NSString *text = [bridge getTextWithError:&error];
  CHECK([text length] == 5);
  CHECK([text characterAtIndex:2] == 0xFC);
  CHECK(testLiveStrings() == 1); // a string result's handle is not released
  [bridge setTextWithValue:@"a literal" error:&error];
  CHECK(object.sawText);
  CHECK(testLiveStrings() == 1);
  CHECK([[NSString stringWithUTF8String:"a literal"] isEqualToString:@"a literal"]);
  CHECK([@"Gr\u00fc\u00dfe" isEqualToString:text]);
  WRTHSTRINGRelease(object.text);
  CHECK(testLiveStrings() == 0);
}

void testValues(WRTISampleBridge *bridge) {
  const WRTSampleColor color = [bridge mixWithColor:{1, 2, 3, 4} error:nil];
  CHECK(color.A == 4 && color.R == 3 && color.G == 2 && color.B == 1);
  CHECK([bridge advanceWithSteps:7 span:{0x500000000} error:nil].Duration == 0x500000007);
  CHECK([bridge scaleWithFactor:1.5f by:-4.0 error:nil] == -6.0);
  const WRTSampleRect bounds = [bridge getBoundsWithError:nil];
  CHECK(bounds.X == 1.5f && bounds.Y == -2.5f && bounds.Width == 3.25f && bounds.Height == 4.75f);
  const WRTSampleThickness pad = [bridge padWithThickness:{1, 2, 3, 4} error:nil];
  CHECK(pad.Left == 4 && pad.Top == 3 && pad.Right == 2 && pad.Bottom == 1);
  const WRTSamplePair pair = [bridge swapWithPair:{-1, 77} error:nil];
  CHECK(pair.first == 77 && pair.second == -1);
  const GUID expected = WRT_SAMPLE_IID;
  CHECK([bridge getIdWithError:nil] == expected);
  CHECK([bridge isEnabledWithError:nil] == true);
  CHECK([bridge spillWithA:1 b:0x200000002 c:3.0f d:4 e:5.0 f:0x600000006
                     error:nil] == 0x123456789A);
}

void testArrays(WRTISampleBridge *bridge, SampleObject &object) {
  const int strings = testLiveStrings();
  id names[] = {@"one", @"two", @"three"};
  [bridge setNamesWithNames:[NSArray arrayWithObjects:names count:3] error:nil];
  CHECK(object.names == 3);
  CHECK(testLiveStrings() == strings);
  CHECK(testLiveTaskBlocks() == 0);
  NSArray *list = [bridge getNamesWithError:nil];
  CHECK([list count] == 2);
  CHECK([[list objectAtIndex:1] isEqualToString:@"yz"]);
  CHECK(testLiveTaskBlocks() == 1); // a received block is not freed
  WRTTaskMemFree(object.nameBlock);
  CHECK(testLiveStrings() == strings);
}

void testDelegates(WRTISampleBridge *bridge, SampleObject &object) {
  static long long seen;
  static Class senderClass;
  NSError *error = nil;
  const WRTEventRegistrationToken token = [bridge
      addChangedWithHandler:^HRESULT(id sender, long long value) {
        seen = value;
        senderClass = [sender class];
        return 5;
      }
                      error:&error];
  CHECK(error == nil);
  CHECK(token.value == 0x7FFFFFFF12345678);
  const unsigned pool = testPoolPush();
  CHECK(raise(object, &object, 0x1122334455667788) == 5);
  testPoolPop(pool);
  CHECK(seen == 0x1122334455667788);
  CHECK(senderClass == [WRTISampleBridge class]);
  CHECK(testLiveDelegates() == 1);
  CHECK(WRTIUnknownRelease(object.handler) == 0);
  CHECK(testLiveDelegates() == 0);
}

void testObjects(WRTISampleBridge *bridge, SampleObject &object) {
  SampleObject child{sampleTable()};
  WRTISampleBridge *wrapped = [WRTISampleBridge bridge:&child];
  CHECK(child.references == 2);
  [bridge setChildWithValue:wrapped error:nil];
  CHECK(object.child == &child);
  CHECK(child.references == 2);
  WRTISampleBridge *back = static_cast<WRTISampleBridge *>([bridge getChildWithError:nil]);
  CHECK(child.references == 3);
  CHECK([back isEqual:wrapped]);
  CHECK([WRTISampleBridge cast:back] == back);
  CHECK([back class] == [WRTISampleBridge class]);
  object.child = nullptr;
  CHECK([bridge getChildWithError:nil] == nil);
  testPoolPop(0);
  CHECK(child.references == 1);
}

void testErrors(SampleObject &object) {
  WRTISampleBridge *bridge = [WRTISampleBridge bridge:&object];
  NSError *error = nil;
  [bridge failWithError:&error];
  CHECK([error code] == kUnexpected);
  CHECK([[error domain] isEqualToString:@"WRT"]);
  [bridge isEnabledWithError:&error];
  CHECK(error == nil);
  CHECK(WRTCreateNSErrorFromHRESULT(1) == nil);
  CHECK([WRTCreateNSErrorFromHRESULT(kNoInterface) code] == kNoInterface);
  // Without the interface the call is not made and the error stays as it was.
  object.hasInterface = false;
  const int logged = testLogCount();
  NSError *before = error = WRTCreateNSErrorFromHRESULT(kNoInterface);
  CHECK([bridge getTextWithError:&error] == nil);
  CHECK(error == before);
  CHECK(testLogCount() == logged + 1 && testLogLevel() == 3);
  object.hasInterface = true;
  CHECK([WRTISampleBridge bridge:nullptr] == nil);
  CHECK(testLogLevel() == 4);
}

void testActivation() {
  NSError *error = nil;
  CHECK([WRTSampleBridge answerWithError:&error] == 0);
  SampleObject factory{staticsTable()};
  testSetFactory(u"Tests.Sample", &factory);
  CHECK([WRTSampleBridge answerWithError:&error] == 42);
  CHECK(error == nil);
  CHECK(factory.references == 1);
  CHECK([[WRTIInspectableBridge alloc] init] == nil);
}

} // namespace

extern "C" OBJC_EXPORT void runTests() {
  const int live = testLiveObjects();
  SampleObject object{sampleTable()};
  WRTISampleBridge *bridge = [[WRTISampleBridge alloc] initWithInner:&object];
  testStrings(bridge, object);
  testValues(bridge);
  testArrays(bridge, object);
  testDelegates(bridge, object);
  testPoolPop(0);
  testObjects(bridge, object);
  testErrors(object);
  testActivation();
  testPoolPop(0);
  CHECK(object.references == 1);
  [bridge release];
  CHECK(object.references == 0);
  CHECK(testLiveObjects() == live);
}
