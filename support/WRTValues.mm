#import <WRTSupport/WRTValues.h>

#import <WRTSupport/WRTAsking.h>

#include "support/implement/Failure.h"

#include <math.h>

using namespace wrt;
using support::store;

namespace {

constexpr double kTicksPerSecond = 1e7;
/// 2001, Foundation's reference date, in units of 100 ns since 1601. Counted from there, today's
/// dates keep all their digits.
constexpr long long kReferenceDate = 126227808000000000;
/// The largest double below 2^63.
constexpr double kMost = 9223372036854774784.0;

} // namespace

WRTDateTime WRTDateTimeFromDate(NSDate *date, NSError **error) {
  const double ticks = date ? rint([date timeIntervalSinceReferenceDate] * kTicksPerSecond) : NAN;
  // Written so that what is no number fails as well.
  const bool fits = ticks >= -static_cast<double>(kReferenceDate) &&
                    ticks <= kMost - static_cast<double>(kReferenceDate);
  store(fits ? status::kOk : status::kInvalidArgument, error);
  return {fits ? static_cast<long long>(ticks) + kReferenceDate : 0};
}

NSDate *WRTDateFromDateTime(WRTDateTime time) {
  const auto ticks = static_cast<double>(time.UniversalTime - kReferenceDate);
  return [NSDate dateWithTimeIntervalSinceReferenceDate:ticks / kTicksPerSecond];
}

WRTTimeSpan WRTTimeSpanFromInterval(NSTimeInterval seconds) {
  const double ticks = rint(seconds * kTicksPerSecond);
  if (ticks != ticks)
    return {0};
  return {static_cast<long long>(fmax(-kMost, fmin(kMost, ticks)))};
}

NSTimeInterval WRTIntervalFromTimeSpan(WRTTimeSpan span) {
  return static_cast<double>(span.Duration) / kTicksPerSecond;
}

GUID WRTGUIDFromUUID(NSUUID *uuid) {
  unsigned char b[16] = {};
  [uuid getUUIDBytes:b];
  return {static_cast<uint32_t>(b[0]) << 24 | static_cast<uint32_t>(b[1]) << 16 |
              static_cast<uint32_t>(b[2]) << 8 | b[3],
          static_cast<unsigned short>(b[4] << 8 | b[5]),
          static_cast<unsigned short>(b[6] << 8 | b[7]),
          {b[8], b[9], b[10], b[11], b[12], b[13], b[14], b[15]}};
}

NSUUID *WRTUUIDFromGUID(GUID guid) {
  const auto byte = [](auto value, int shift) {
    return static_cast<unsigned char>(value >> shift);
  };
  const unsigned char *rest = guid.Data4;
  unsigned char bytes[16] = {byte(guid.Data1, 24),
                             byte(guid.Data1, 16),
                             byte(guid.Data1, 8),
                             byte(guid.Data1, 0),
                             byte(guid.Data2, 8),
                             byte(guid.Data2, 0),
                             byte(guid.Data3, 8),
                             byte(guid.Data3, 0),
                             rest[0],
                             rest[1],
                             rest[2],
                             rest[3],
                             rest[4],
                             rest[5],
                             rest[6],
                             rest[7]};
  return [[[NSUUID alloc] initWithUUIDBytes:bytes] autorelease];
}

WRTUriBridge *WRTUriFromURL(NSURL *url, NSError **error) {
  if (![url scheme]) {
    store(status::kInvalidArgument, error);
    return nil;
  }
  return [WRTUriBridge createUriWithUri:[url absoluteString] error:error];
}

NSURL *WRTURLFromUri(id<WRTIUriRuntimeClassBridge> uri, NSError **error) {
  NSError *failure = nil;
  NSString *text = uri ? WRTTry([uri getAbsoluteUriWithError:&failure], &failure) : nil;
  NSURL *url = text ? [NSURL URLWithString:text] : nil;
  if (!url && !failure)
    failure = WRTCreateNSErrorFromHRESULT(status::kInvalidArgument);
  if (error)
    *error = failure;
  return url;
}

WRTPoint WRTPointFromNSPoint(NSPoint point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

WRTSize WRTSizeFromNSSize(NSSize size) {
  return {static_cast<float>(size.width), static_cast<float>(size.height)};
}

WRTRect WRTRectFromNSRect(NSRect rect) {
  return {static_cast<float>(rect.origin.x), static_cast<float>(rect.origin.y),
          static_cast<float>(rect.size.width), static_cast<float>(rect.size.height)};
}

NSPoint WRTNSPointFromPoint(WRTPoint point) { return NSMakePoint(point.X, point.Y); }

NSSize WRTNSSizeFromSize(WRTSize size) { return NSMakeSize(size.Width, size.Height); }

NSRect WRTNSRectFromRect(WRTRect rect) {
  return NSMakeRect(rect.X, rect.Y, rect.Width, rect.Height);
}
