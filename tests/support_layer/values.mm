// Values, boxes, references and buffers, both ways.

#include "tests/families/Families.h"

#import <WRTObjcBridge/IReference.h>
#import <WRTSupport/WRTSupport.h>

namespace wrt::test {

namespace {

const Cell valuesBothWays("support.values.both_ways.normal", [] {
  NSError *error = staleError();
  // 2020-02-29 12:00 is 132274512000000000 * 100 ns after 1601.
  NSDate *date = [NSDate dateWithTimeIntervalSince1970:1582977600.25];
  EXPECT_EQ(132274512002500000, WRTDateTimeFromDate(date, &error).UniversalTime);
  EXPECT_EQ(nil, error);
  EXPECT_TRUE([WRTDateFromDateTime({132274512002500000}) isEqual:date]);
  for (long long time : {0LL, 1LL, 132274512002500001LL, 150000000000000007LL}) {
    const bool isRecent = time > 100000000000000000;
    const long long back = WRTDateTimeFromDate(WRTDateFromDateTime({time}), &error).UniversalTime;
    EXPECT_LE(std::abs(back - time), isRecent ? 1 : 16) << time;
  }
  for (NSDate *wrong in @[
         [NSDate dateWithTimeIntervalSinceReferenceDate:-12622780801.0],
         [NSDate dateWithTimeIntervalSinceReferenceDate:1e12]
       ]) {
    EXPECT_FAILS(status::kInvalidArgument, WRTDateTimeFromDate(wrong, &failure).UniversalTime);
  }
  EXPECT_EQ(-15000000, WRTTimeSpanFromInterval(-1.5).Duration);
  EXPECT_EQ(0.25, WRTIntervalFromTimeSpan({2500000}));
  EXPECT_LT(0, WRTTimeSpanFromInterval(1e300).Duration);

  NSUUID *uuid =
      [[[NSUUID alloc] initWithUUIDString:@"00112233-4455-6677-8899-AABBCCDDEEFF"] autorelease];
  const GUID guid = WRTGUIDFromUUID(uuid);
  EXPECT_TRUE(guid ==
              (GUID{0x00112233, 0x4455, 0x6677, {0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}}));
  EXPECT_TRUE([WRTUUIDFromGUID(guid) isEqual:uuid]);

  expectLeftover({.strings = 1}); // of the URI's text
  NSURL *url = [NSURL URLWithString:@"https://example.org/a?b=c#d"];
  EXPECT_TRUE([WRTURLFromUri(WRTUriFromURL(url, &error), &error) isEqual:url]);
  EXPECT_EQ(nil, error);
  NSURL *const relative = [NSURL URLWithString:@"a/b"];
  EXPECT_FAILS(status::kInvalidArgument, WRTUriFromURL(relative, &failure));
  EXPECT_TRUE(NSEqualRects(NSMakeRect(1, 2, 3.5, 4),
                           WRTNSRectFromRect(WRTRectFromNSRect(NSMakeRect(1, 2, 3.5, 4)))));
});

const Cell boxBothWays("support.box.both_ways.normal", [] {
  expectLeftover({.strings = 1, .taskBlocks = 1}); // a string, and the block of an array of objects
  NSUUID *uuid = [NSUUID UUID];
  NSDate *date = [NSDate dateWithTimeIntervalSince1970:1582977600.25];
  NSArray *values = @[
    [NSNumber numberWithBool:YES], [NSNumber numberWithBool:NO],
    [NSNumber numberWithUnsignedShort:65535], @(-70000), @(3000000000u), @(1LL << 40), @(~0ULL),
    @1.5f, @2.25, @"Grüße", date, uuid, [NSNull null],
    [NSValue valueWithRect:NSMakeRect(1, 2, 3, 4)], @[ @1, @2, @-3 ], @[ @1.5, @2.5 ],
    @[ [NSNumber numberWithBool:YES], [NSNumber numberWithBool:NO] ], @[ date ], @[ uuid, uuid ]
  ];
  NSError *error = staleError();
  for (id value in values) {
    SCOPED_TRACE([[value description] UTF8String]);
    id box = WRTBox(value, &error);
    EXPECT_EQ(nil, error);
    EXPECT_TRUE([WRTUnbox(box, &error) isEqual:value]);
    EXPECT_EQ(nil, error);
  }
  const auto typeOf = [](id value) {
    return [[WRTIPropertyValueBridge cast:WRTBox(value)] getTypeWithError:nullptr];
  };
  EXPECT_EQ(WRTPropertyTypeBoolean, typeOf([NSNumber numberWithBool:YES]));
  EXPECT_EQ(WRTPropertyTypeInt32, typeOf(@1));
  EXPECT_EQ(WRTPropertyTypeUInt64, typeOf(@(~0ULL)));
  EXPECT_EQ(WRTPropertyTypeInt32Array, typeOf(@[ @1, @2 ]));
  EXPECT_EQ(WRTPropertyTypeInspectableArray, typeOf(@[ @1, uuid ]));
  NSArray *mixed = @[ @1, uuid, @[ @2.5 ] ];
  EXPECT_TRUE([WRTUnbox(WRTBox(mixed)) isEqual:mixed]);
  EXPECT_EQ(90.5,
            [WRTUnbox([WRTPropertyValueBridge createTimeSpanWithValue:WRTTimeSpanFromInterval(90.5)
                                                                error:nullptr]) doubleValue]);
});

const Cell boxHostile("support.box.hostile.refused", [] {
  const id strange = [[[NSObject alloc] init] autorelease];
  const id early = [NSDate dateWithTimeIntervalSinceReferenceDate:-2e10];
  EXPECT_FAILS(status::kPointer, WRTBox(nil, &failure));
  for (id wrong in @[ strange, @[ @1, @"x", strange ], early, @[ [NSDate date], early ] ])
    EXPECT_FAILS(status::kInvalidArgument, WRTBox(wrong, &failure));
  EXPECT_FAILS(status::kPointer, WRTUnbox(nil, &failure));
  const id stranger = strangerOf([WRTIPropertyValueBridge class]);
  EXPECT_FAILS(kNoInterface, WRTUnbox(stranger, &failure));
});

const Cell referenceBothWays("support.reference.both_ways.normal", [] {
  NSError *error = staleError();
  id<WRTIReference__1_WRTTimeSpan_Bridge> span =
      WRTReferenceOf(@90, WRTIReference__1_WRTTimeSpan_Bridge, &error);
  EXPECT_EQ(900000000, [span getValueWithError:&error].Duration);
  id<WRTIReference__1_WRTINT32_Bridge> number =
      WRTReferenceOf(@-5, WRTIReference__1_WRTINT32_Bridge, &error);
  EXPECT_EQ(-5, [number getValueWithError:&error]);
  EXPECT_TRUE([WRTUnbox(number, &error) isEqual:@-5]);
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kInvalidArgument,
               WRTReferenceOf(@-5, WRTIReference__1_WRTUINT32_Bridge, &failure));
  EXPECT_FAILS(status::kInvalidArgument,
               WRTReferenceOf(@"5", WRTIReference__1_WRTINT32_Bridge, &failure));
  EXPECT_FAILS(status::kNotImplemented,
               WRTReferenceOf(@5, WRTIReference__1_WRTColor_Bridge, &failure));
});

const Cell bufferBothWays("support.buffer.both_ways.normal", [] {
  NSError *error = staleError();
  for (NSUInteger length : {0u, 1u, 4096u}) {
    const std::string bytes(length, 'Z');
    NSData *data = [NSData dataWithBytes:bytes.data() length:length];
    EXPECT_TRUE([WRTDataFromBuffer(WRTBufferFromData(data, &error), &error) isEqual:data]);
    EXPECT_EQ(nil, error);
  }
  EXPECT_FAILS(status::kPointer, WRTBufferFromData(nil, &failure));
  const id stranger = strangerOf([WRTIBufferBridge class]);
  EXPECT_FAILS(kNoInterface, WRTDataFromBuffer(stranger, &failure));
});

} // namespace

} // namespace wrt::test
