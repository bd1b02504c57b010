#import "Findings.h"

#import "Names.h"

#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTSupport/WRTSupport.h>

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
  return [WRTUnbox([_totals lookupWithKey:WRTBox(name) error:NULL]) unsignedLongLongValue];
}

- (void)add:(unsigned long long)amount to:(NSString *)total {
  if (![_names containsObject:total])
    [_names addObject:total];
  bool replaced = false;
  NSError *error = nil;
  [_totals insertWithKey:WRTBox(total)
                   value:WRTBox(@([self total:total] + amount))
                replaced:&replaced
                   error:&error];
  if (error)
    [self report:@"keep the total of" on:total error:error];
}

- (void)report:(NSString *)what on:(NSString *)name error:(NSError *)error {
  ++_problems;
  fprintf(stderr, "tour: cannot %s \"%s\": %s\n", [what UTF8String], [shownName(name) UTF8String],
          [WRTErrorDescription(error) UTF8String]);
}

static void appendRow(NSMutableString *text, NSArray *cells, const NSUInteger *widths) {
  NSString *name = shortenedTo([cells objectAtIndex:0], widths[0]);
  const int gap = (int)(widths[0] - columnsOf(name));
  [text appendFormat:@"%@%*s  %*s  %-*s  %@\n", name, gap, "", (int)widths[1],
                     [[cells objectAtIndex:1] UTF8String], (int)widths[2],
                     [[cells objectAtIndex:2] UTF8String], [cells objectAtIndex:3]];
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
  for (NSString *name in _names)
    [text appendFormat:@"  %-16s%12llu\n", [name UTF8String], [self total:name]];
  return text;
}

@end

NSString *describeSize(unsigned long long bytes) {
  static const char *const units[] = {"B", "KB", "MB", "GB", "TB"};
  unsigned unit = 0;
  double size = bytes;
  for (; size >= 1000 && unit < 4; ++unit)
    size /= 1000;
  return [NSString stringWithFormat:unit ? @"%.1f %s" : @"%.0f %s", size, units[unit]];
}
