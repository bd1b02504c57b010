#import "Summary.h"

#import "Names.h"
#import "Waiting.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.h>

#include <stdlib.h>
#include <string.h>

WRTStorageFolderBridge *openFolder(NSString *path, NSError **error) {
  id<WRTIAsyncOperation__1_WRTStorageFolder_P_Bridge> opening =
      waitFor([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:error], error);
  return [opening getResultsWithError:error];
}

/// Whether the action has ended well.
static BOOL finish(id<WRTIAsyncActionBridge> action, NSError **error) {
  NSError *problem = nil;
  action = waitFor(action, &problem);
  [action getResultsWithError:&problem];
  if (problem)
    *error = problem;
  return action && !problem;
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
  id<WRTIAsyncOperation__1_WRTStorageFile_P_Bridge> creating =
      waitFor([folder createFileAsyncWithDesiredName:nameOfBytes(name) options:option error:&error],
              &error);
  WRTStorageFileBridge *file = [creating getResultsWithError:&error];
  if (!file)
    return error;
  NSString *created = [file getPathWithError:NULL];
  if (created)
    *place = created;
  if (finish([WRTFileIOBridge writeTextAsyncWithFile:(id)file contents:text error:&error], &error))
    return nil;
  NSError *first = error;
  finish([file deleteAsyncOverloadDefaultOptionsWithError:&error], &error);
  return first;
}
