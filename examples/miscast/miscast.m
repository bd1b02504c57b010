// A wrong call, for docs/debugging.md: the item that a cast makes of an address has no name, and
// nothing says why.

#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.h>

#include <stdio.h>

static NSString *nameOf(id thing) {
  NSError *error = nil;
  NSString *name = [[WRTIStorageItemBridge cast:thing] getNameWithError:&error];
  printf("the name is \"%s\", %s\n", [name UTF8String] ? [name UTF8String] : "",
         error ? "with an error" : "without an error");
  return name;
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  WRTUriBridge *address = [WRTUriBridge createUriWithUri:@"https://example.org/a" error:NULL];
  NSString *name = nameOf(address);
  [pool release];
  return name ? 1 : 0;
}
