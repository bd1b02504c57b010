// Names of files, which on this system are bytes, as strings and on a terminal.

#import <Foundation/Foundation.h>

/// A byte that is no UTF-8 becomes a lone surrogate (U+DC80 to U+DCFF), as it does in the strings
/// of the storage classes, so that the string finds the file again.
NSString *nameOfBytes(const char *bytes);
/// One behind the other. (GNUstep's constructors refuse lone surrogates; appending does not.)
NSString *joined(NSString *first, NSString *second);
/// The name as it may be shown: in plain UTF-8, with backslashes, control characters and bytes that
/// are none escaped: "\\", "\n", "\x1B", "\u202E".
NSString *shownName(NSString *name);

/// The names of the folders in a folder, in the order of their bytes, links to folders left out.
/// (Lists of folders have no bridge that gives their elements.)
NSArray *foldersIn(NSString *path);

/// How many columns the text takes on a terminal.
NSUInteger columnsOf(NSString *text);
/// The text in at most that many columns, with "…" for a part in the middle if it is longer.
NSString *shortenedTo(NSString *text, NSUInteger columns);
