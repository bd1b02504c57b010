#import "Output.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <unistd.h>

static int firstError;

static void note(BOOL written) {
  if (!written && firstError == 0)
    firstError = errno ? errno : EIO;
}

/// Whether nothing has failed; says so if something has.
static BOOL isComplete(void) {
  if (firstError != 0)
    fprintf(stderr, "tour: cannot write the output: %s\n", strerror(firstError));
  return firstError == 0;
}

BOOL openOutput(void) {
  signal(SIGPIPE, SIG_IGN); // a closed pipe is an error like others
  note(fcntl(STDOUT_FILENO, F_GETFD) >= 0);
  // A file that is opened later must not take a stream's place.
  int descriptor = STDIN_FILENO;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO)
    descriptor = open("/dev/null", O_RDWR);
  close(descriptor);
  return isComplete();
}

void print(NSString *text) {
  if (firstError == 0)
    note(fputs([text UTF8String], stdout) >= 0);
}

BOOL closeOutput(void) {
  if (firstError == 0)
    note(fflush(stdout) == 0);
  return isComplete();
}

NSUInteger outputColumns(void) {
  struct winsize size;
  if (!isatty(STDOUT_FILENO))
    return 0;
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}
