// A tour of a folder: an application that works on the user's own files through the bridges alone.

#import "FileVisit.h"
#import "Findings.h"
#import "Waiting.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.Search.h>
#import <WRTObjcBridge/Windows.Storage.h>

#include <stdio.h>
#include <string.h>
#include <unistd.h>

static const char kUsage[] =
    "Usage: tour [--deep] [--summary FILE] [FOLDER]\n"
    "  Lists the files of FOLDER, reads them and prints what it found; without FOLDER those of\n"
    "  the examples' own data. Nothing in FOLDER is changed.\n"
    "  --deep          also the files of the folders below\n"
    "  --summary FILE  writes what it found into FILE too, replacing it; otherwise into a new "
    "file\n"
    "                  in the folder for temporary files\n"
    "Exit status: 0 if all went well, 1 if anything failed, 2 for wrong usage.\n";

static NSString *absolutePath(NSString *path) {
  if ([path isAbsolutePath])
    return path;
  NSString *here = [[NSFileManager defaultManager] currentDirectoryPath];
  return [[here stringByAppendingPathComponent:path] stringByStandardizingPath];
}

static WRTStorageFolderBridge *openFolder(NSString *path, NSError **error) {
  id<WRTIAsyncOperation__1_WRTStorageFolder_P_Bridge> opening =
      waitFor([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:error], error);
  return [opening getResultsWithError:error];
}

/// A vector view of the files that a query over the folder yields.
static id<WRTIVectorView__1_WRTStorageFile_P_Bridge> listFiles(WRTStorageFolderBridge *folder,
                                                               BOOL deep, NSError **error) {
  WRTQueryOptionsBridge *options = [[[WRTQueryOptionsBridge alloc] init] autorelease];
  [options setFolderDepthWithValue:deep ? WRTFolderDepthDeep : WRTFolderDepthShallow error:error];
  WRTStorageFileQueryResultBridge *query =
      [folder createFileQueryWithOptionsWithQueryOptions:options error:error];
  id<WRTIAsyncOperation__1_WRTIVectorView__1_WRTStorageFile_P_P_Bridge> listing =
      waitFor([query getFilesAsyncDefaultStartAndCountWithError:error], error);
  return [listing getResultsWithError:error];
}

/// On a terminal one line that is written over, elsewhere a line for each tenth.
static void showProgress(unsigned done, unsigned count) {
  if (isatty(STDERR_FILENO))
    fprintf(stderr, done < count ? "\rreading %u of %u" : "\r\033[K", done + 1, count);
  else if (count >= 100 && (done * 10 / count) != ((done + 1) * 10 / count))
    fprintf(stderr, "tour: read %u of %u\n", done + 1, count);
}

static void visitAll(id<WRTIVectorView__1_WRTStorageFile_P_Bridge> files, Findings *findings) {
  enum { kBatch = 64 };
  const unsigned count = [files getSizeWithError:NULL];
  for (unsigned start = 0; start < count; start += kBatch) {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    NSError *error = nil;
    NSArray *batch = [files getManyWithStartIndex:start capacity:kBatch error:&error];
    if (!batch)
      [findings report:@"list" on:[NSString stringWithFormat:@"from %u on", start] error:error];
    unsigned done = start;
    for (WRTStorageFileBridge *file in batch) {
      showProgress(done++, count);
      visitFile(file, findings);
    }
    [pool release];
  }
  if (isatty(STDERR_FILENO))
    showProgress(count, count);
}

/// Writes the text into a file; its path, or nil with an error.
static NSString *writeSummary(NSString *text, NSString *path, NSError **error) {
  NSString *place = path ? [path stringByDeletingLastPathComponent] : NSTemporaryDirectory();
  NSString *name = path ? [path lastPathComponent] : @"tour-summary.txt";
  const int option = path ? WRTCreationCollisionOptionReplaceExisting
                          : WRTCreationCollisionOptionGenerateUniqueName;
  WRTStorageFolderBridge *folder = openFolder(place, error);
  id<WRTIAsyncOperation__1_WRTStorageFile_P_Bridge> creating =
      waitFor([folder createFileAsyncWithDesiredName:name options:option error:error], error);
  WRTStorageFileBridge *file = [creating getResultsWithError:error];
  id<WRTIAsyncActionBridge> writing =
      waitFor([WRTFileIOBridge writeTextAsyncWithFile:(id)file contents:text error:error], error);
  NSError *problem = nil;
  [writing getResultsWithError:&problem];
  if (!writing || problem) {
    if (problem)
      *error = problem;
    return nil;
  }
  return [file getPathWithError:error];
}

static int tour(NSString *path, NSString *summary, BOOL deep) {
  Findings *findings = [[[Findings alloc] init] autorelease];
  NSError *error = nil;
  WRTStorageFolderBridge *folder = openFolder(path, &error);
  id<WRTIVectorView__1_WRTStorageFile_P_Bridge> files =
      folder ? listFiles(folder, deep, &error) : nil;
  if (!files) {
    [findings report:@"open the folder" on:path error:error];
    return 1;
  }
  printf("%s: %u files\n\n", [path UTF8String], [files getSizeWithError:NULL]);
  visitAll(files, findings);
  NSString *table = [findings table];
  fputs([table UTF8String], stdout);

  NSString *written = writeSummary(table, summary, &error);
  if (written)
    printf("\nThe summary is in %s\n", [written UTF8String]);
  else
    [findings report:@"write the summary"
                  on:summary ? summary : NSTemporaryDirectory()
               error:error];
  if ([findings problems])
    fprintf(stderr, "tour: %u problems\n", [findings problems]);
  return [findings problems] ? 1 : 0;
}

int main(int argc, char **argv) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  const char *folder = NULL, *summary = NULL;
  BOOL deep = NO;
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--help") == 0 || strcmp(argv[i], "-h") == 0) {
      fputs(kUsage, stdout);
      return 0;
    }
    if (strcmp(argv[i], "--deep") == 0) {
      deep = YES;
    } else if (strcmp(argv[i], "--summary") == 0 && i + 1 < argc) {
      summary = argv[++i];
    } else if (argv[i][0] != '-' && !folder) {
      folder = argv[i];
    } else {
      fprintf(stderr, "tour: unexpected argument \"%s\"\n%s", argv[i], kUsage);
      return 2;
    }
  }
  NSString *path = [NSString stringWithUTF8String:folder ? folder : TOUR_DATA];
  NSString *summaryPath = summary ? [NSString stringWithUTF8String:summary] : nil;
  const int status = tour(absolutePath(path), summaryPath ? absolutePath(summaryPath) : nil, deep);
  [pool release];
  return status;
}
