// What the compiler refuses, with what it says. Run by `clang -verify`.

#import <WRTSupport/WRTSupport.h>

@class WRTStorageFileBridge;

void refusals(id<WRTIAsyncOperation__1_WRTUri_P_Bridge> proxy,
              id<WRTIAsyncOperation__1_WRTHSTRING_Bridge> text, id anything, NSError **error);
void refusals(id<WRTIAsyncOperation__1_WRTUri_P_Bridge> proxy,
              id<WRTIAsyncOperation__1_WRTHSTRING_Bridge> text, id anything, NSError **error) {
  // expected-note@* 0+ {{}}
  WRTAwait(proxy, error);    // expected-error {{a proxy class's operation cannot be read}}
  WRTThen(proxy, anything);  // expected-error {{a proxy class's operation cannot be read}}
  WRTAwait(anything, error); // expected-error {{call to 'WRTAwait' is ambiguous}}
  WRTAwait(@"text", error);  // expected-error {{no matching function for call to 'WRTAwait'}}
  WRTThen(text, ^(WRTStorageFileBridge *file, NSError *failure) {
    // expected-error@-1 {{no matching function for call to 'WRTThen'}}
    (void)file, (void)failure;
  });
  // expected-error@+1 {{incompatible pointer types initializing 'WRTStorageFileBridge *'}}
  WRTStorageFileBridge *file = WRTAwait(text, error);
  (void)file;
}
