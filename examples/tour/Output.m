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

static BOOL isOpen(int descriptor) { return fcntl(descriptor, F_GETFD) >= 0; }

static BOOL say(void) {
  fprintf(stderr, "tour: cannot write the output: %s\n", strerror(firstError));
  return NO;
}

BOOL openOutput(void) {
  signal(SIGPIPE, SIG_IGN); // a closed pipe is an error like others
  note(isOpen(STDOUT_FILENO));
  // A file that is opened later must not take a stream's place.
  for (int descriptor = 0; descriptor <= STDERR_FILENO;) {
    if (isOpen(descriptor))
      ++descriptor;
    else if (open("/dev/null", O_RDWR) < 0)
      break;
  }
  return firstError == 0 || say();
}

void print(NSString *text) {
  if (firstError == 0)
    note(fputs([text UTF8String], stdout) >= 0);
}

BOOL closeOutput(void) {
  if (firstError == 0)
    note(fflush(stdout) == 0);
  return firstError == 0 || say();
}

NSUInteger outputColumns(void) {
  struct winsize size;
  if (!isatty(STDOUT_FILENO))
    return 0;
  return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}
