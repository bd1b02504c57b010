#import "Summary.h"

#import "Names.h"

#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

#include <stdlib.h>
#include <string.h>

WRTStorageFolderBridge *openFolder(NSString *path, NSError **error) {
  return WRTAwait([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:error], error);
}

NSError *writeSummary(NSString *text, const char *path, BOOL replaces, NSString **place) {
  const char *name = strrchr(path, '/') + 1;
  char *parent = strndup(path, name - path);
  NSError *error = nil;
  WRTStorageFolderBridge *folder = openFolder(nameOfBytes(parent), &error);
  free(parent);
  *place = nameOfBytes(path);
  const int option = replaces ? WRTCreationCollisionOptionReplaceExisting
                              : WRTCreationCollisionOptionGenerateUniqueName;
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
