// Names of files, which on this system are bytes, as strings and on a terminal.

#import <Foundation/Foundation.h>

/// A byte that is no UTF-8 becomes a lone surrogate (U+DC80 to U+DCFF), as it does in the strings
/// of the storage classes, so that the string finds the file again. (Formats take such strings;
/// other ways of joining them refuse lone surrogates.)
NSString *nameOfBytes(const char *bytes);
/// The name as it may be shown: in plain UTF-8, with backslashes, control characters and bytes that
/// are none escaped: "\\", "\n", "\x1B", "\u202E".
NSString *shownName(NSString *name);

/// How many columns the text takes on a terminal.
NSUInteger columnsOf(NSString *text);
/// The text in at most that many columns, 10 or more, with "…" for a part in the middle if it is
/// longer.
NSString *shortenedTo(NSString *text, NSUInteger columns);
