// What applications write for enumerations and blocks: `int`, as before there were names in the
// members' signatures, and the names. Both are compiled as Objective-C and as Objective-C++.
#import <WRTObjcBridge/Windows.UI.Popups.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>

typedef id<WRTIAsyncOperation__1_WRTIUICommand_P_Bridge> Operation;

static void writtenWithInt(WRTMessageDialogBridge *dialog) {
  int options = [dialog getOptionsWithError:NULL];
  [dialog setOptionsWithValue:options | 1 error:NULL];
  HRESULT (^handler)(Operation, int) = ^HRESULT(Operation done, int status) {
    return status == WRTAsyncStatusCompleted && done ? 0 : -1;
  };
  [[dialog showAsyncWithError:NULL] setCompletedWithHandler:handler error:NULL];
}

static void writtenWithNames(WRTMessageDialogBridge *dialog, WRTUICommandBridge *command) {
  WRTMessageDialogOptions options = [dialog getOptionsWithError:NULL];
  options |= WRTMessageDialogOptionsAcceptUserInputAfterDelay;
  [dialog setOptionsWithValue:options error:NULL];
  WRTUICommandInvokedHandler invoked = ^HRESULT(id<WRTIUICommandBridge> chosen) {
    return chosen ? 0 : -1;
  };
  [command setInvokedWithValue:invoked error:NULL];
  [[dialog showAsyncWithError:NULL]
      setCompletedWithHandler:^HRESULT(Operation done, WRTAsyncStatus status) {
        return status == WRTAsyncStatusCompleted && done ? 0 : -1;
      }
                        error:NULL];
}

#if defined(__cplusplus)
static_assert(__is_same(WRTMessageDialogOptions, int), "a name of int");
#else
_Static_assert(__builtin_types_compatible_p(WRTMessageDialogOptions, int), "as good as an int");
_Static_assert(WRTElementHighContrastAdjustmentApplication == (-0x7FFFFFFF - 1) &&
                   WRTElementHighContrastAdjustmentAuto == -1,
               "flags have all 32 bits");
#endif
