#import "Names.h"

#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <wchar.h>

/// Any UTF-16 units.
@interface UnitString : NSString {
  NSData *_units;
}
@end

@implementation UnitString

- (instancetype)initWithUnits:(NSData *)units {
  self = [super init];
  _units = [units retain];
  return self;
}

- (void)dealloc {
  [_units release];
  [super dealloc];
}

- (NSUInteger)length {
  return [_units length] / sizeof(unichar);
}

- (unichar)characterAtIndex:(NSUInteger)index {
  return ((const unichar *)[_units bytes])[index];
}

@end

enum { kByteSurrogates = 0xDC00 };

static BOOL isHigh(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
static BOOL isLow(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

NSString *joined(NSString *first, NSString *second) {
  NSMutableString *result = [NSMutableString string];
  [result appendString:first];
  [result appendString:second];
  return result;
}

NSString *nameOfBytes(const char *bytes) {
  NSMutableData *units = [NSMutableData data];
  mbstate_t state = {0};
  for (const char *end = bytes + strlen(bytes); bytes < end;) {
    wchar_t character;
    size_t size = mbrtowc(&character, bytes, end - bytes, &state);
    unichar pair[2] = {0};
    if (size > 4 || (character >= 0xD800 && character < 0xE000) || character > 0x10FFFF) {
      pair[0] = kByteSurrogates + (unsigned char)*bytes;
      size = 1;
      memset(&state, 0, sizeof state);
    } else if (character > 0xFFFF) {
      pair[0] = 0xD800 + ((character - 0x10000) >> 10);
      pair[1] = 0xDC00 + ((character - 0x10000) & 0x3FF);
    } else {
      pair[0] = character;
    }
    [units appendBytes:pair length:(pair[1] ? 2 : 1) * sizeof(unichar)];
    bytes += size;
  }
  UnitString *name = [[[UnitString alloc] initWithUnits:units] autorelease];
  return joined(name, @"");
}

/// The character at `*index`, which moves behind it.
static wchar_t nextCharacter(NSString *text, NSUInteger *index) {
  const unsigned unit = [text characterAtIndex:(*index)++];
  if (isHigh(unit) && *index < [text length]) {
    const unsigned low = [text characterAtIndex:*index];
    if (isLow(low)) {
      ++*index;
      return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
    }
  }
  return unit;
}

/// With a zero behind them.
static NSData *bytesOfName(NSString *name) {
  NSMutableData *bytes = [NSMutableData data];
  for (NSUInteger i = 0; i < [name length];) {
    const wchar_t character = nextCharacter(name, &i);
    char encoded[16];
    mbstate_t state = {0};
    size_t size = wcrtomb(encoded, character, &state);
    if (isLow(character)) {
      encoded[0] = (char)(character - kByteSurrogates);
      size = 1;
    }
    if (size <= sizeof encoded)
      [bytes appendBytes:encoded length:size];
  }
  [bytes appendBytes:"" length:1];
  return bytes;
}

static int compareBytes(const struct dirent **left, const struct dirent **right) {
  return strcmp((*left)->d_name, (*right)->d_name);
}

NSArray *foldersIn(NSString *path) {
  NSMutableArray *names = [NSMutableArray array];
  struct dirent **entries;
  const char *folder = [bytesOfName(path) bytes];
  const int count = scandir(folder, &entries, NULL, compareBytes);
  for (int i = 0; i < count; ++i) {
    const char *name = entries[i]->d_name;
    char *whole;
    struct stat status;
    if (strcmp(name, ".") != 0 && strcmp(name, "..") != 0 &&
        asprintf(&whole, "%s/%s", folder, name) >= 0) {
      if (lstat(whole, &status) == 0 && S_ISDIR(status.st_mode))
        [names addObject:nameOfBytes(name)];
      free(whole);
    }
    free(entries[i]);
  }
  if (count >= 0)
    free(entries);
  return names;
}

/// Whether a terminal or a reader would take it for something else than itself.
static BOOL isHidden(wchar_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2060 && c <= 0x206F) || isHigh(c) || isLow(c) ||
         c == 0xFEFF;
}

NSString *shownName(NSString *name) {
  NSMutableString *shown = [NSMutableString string];
  for (NSUInteger i = 0; i < [name length];) {
    const NSUInteger start = i;
    const wchar_t character = nextCharacter(name, &i);
    if (character == '\\')
      [shown appendString:@"\\\\"];
    else if (character == '\n')
      [shown appendString:@"\\n"];
    else if (character == '\t')
      [shown appendString:@"\\t"];
    else if (isLow(character) && character <= kByteSurrogates + 0xFF)
      [shown appendFormat:@"\\x%02X", character - kByteSurrogates];
    else if (character < 0x80 && isHidden(character))
      [shown appendFormat:@"\\x%02X", character];
    else if (isHidden(character))
      [shown appendFormat:@"\\u%04X", character];
    else
      [shown appendString:[name substringWithRange:NSMakeRange(start, i - start)]];
  }
  return shown;
}

static NSUInteger columnsOfCharacter(wchar_t character) {
  const int columns = wcwidth(character);
  return columns < 0 ? 1 : columns;
}

NSUInteger columnsOf(NSString *text) {
  NSUInteger columns = 0;
  for (NSUInteger i = 0; i < [text length];)
    columns += columnsOfCharacter(nextCharacter(text, &i));
  return columns;
}

NSString *shortenedTo(NSString *text, NSUInteger columns) {
  const NSUInteger all = columnsOf(text);
  if (all <= columns || columns == 0)
    return text;
  // Two thirds of what is left beside the "…" for the beginning, the rest for the end.
  const NSUInteger before = (columns - 1) - (columns - 1) / 3;
  const NSUInteger after = (columns - 1) / 3;
  NSUInteger head = 0, seen = 0, i = 0;
  for (; i < [text length]; head = i) {
    seen += columnsOfCharacter(nextCharacter(text, &i));
    if (seen > before)
      break;
  }
  NSUInteger tail = head;
  for (i = tail, seen = columnsOf([text substringToIndex:head]); all - seen > after; tail = i)
    seen += columnsOfCharacter(nextCharacter(text, &i));
  return [NSString
      stringWithFormat:@"%@…%@", [text substringToIndex:head], [text substringFromIndex:tail]];
}
