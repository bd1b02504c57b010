#include "sample/Sample.h"

#include "marshal/Accessor.h"
#include "marshal/Adapter.h"
#include "marshal/Array.h"
#include "marshal/Call.h"
#include "marshal/Value.h"

#include <WRTBridge.h>

using namespace wrt;

WRT_EXTERN_C_BEGIN
WRT_DLLIMPORT extern const char16_t *const WRTSampleClassString;
WRT_DLLIMPORT void *WRTSampleHandlerFromBlock(id block);
WRT_BRIDGE_API extern const ClassStructure sampleClass __asm__("OBJC_CLASS_$_WRTISampleBridge");
WRT_EXTERN_C_END

@interface WRTISampleBridge ()
- (void *)_WRTISampleWithError:(NSError **)error;
@end

@interface WRTSampleBridge ()
+ (void *)_WRTISampleStaticsWithError:(NSError **)error;
@end

namespace {

constexpr GUID kSample = WRT_SAMPLE_IID;
constexpr GUID kSampleStatics = WRT_SAMPLE_STATICS_IID;

void *sample(id object, NSError **error) { return [object _WRTISampleWithError:error]; }
void *sampleStatics(id object, NSError **error) {
  return [object _WRTISampleStaticsWithError:error];
}

constexpr DelegateMaker kHandler =
    makeDelegate<WRTSampleHandlerFromBlock, PassedObject<void, &sampleClass>, Passed<long long>>;

constexpr Member<String()> kGetText(sample, 6);
constexpr Member<Void(String)> kSetText(sample, 7);
constexpr Member<Value<WRTSampleColor>(Value<WRTSampleColor>)> kMix(sample, 8);
constexpr Member<Value<WRTSampleSpan>(Value<int>, Value<WRTSampleSpan>)> kAdvance(sample, 9);
constexpr Member<Value<double>(Value<float>, Value<double>)> kScale(sample, 10);
constexpr Member<Value<WRTSampleRect>()> kGetBounds(sample, 11);
constexpr Member<Value<WRTSampleThickness>(Value<WRTSampleThickness>)> kPad(sample, 12);
constexpr Member<Value<WRTSamplePair>(Value<WRTSamplePair>)> kSwap(sample, 13);
constexpr Member<Value<GUID>()> kGetId(sample, 14);
constexpr Member<Boolean()> kIsEnabled(sample, 15);
constexpr Member<Value<long long>(Value<int>, Value<long long>, Value<float>, Value<int>,
                                  Value<double>, Value<long long>)>
    kSpill(sample, 16);
constexpr Member<Void(Array<StringElements>)> kSetNames(sample, 17);
constexpr Member<ReturnedArray<StringElements>()> kGetNames(sample, 18);
constexpr Member<Value<WRTEventRegistrationToken>(Delegate)> kAddChanged(sample, 19, kHandler);
constexpr Member<Interface()> kGetChild(sample, 20, &sampleClass);
constexpr Member<Void(Object)> kSetChild(sample, 21, sample);
constexpr Member<Void()> kFail(sample, 22);
constexpr Member<Value<int>()> kAnswer(sampleStatics, 6);

} // namespace

@implementation WRTISampleBridge
- (void *)_WRTISampleWithError:(NSError **)error {
  return queryInterface(self, kSample, error);
}
- (NSString *)getTextWithError:(NSError **)error {
  return call(self, kGetText, error);
}
- (void)setTextWithValue:(NSString *)value error:(NSError **)error {
  call(self, kSetText, value, error);
}
- (WRTSampleColor)mixWithColor:(WRTSampleColor)color error:(NSError **)error {
  return call(self, kMix, color, error);
}
- (WRTSampleSpan)advanceWithSteps:(int)steps span:(WRTSampleSpan)span error:(NSError **)error {
  return call(self, kAdvance, steps, span, error);
}
- (double)scaleWithFactor:(float)factor by:(double)by error:(NSError **)error {
  return call(self, kScale, factor, by, error);
}
- (WRTSampleRect)getBoundsWithError:(NSError **)error {
  return call(self, kGetBounds, error);
}
- (WRTSampleThickness)padWithThickness:(WRTSampleThickness)thickness error:(NSError **)error {
  return call(self, kPad, thickness, error);
}
- (WRTSamplePair)swapWithPair:(WRTSamplePair)pair error:(NSError **)error {
  return call(self, kSwap, pair, error);
}
- (GUID)getIdWithError:(NSError **)error {
  return call(self, kGetId, error);
}
- (bool)isEnabledWithError:(NSError **)error {
  return call(self, kIsEnabled, error);
}
- (long long)spillWithA:(int)a
                      b:(long long)b
                      c:(float)c
                      d:(int)d
                      e:(double)e
                      f:(long long)f
                  error:(NSError **)error {
  return call(self, kSpill, a, b, c, d, e, f, error);
}
- (void)setNamesWithNames:(NSArray *)names error:(NSError **)error {
  call(self, kSetNames, names, error);
}
- (NSArray *)getNamesWithError:(NSError **)error {
  return call(self, kGetNames, error);
}
- (WRTEventRegistrationToken)addChangedWithHandler:(HRESULT (^)(id, long long))handler
                                             error:(NSError **)error {
  return call(self, kAddChanged, handler, error);
}
- (id<WRTISampleBridge>)getChildWithError:(NSError **)error {
  return call(self, kGetChild, error);
}
- (void)setChildWithValue:(id<WRTISampleBridge>)value error:(NSError **)error {
  call(self, kSetChild, value, error);
}
- (void)failWithError:(NSError **)error {
  call(self, kFail, error);
}
@end

@implementation WRTSampleBridge
+ (void *)_WRTISampleStaticsWithError:(NSError **)error {
  return activationFactory(WRTSampleClassString, kSampleStatics, error);
}
+ (void *)activateInstance {
  return WRTActivateInstance(WRTSampleClassString);
}
+ (int)answerWithError:(NSError **)error {
  return call(self, kAnswer, error);
}
@end
