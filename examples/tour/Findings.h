#import <Foundation/Foundation.h>

@class WRTResourceDictionaryBridge;

/// What the tour has learnt: a row for each file, problems, and totals, which are kept as boxed
/// values in a map of the Windows Runtime and read back from there.
@interface Findings : NSObject {
  WRTResourceDictionaryBridge *_totals;
  NSMutableArray *_names;
  NSMutableArray *_rows;
  unsigned _problems;
}
/// How many things have gone wrong.
@property (readonly) unsigned problems;

- (void)addRow:(NSArray *)cells;
/// Adds to the total of that name.
- (void)add:(unsigned long long)amount to:(NSString *)total;
- (unsigned long long)total:(NSString *)name;
/// Tells on the error stream what could not be done, and with which file.
- (void)report:(NSString *)what on:(NSString *)name error:(NSError *)error;
/// The table of all rows with the totals below it. Long names are shortened if the rows would not
/// fit into so many columns otherwise; 0 for no limit.
- (NSString *)tableWithin:(NSUInteger)columns;
@end

/// "1.5 MB".
NSString *describeSize(unsigned long long bytes);
