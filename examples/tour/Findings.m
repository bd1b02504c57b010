#import "Findings.h"

#import "Names.h"

#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>

#include <stdio.h>

enum { kColumns = 4 };

@implementation Findings
@synthesize problems = _problems;

- (instancetype)init {
  self = [super init];
  if (self) {
    _totals = [[WRTResourceDictionaryBridge alloc] init];
    _names = [[NSMutableArray alloc] init];
    _rows = [[NSMutableArray alloc] init];
  }
  return self;
}

- (void)dealloc {
  [_totals release];
  [_names release];
  [_rows release];
  [super dealloc];
}

- (void)addRow:(NSArray *)cells {
  [_rows addObject:cells];
}

- (unsigned long long)total:(NSString *)name {
  id key = [WRTPropertyValueBridge createStringWithValue:name error:NULL];
  if (![_totals hasKeyWithKey:key error:NULL])
    return 0;
  id value = [_totals lookupWithKey:key error:NULL];
  return [[WRTIPropertyValueBridge cast:value] getUInt64WithError:NULL];
}

- (void)add:(unsigned long long)amount to:(NSString *)total {
  if (![_names containsObject:total])
    [_names addObject:total];
  id key = [WRTPropertyValueBridge createStringWithValue:total error:NULL];
  id sum = [WRTPropertyValueBridge createUInt64WithValue:[self total:total] + amount error:NULL];
  bool replaced = false;
  NSError *error = nil;
  [_totals insertWithKey:key value:sum replaced:&replaced error:&error];
  if (error)
    [self report:@"keep the total of" on:total error:error];
}

- (void)report:(NSString *)what on:(NSString *)name error:(NSError *)error {
  ++_problems;
  fprintf(stderr, "tour: cannot %s \"%s\": %s\n", [what UTF8String], [shownName(name) UTF8String],
          [describeError(error) UTF8String]);
}

static void appendRow(NSMutableString *text, NSArray *cells, const NSUInteger *widths) {
  for (NSUInteger i = 0; i < kColumns; ++i) {
    NSString *cell = [cells objectAtIndex:i];
    if (i == 0)
      cell = shortenedTo(cell, widths[i]);
    NSUInteger columns = columnsOf(cell);
    NSUInteger gap = widths[i] > columns ? widths[i] - columns : 0;
    NSString *space = [@"" stringByPaddingToLength:gap withString:@" " startingAtIndex:0];
    BOOL isNumber = i == 1;
    BOOL isLast = i == kColumns - 1;
    [text appendString:isNumber ? space : @""];
    [text appendString:cell];
    [text appendString:isNumber || isLast ? @"" : space];
    [text appendString:isLast ? @"\n" : @"  "];
  }
}

- (NSString *)tableWithin:(NSUInteger)columns {
  NSArray *heading = [NSArray arrayWithObjects:@"file", @"size", @"modified", @"what it is", nil];
  NSUInteger widths[kColumns] = {0};
  for (NSArray *cells in [_rows arrayByAddingObject:heading]) {
    for (NSUInteger i = 0; i < kColumns; ++i)
      widths[i] = MAX(widths[i], columnsOf([cells objectAtIndex:i]));
  }
  enum { kGaps = 6, kLeastName = 20 };
  const NSUInteger others = widths[1] + widths[2] + widths[3] + kGaps;
  if (columns > 0 && widths[0] + others > columns)
    widths[0] = MIN(widths[0], MAX(kLeastName, columns > others ? columns - others : 0));
  NSMutableString *text = [NSMutableString string];
  appendRow(text, heading, widths);
  for (NSArray *cells in _rows)
    appendRow(text, cells, widths);
  [text appendString:@"\ntotals\n"];
  for (NSString *name in _names) {
    NSString *label = [name stringByPaddingToLength:16 withString:@" " startingAtIndex:0];
    [text appendFormat:@"  %@%12llu\n", label, [self total:name]];
  }
  return text;
}

@end

NSString *describeError(NSError *error) {
  if (!error)
    return @"no answer";
  const unsigned status = (unsigned)[error code];
  const char *words = "failed";
  switch (status) {
  case 0x80070002:
  case 0x80070003:
    words = "not found";
    break;
  case 0x80070005:
    words = "access denied";
    break;
  case 0x80070057:
    words = "not possible for this kind of item";
    break;
  case 0x80070459:
    words = "not a text in UTF-8 or UTF-16";
    break;
  case 0x80004001:
    words = "not implemented here";
    break;
  case 0x80000013:
    words = "already closed";
    break;
  case 0x8007000E:
    words = "not enough memory";
    break;
  case 0x80070070:
    words = "the disk is full";
    break;
  case 0xC00CE556:
  case 0xC00CE558:
  case 0xC00CE56D:
    words = "not well-formed XML";
    break;
  }
  return [NSString stringWithFormat:@"%s (0x%08X)", words, status];
}

NSString *describeSize(unsigned long long bytes) {
  static const char *const units[] = {"B", "KB", "MB", "GB", "TB"};
  unsigned unit = 0;
  double size = bytes;
  for (; size >= 1000 && unit < 4; ++unit)
    size /= 1000;
  return [NSString stringWithFormat:unit ? @"%.1f %s" : @"%.0f %s", size, units[unit]];
}
