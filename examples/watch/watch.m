// A query that is watched: the application layer in one program. Types of files are handed in as a
// collection, an event tells of the change, sizes are kept as boxed values in a map of the Windows
// Runtime, and no wait takes longer than five seconds.

#import <WRTObjcBridge/Windows.Storage.FileProperties.h>
#import <WRTObjcBridge/Windows.Storage.Search.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTSupport/WRTSupport.h>

#include <stdio.h>

static NSDate *soon(void) { return [NSDate dateWithTimeIntervalSinceNow:5]; }

/// Keeps the size of each file under its name; the number of files, or -1 with an error.
static int keepSizes(WRTStorageFileQueryResultBridge *query, WRTResourceDictionaryBridge *sizes,
                     NSError **error) {
  int count = 0;
  __auto_type files =
      WRTAwaitUntil([query getFilesAsyncDefaultStartAndCountWithError:error], soon(), error);
  for (WRTStorageFileBridge *file in WRTEach(files, error)) {
    WRTBasicPropertiesBridge *properties =
        WRTAwaitUntil([file getBasicPropertiesAsyncWithError:error], soon(), error);
    if (!properties)
      return -1;
    bool replaced = false;
    unsigned long long size = [properties getSizeWithError:error];
    [sizes insertWithKey:WRTBox([file getNameWithError:error], error)
                   value:WRTBox(@(size), error)
                replaced:&replaced
                   error:error];
    ++count;
  }
  return files ? count : -1;
}

static int watch(NSString *path, NSError **error) {
  WRTStorageFolderBridge *folder = WRTAwaitUntil(
      [WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:error], soon(), error);
  if (!folder)
    return 1;
  WRTStorageFileQueryResultBridge *query =
      WRTTry([folder createFileQueryWithQuery:WRTCommonFileQueryDefaultQuery error:error], error);
  WRTResourceDictionaryBridge *sizes = [[[WRTResourceDictionaryBridge alloc] init] autorelease];
  WRTSubscription *watching =
      query
          ? WRTSubscribe(
                query, ContentsChanged, Handler, error,
                ^HRESULT(id<WRTIStorageQueryResultBaseBridge> sender, id unused) {
                  (void)unused;
                  NSError *failure = nil;
                  if (keepSizes([WRTStorageFileQueryResultBridge cast:sender], sizes, &failure) < 0)
                    fprintf(stderr, "watch: %s\n", [WRTErrorDescription(failure) UTF8String]);
                  return 0;
                })
          : nil;
  if (!watching)
    return 1;

  id types = WRTVectorOf((@[ @".txt", @".xml" ]), WRTIIterable__1_WRTHSTRING_Bridge, error);
  WRTQueryOptionsBridge *options =
      WRTTry([WRTQueryOptionsBridge createCommonFileQueryWithQuery:WRTCommonFileQueryOrderByName
                                                    fileTypeFilter:types
                                                             error:error],
             error);
  WRTTry([query applyNewQueryOptionsWithNewQueryOptions:options error:error], error);
  [watching cancel];

  NSDictionary *kept = WRTDictionary(sizes, error);
  for (NSString *name in [[kept allKeys] sortedArrayUsingSelector:@selector(compare:)])
    printf("%-16s %6llu B\n", [name UTF8String],
           [WRTUnbox([kept objectForKey:name], error) unsignedLongLongValue]);
  return [kept count] ? 0 : 1;
}

int main(int argc, char **argv) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;
  NSString *path = [NSString stringWithUTF8String:argc > 1 ? argv[1] : WATCH_DATA];
  int status = watch(path, &error);
  if (status)
    fprintf(stderr, "watch: %s\n", [WRTErrorDescription(error) UTF8String]);
  [pool release];
  return status;
}
