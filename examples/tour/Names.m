#import "Names.h"

#include <string.h>
#include <wchar.h>

enum { kByteSurrogates = 0xDC00 };

static BOOL isHigh(unsigned unit) { return unit >= 0xD800 && unit < 0xDC00; }
static BOOL isLow(unsigned unit) { return unit >= 0xDC00 && unit < 0xE000; }

NSString *nameOfBytes(const char *bytes) {
  NSMutableString *name = [NSMutableString string];
  for (const char *end = bytes + strlen(bytes); bytes < end;) {
    wchar_t character;
    mbstate_t state = {0};
    size_t size = mbrtowc(&character, bytes, end - bytes, &state);
    if (size > 4 || isHigh(character) || isLow(character) || character > 0x10FFFF) {
      character = kByteSurrogates + (unsigned char)*bytes;
      size = 1;
    }
    if (character > 0xFFFF)
      [name appendFormat:@"%C", (unichar)(0xD7C0 + (character >> 10))];
    const unsigned last = character > 0xFFFF ? 0xDC00 + (character & 0x3FF) : character;
    [name appendFormat:@"%C", (unichar)last];
    bytes += size;
  }
  return name;
}

/// The character that begins at the index; 0 at the second half of one.
static wchar_t characterAt(NSString *text, NSUInteger index) {
  const unsigned unit = [text characterAtIndex:index];
  const unsigned next = index + 1 < [text length] ? [text characterAtIndex:index + 1] : 0;
  if (isHigh(unit) && isLow(next))
    return 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
  return isLow(unit) && index > 0 && isHigh([text characterAtIndex:index - 1]) ? 0 : unit;
}

/// Whether a terminal or a reader would take it for something else than itself.
static BOOL isHidden(wchar_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200B && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2060 && c <= 0x206F) || isHigh(c) || isLow(c) ||
         c == 0xFEFF;
}

NSString *shownName(NSString *name) {
  static const wchar_t kKnown[] = L"\\\n\t";
  NSMutableString *shown = [NSMutableString string];
  for (NSUInteger i = 0; i < [name length]; ++i) {
    const wchar_t character = characterAt(name, i);
    const BOOL isByte = character < 0x80 || character >> 8 == kByteSurrogates >> 8;
    const wchar_t *known = wcschr(kKnown, character);
    if (character != 0 && known)
      [shown appendFormat:@"\\%c", "\\nt"[known - kKnown]];
    else if (character != 0 && isHidden(character))
      [shown appendFormat:isByte ? @"\\x%02X" : @"\\u%04X", character & (isByte ? 0xFF : 0xFFFF)];
    else
      [shown appendFormat:@"%C", [name characterAtIndex:i]];
  }
  return shown;
}

static NSUInteger columnsAt(NSString *text, NSUInteger index) {
  const int columns = wcwidth(characterAt(text, index));
  return columns < 0 ? 1 : columns;
}

NSUInteger columnsOf(NSString *text) {
  NSUInteger columns = 0;
  for (NSUInteger i = 0; i < [text length]; ++i)
    columns += columnsAt(text, i);
  return columns;
}

NSString *shortenedTo(NSString *text, NSUInteger columns) {
  NSUInteger left = columnsOf(text);
  if (left <= columns)
    return text;
  // Two thirds of what is left beside the "…" for the beginning, the rest for the end.
  const NSUInteger after = (columns - 1) / 3;
  NSUInteger before = columns - 1 - after, head = 0, tail = 0;
  for (; columnsAt(text, head) <= before; ++head)
    before -= columnsAt(text, head);
  for (; left > after || columnsAt(text, tail) == 0; ++tail)
    left -= columnsAt(text, tail);
  return [NSString
      stringWithFormat:@"%@…%@", [text substringToIndex:head], [text substringFromIndex:tail]];
}
