// What debuggers are shown: a value of each sort in `look`, then a call of a member.

#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.h>

static HRESULT look(id bridge, id plain, HSTRING string, GUID identifier, HRESULT status) {
  return bridge && plain && string && identifier.Data1 ? status : 0;
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  WRTUriBridge *uri = [WRTUriBridge createUriWithUri:@"https://example.org/" error:NULL];
  id bridge = [[WRTIStorageItemBridge cast:uri] retain];
  GUID identifier = {0x4207A996, 0xCA2F, 0x42F7, {0xBD, 0xE8, 0x8B, 0x10, 0x45, 0x7A, 0x7F, 0x30}};
  HSTRING string = WRTCreateHSTRINGFromNSString(@"Grüße");
  HRESULT status = look(bridge, pool, string, identifier, (HRESULT)0x8000000B);
  NSString *name = [bridge getNameWithError:NULL];
  [pool release];
  return status < 0 && !name ? 0 : 1;
}
