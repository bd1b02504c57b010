/// Foundation's values and the structures of the Windows Runtime:
///
///     NSDate *modified = WRTDateFromDateTime([properties getDateModifiedWithError:&error]);
///     WRTUriBridge *uri = WRTUriFromURL([NSURL URLWithString:@"https://example.org"], &error);
///
/// Conversions into WinRT that can fail give 0 or nil and an error then. Objects are autoreleased.
/// Any thread.
#ifndef WRT_VALUES_H
#define WRT_VALUES_H

#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTSupport/WRTSupportBase.h>

WRT_EXTERN_C_BEGIN

/// 100 ns since 1601; dates before that, far beyond what fits, and nil are `E_INVALIDARG`. A
/// date of these decades and back is at most one unit off, the resolution of Foundation's dates.
WRT_SUPPORT_API WRTDateTime WRTDateTimeFromDate(NSDate *_Nullable date,
                                                NSError *_Nullable *_Nullable error);
WRT_SUPPORT_API NSDate *_Nonnull WRTDateFromDateTime(WRTDateTime time);

/// 100 ns; of seconds that do not fit the nearest that do, 0 for what is no number.
WRT_SUPPORT_API WRTTimeSpan WRTTimeSpanFromInterval(NSTimeInterval seconds);
WRT_SUPPORT_API NSTimeInterval WRTIntervalFromTimeSpan(WRTTimeSpan span);

/// All zeros for nil.
WRT_SUPPORT_API GUID WRTGUIDFromUUID(NSUUID *_Nullable uuid);
WRT_SUPPORT_API NSUUID *_Nonnull WRTUUIDFromGUID(GUID guid);

/// A URL without a scheme and nil are `E_INVALIDARG`.
WRT_SUPPORT_API WRTUriBridge *_Nullable WRTUriFromURL(NSURL *_Nullable url,
                                                      NSError *_Nullable *_Nullable error);
/// What `uri` was made of; nil is `E_INVALIDARG`.
WRT_SUPPORT_API NSURL *_Nullable WRTURLFromUri(id<WRTIUriRuntimeClassBridge> _Nullable uri,
                                               NSError *_Nullable *_Nullable error);

/// WinRT's coordinates are floats.
WRT_SUPPORT_API WRTPoint WRTPointFromNSPoint(NSPoint point);
WRT_SUPPORT_API WRTSize WRTSizeFromNSSize(NSSize size);
WRT_SUPPORT_API WRTRect WRTRectFromNSRect(NSRect rect);
WRT_SUPPORT_API NSPoint WRTNSPointFromPoint(WRTPoint point);
WRT_SUPPORT_API NSSize WRTNSSizeFromSize(WRTSize size);
WRT_SUPPORT_API NSRect WRTNSRectFromRect(WRTRect rect);

WRT_EXTERN_C_END

#endif
