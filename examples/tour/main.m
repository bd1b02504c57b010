// A tour of a folder: an application that works on the user's own files through the bridges alone.

#import "FileVisit.h"
#import "Findings.h"
#import "Names.h"
#import "Output.h"
#import "Summary.h"

#import <WRTObjcBridge/Windows.Storage.Search.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

static const char kUsage[] =
    "Usage: tour [--deep] [--summary FILE] [FOLDER]\n"
    "  Lists the files of FOLDER, reads them and prints what it found; without FOLDER those of\n"
    "  the examples' own data. Nothing in FOLDER is changed.\n"
    "  --deep          also the files of the folders below, links to folders left aside\n"
    "  --summary FILE  writes what it found into FILE too, replacing it; otherwise into a new\n"
    "                  file in the folder for temporary files (TMPDIR)\n"
    "Exit status: 0 if all went well, 1 if anything failed, 2 for wrong usage.\n";

/// The path from the root on, "." and ".." left for the system; to be freed.
static char *absolutePath(const char *path) {
  char *whole = NULL;
  char *here = path[0] == '/' ? NULL : get_current_dir_name();
  if (asprintf(&whole, "%s%s%s", here ? here : "", here ? "/" : "", path) < 0)
    abort();
  free(here);
  return whole;
}

/// A folder of the tour with its files.
@interface Stop : NSObject {
@public
  NSString *name; ///< as seen from where the tour began, with a slash at its end; empty there
  id<WRTIVectorView__1_WRTStorageFile_P_Bridge> files;
}
@end

@implementation Stop
- (void)dealloc {
  [name release];
  [(id)files release];
  [super dealloc];
}
@end

/// Adds the folder and, if `deep`, those below it. A folder that cannot be read is reported, and
/// the others are added all the same. NO if this one cannot be.
static BOOL plan(WRTStorageFolderBridge *folder, NSString *name, BOOL deep, NSMutableArray *stops,
                 Findings *findings) {
  NSError *error = nil;
  WRTStorageFileQueryResultBridge *query = [folder
      createFileQueryWithOptionsWithQueryOptions:[[[WRTQueryOptionsBridge alloc] init] autorelease]
                                           error:&error];
  Stop *stop = [[[Stop alloc] init] autorelease];
  stop->name = [name retain];
  stop->files =
      [(id)WRTAwait([query getFilesAsyncDefaultStartAndCountWithError:&error], &error) retain];
  if (!stop->files) {
    [findings report:@"read the folder"
                  on:[name length] ? name : [folder getPathWithError:NULL]
               error:error];
    return NO;
  }
  [stops addObject:stop];
  if (!deep)
    return YES;
  for (NSString *own in foldersIn([folder getPathWithError:NULL])) {
    NSString *belowName = joined(name, joined(own, @"/"));
    WRTStorageFolderBridge *below =
        WRTAwait([folder getFolderAsyncWithName:own error:&error], &error);
    if (below)
      plan(below, belowName, YES, stops, findings);
    else
      [findings report:@"open the folder" on:belowName error:error];
  }
  return YES;
}

/// On a terminal one line that is written over, elsewhere a line for each tenth.
static void showProgress(unsigned done, unsigned count) {
  if (isatty(STDERR_FILENO))
    fprintf(stderr, done < count ? "\rreading %u of %u" : "\r\033[K", done + 1, count);
  else if (count >= 100 && (done * 10 / count) != ((done + 1) * 10 / count))
    fprintf(stderr, "tour: read %u of %u\n", done + 1, count);
}

static void visitAll(NSArray *stops, unsigned count, Findings *findings) {
  unsigned done = 0;
  for (Stop *stop in stops) {
    NSError *error = nil;
    for (WRTStorageFileBridge *file in WRTEach(stop->files, &error)) {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      showProgress(done++, count);
      visitFile(file, stop->name, findings);
      [pool release];
    }
    if (error)
      [findings report:@"list" on:stop->name error:error];
  }
  if (isatty(STDERR_FILENO))
    showProgress(count, count);
}

/// How many problems there were.
static unsigned tour(const char *folderPath, const char *summary, BOOL deep) {
  Findings *findings = [[[Findings alloc] init] autorelease];
  NSString *title = nameOfBytes(folderPath);
  NSError *error = nil;
  char *whole = absolutePath(folderPath);
  WRTStorageFolderBridge *folder = openFolder(nameOfBytes(whole), &error);
  free(whole);
  NSMutableArray *stops = [NSMutableArray array];
  if (!folder) {
    [findings report:@"open the folder" on:title error:error];
    return 1;
  }
  if (!plan(folder, @"", deep, stops, findings))
    return 1;
  unsigned count = 0;
  for (Stop *stop in stops)
    count += [stop->files getSizeWithError:NULL];
  print([NSString stringWithFormat:@"%@: %u files\n\n", shownName(title), count]);
  visitAll(stops, count, findings);
  print([findings tableWithin:outputColumns()]);

  char *place = summary ? absolutePath(summary) : NULL;
  NSString *written = nil;
  error = writeSummary([findings tableWithin:0], place, &written);
  free(place);
  if (error)
    [findings report:@"write the summary" on:written error:error];
  else
    print([NSString stringWithFormat:@"\nThe summary is in %@\n", shownName(written)]);
  if ([findings problems])
    fprintf(stderr, "tour: %u problems\n", [findings problems]);
  return [findings problems];
}

static int wrong(const char *what, const char *argument) {
  fprintf(stderr, "tour: %s \"%s\"\n%s", what, [shownName(nameOfBytes(argument)) UTF8String],
          kUsage);
  return 2;
}

int main(int argc, char **argv) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  setlocale(LC_CTYPE, "C.UTF-8"); // names are UTF-8, whatever the environment says
  if (!openOutput())
    return 1;
  const char *folder = NULL, *summary = NULL;
  BOOL deep = NO, help = NO;
  for (int i = 1; i < argc; ++i) {
    const char *argument = argv[i];
    if (strcmp(argument, "--help") == 0 || strcmp(argument, "-h") == 0) {
      help = YES;
    } else if (strcmp(argument, "--deep") == 0) {
      deep = YES;
    } else if (strcmp(argument, "--summary") == 0) {
      summary = ++i < argc ? argv[i] : "";
      if (!summary[0])
        return wrong("a file name is missing behind", argument);
    } else if (!argument[0] || argument[0] == '-' || folder) {
      return wrong("unexpected argument", argument);
    } else {
      folder = argument;
    }
  }
  unsigned problems = 0;
  if (help)
    print([NSString stringWithUTF8String:kUsage]);
  else
    problems = tour(folder ? folder : TOUR_DATA, summary, deep);
  const BOOL complete = closeOutput();
  [pool release];
  return problems || !complete ? 1 : 0;
}
