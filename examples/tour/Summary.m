#import "Summary.h"

#import "Names.h"

#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

#include <stdlib.h>
#include <string.h>

WRTStorageFolderBridge *openFolder(NSString *path, NSError **error) {
  return WRTAwait([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:error], error);
}

NSError *writeSummary(NSString *text, const char *path, NSString **place) {
  const char *folderPath = getenv("TMPDIR"), *name = "tour-summary.txt";
  int option = WRTCreationCollisionOptionGenerateUniqueName;
  char *parent = NULL;
  if (path) {
    name = strrchr(path, '/') + 1;
    folderPath = parent = strndup(path, name - path);
    option = WRTCreationCollisionOptionReplaceExisting;
  } else if (!folderPath || folderPath[0] != '/') {
    folderPath = "/tmp/";
  }
  NSString *parentName = nameOfBytes(folderPath);
  NSString *gap = [parentName hasSuffix:@"/"] ? @"" : @"/";
  *place = joined(parentName, joined(gap, nameOfBytes(name)));

  NSError *error = nil;
  WRTStorageFolderBridge *folder = openFolder(parentName, &error);
  free(parent);
  WRTStorageFileBridge *file = WRTAwait([folder createFileAsyncWithDesiredName:nameOfBytes(name)
                                                                       options:option
                                                                         error:&error],
                                        &error);
  if (!file)
    return error;
  NSString *created = [file getPathWithError:NULL];
  if (created)
    *place = created;
  if (WRTAwait([WRTFileIOBridge writeTextAsyncWithFile:(id)file contents:text error:&error],
               &error))
    return nil;
  WRTAwait([file deleteAsyncOverloadDefaultOptionsWithError:NULL], (NSError **)NULL);
  return error;
}
