// A tour of a folder: an application that works on the user's own files through the bridges alone.

#import "FileVisit.h"
#import "Findings.h"
#import "Names.h"
#import "Output.h"
#import "Summary.h"

#import <WRTObjcBridge/Windows.Storage.Search.h>
#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

#include <fts.h>
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

/// The path from the root on, "." and ".." left for the system; to be freed. One that begins
/// elsewhere begins in the folder.
static char *absolutePath(const char *folder, const char *path) {
  char *whole = NULL;
  const BOOL isWhole = path[0] == '/' || !folder;
  if (asprintf(&whole, "%s%s%s", isWhole ? "" : folder, isWhole ? "" : "/", path) < 0)
    abort();
  return whole;
}

/// The folder's files, all of them read from the list before it can change; nil and an error.
static NSArray *filesIn(const char *path, NSError **error) {
  WRTStorageFolderBridge *folder = openFolder(nameOfBytes(path), error);
  WRTQueryOptionsBridge *options = [[[WRTQueryOptionsBridge alloc] init] autorelease];
  WRTStorageFileQueryResultBridge *query =
      [folder createFileQueryWithOptionsWithQueryOptions:options error:error];
  id files = WRTAwait([query getFilesAsyncDefaultStartAndCountWithError:error], error);
  return files ? WRTArray(files, error) : nil;
}

static int compareNames(const FTSENT **left, const FTSENT **right) {
  return strcmp((*left)->fts_name, (*right)->fts_name);
}

/// Of the folder and, if `deep`, of those below it: the files, behind the name as seen from the
/// first, which is empty there and has a slash at its end elsewhere. A folder that cannot be read
/// is reported. (Lists of folders have no bridge that gives their elements.)
static NSArray *plan(char *path, BOOL deep, Findings *findings) {
  NSMutableArray *stops = [NSMutableArray array];
  char *roots[] = {path, NULL};
  FTS *tree = fts_open(roots, FTS_PHYSICAL | FTS_COMFOLLOW | FTS_NOCHDIR, compareNames);
  if (!tree)
    abort();
  for (FTSENT *entry; (entry = fts_read(tree)) != NULL;) {
    const BOOL isFirst = entry->fts_level == 0;
    if (entry->fts_info != FTS_D && !(isFirst && entry->fts_info != FTS_DP))
      continue;
    const char *below = entry->fts_path + strlen(path);
    NSString *name =
        isFirst ? @"" : [NSString stringWithFormat:@"%@/", nameOfBytes(below + (*below == '/'))];
    NSError *error = nil;
    NSArray *files = filesIn(entry->fts_path, &error);
    if (files)
      [stops addObject:[NSArray arrayWithObjects:name, files, nil]];
    else
      [findings report:@"read the folder" on:isFirst ? nameOfBytes(path) : name error:error];
    if (!deep || !files)
      fts_set(tree, entry, FTS_SKIP);
  }
  fts_close(tree);
  return stops;
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
  for (NSArray *stop in stops) {
    for (WRTStorageFileBridge *file in [stop objectAtIndex:1]) {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      showProgress(done++, count);
      visitFile(file, [stop objectAtIndex:0], findings);
      [pool release];
    }
  }
  showProgress(count, count);
}

static void keepSummary(const char *path, BOOL replaces, Findings *findings) {
  NSString *place = nil;
  NSError *error = writeSummary([findings tableWithin:0], path, replaces, &place);
  if (error)
    [findings report:@"write the summary" on:place error:error];
  else
    print([NSString stringWithFormat:@"\nThe summary is in %@\n", shownName(place)]);
}

/// How many problems there were.
static unsigned tour(const char *folder, const char *summary, BOOL deep) {
  Findings *findings = [[[Findings alloc] init] autorelease];
  const char *temporary = getenv("TMPDIR");
  if (!temporary || temporary[0] != '/')
    temporary = "/tmp";
  char *here = get_current_dir_name();
  char *path = absolutePath(here, folder);
  char *kept = summary ? absolutePath(here, summary) : absolutePath(temporary, "tour-summary.txt");
  NSArray *stops = plan(path, deep, findings);
  if ([stops count] > 0) {
    unsigned count = 0;
    for (NSArray *stop in stops)
      count += [[stop objectAtIndex:1] count];
    print([NSString stringWithFormat:@"%@: %u files\n\n", shownName(nameOfBytes(folder)), count]);
    visitAll(stops, count, findings);
    print([findings tableWithin:outputColumns()]);
    keepSummary(kept, summary != NULL, findings);
  }
  if ([findings problems])
    fprintf(stderr, "tour: %u problems\n", [findings problems]);
  free(kept);
  free(path);
  free(here);
  return [findings problems];
}

static int wrong(const char *what, const char *argument) {
  fprintf(stderr, "tour: %s \"%s\"\n%s", what, [shownName(nameOfBytes(argument)) UTF8String],
          kUsage);
  return 2;
}

int main(int argc, char **argv) {
  // Foundation reads all arguments and the environment in this encoding and ends the program where
  // it cannot; here every byte is a character.
  setenv("GNUSTEP_STRING_ENCODING", "NSISOLatin1StringEncoding", 1);
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
