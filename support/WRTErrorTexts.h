/// What a failure means:
///
///     if (!file)
///       NSLog(@"%@", WRTErrorDescription(error));  // "not found (ERROR_FILE_NOT_FOUND,
///       0x80070002)"
#ifndef WRT_ERROR_TEXTS_H
#define WRT_ERROR_TEXTS_H

#import <WRTSupport/WRTSupportBase.h>

WRT_EXTERN_C_BEGIN

/// What the error's status stands for, its documented name and its digits; the digits alone for a
/// status that is not known here, the error's own description for one of another domain than "WRT",
/// "no error" for nil. Autoreleased. Any thread.
WRT_SUPPORT_API NSString *_Nonnull WRTErrorDescription(NSError *_Nullable error);

WRT_EXTERN_C_END

#endif
