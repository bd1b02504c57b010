#ifndef WRT_TESTS_SAMPLE_H
#define WRT_TESTS_SAMPLE_H

#import <WRTObjcBridge/WRTInterfaceProxy.h>

// A small library in the manner of the generated one: an interface with a member for each way in
// which values travel on ARM, and a runtime class.

typedef struct WRTSampleColor {
  unsigned char A, R, G, B;
} WRTSampleColor;

typedef struct WRTSamplePair {
  int first, second;
} WRTSamplePair;

typedef struct WRTSampleSpan {
  long long Duration;
} WRTSampleSpan;

typedef struct WRTSampleRect {
  float X, Y, Width, Height;
} WRTSampleRect;

typedef struct WRTSampleThickness {
  double Left, Top, Right, Bottom;
} WRTSampleThickness;

@protocol WRTISampleBridge <WRTIInspectableBridge>
- (NSString *)getTextWithError:(NSError **)error;
- (void)setTextWithValue:(NSString *)value error:(NSError **)error;
- (WRTSampleColor)mixWithColor:(WRTSampleColor)color error:(NSError **)error;
- (WRTSampleSpan)advanceWithSteps:(int)steps span:(WRTSampleSpan)span error:(NSError **)error;
- (double)scaleWithFactor:(float)factor by:(double)by error:(NSError **)error;
- (WRTSampleRect)getBoundsWithError:(NSError **)error;
- (WRTSampleThickness)padWithThickness:(WRTSampleThickness)thickness error:(NSError **)error;
- (WRTSamplePair)swapWithPair:(WRTSamplePair)pair error:(NSError **)error;
- (GUID)getIdWithError:(NSError **)error;
- (bool)isEnabledWithError:(NSError **)error;
- (long long)spillWithA:(int)a
                      b:(long long)b
                      c:(float)c
                      d:(int)d
                      e:(double)e
                      f:(long long)f
                  error:(NSError **)error;
- (void)setNamesWithNames:(NSArray *)names error:(NSError **)error;
- (NSArray *)getNamesWithError:(NSError **)error;
- (WRTEventRegistrationToken)addChangedWithHandler:(HRESULT (^)(id sender, long long value))handler
                                             error:(NSError **)error;
- (id<WRTISampleBridge>)getChildWithError:(NSError **)error;
- (void)setChildWithValue:(id<WRTISampleBridge>)value error:(NSError **)error;
- (void)failWithError:(NSError **)error;
@end

WRT_BRIDGE_API
@interface WRTISampleBridge : WRTInterfaceProxy <WRTISampleBridge>
@end

WRT_BRIDGE_API
@interface WRTSampleBridge : WRTInspectableBridge
+ (int)answerWithError:(NSError **)error;
@end

/// The interfaces' identifiers, also known to the tests.
#define WRT_SAMPLE_IID {0x5A3B0001, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 8}}
#define WRT_SAMPLE_STATICS_IID {0x5A3B0002, 0x1111, 0x2222, {1, 2, 3, 4, 5, 6, 7, 8}}

#endif
