#import <WRTSupport/WRTEnumeration.h>

#import <WRTSupport/WRTBoxing.h>

#include "support/implement/CollectionReader.h"
#include "support/implement/Failure.h"

using namespace wrt;
using support::CollectionReader;

@implementation WRTKeyValuePair
@synthesize key = _key;
@synthesize value = _value;

+ (instancetype)pairWithKey:(id)key value:(id)value {
  WRTKeyValuePair *pair = [[[self alloc] init] autorelease];
  pair->_key = [key retain];
  pair->_value = [value retain];
  return pair;
}

- (void)dealloc {
  [_key release];
  [_value release];
  [super dealloc];
}
@end

/// One passage through a collection.
@interface WRTPassage : NSObject <NSFastEnumeration> {
@public
  CollectionReader _reader;
  void (^_report)(NSError *);
  id _elements[CollectionReader::kBlock];
  unsigned long _neverChanges;
}
@end

@implementation WRTPassage
- (void)dealloc {
  _reader.close();
  [_report release];
  [super dealloc];
}

- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id __unsafe_unretained *)buffer
                                    count:(NSUInteger)room {
  (void)buffer, (void)room;
  state->state = 1;
  state->itemsPtr = _elements;
  state->mutationsPtr = &_neverChanges;
  uint32_t count = 0;
  const HRESULT status = _reader.read(_elements, &count);
  if (status == status::kChangedState)
    [NSException raise:NSGenericException format:@"A collection was changed while in a loop."];
  if (status < 0)
    _report(WRTCreateNSErrorFromHRESULT(status));
  return count;
}
@end

id<NSFastEnumeration> WRTEachReporting(id<WRTIInspectableBridge> collection,
                                       void (^report)(NSError *)) {
  WRTPassage *passage = [[[WRTPassage alloc] init] autorelease];
  passage->_report = [report copy];
  const HRESULT status = passage->_reader.open(collection);
  report(WRTCreateNSErrorFromHRESULT(status));
  return status < 0 ? nil : passage;
}

NSArray *WRTArray(id<WRTIInspectableBridge> collection, NSError **error) {
  NSMutableArray *array = [NSMutableArray array];
  CollectionReader reader{};
  HRESULT status = reader.open(collection);
  uint32_t count = 0;
  do {
    id elements[CollectionReader::kBlock];
    if (status >= 0)
      status = reader.read(elements, &count);
    for (uint32_t i = 0; status >= 0 && i < count; ++i)
      [array addObject:elements[i]];
  } while (status >= 0 && count != 0);
  reader.close();
  support::store(status, error);
  return status < 0 ? nil : array;
}

NSDictionary *WRTDictionary(id<WRTIInspectableBridge> map, NSError **error) {
  NSArray *pairs = WRTArray(map, error);
  NSMutableDictionary *dictionary = pairs ? [NSMutableDictionary dictionary] : nil;
  for (WRTKeyValuePair *pair in pairs) {
    id key = [pair isKindOfClass:[WRTKeyValuePair class]] ? [pair key] : nil;
    if ([key isKindOfClass:[WRTUnknownBridge class]])
      key = WRTUnbox(key);
    if (![key respondsToSelector:@selector(copyWithZone:)]) {
      support::store(status::kInvalidArgument, error);
      return nil;
    }
    [dictionary setObject:[pair value] forKey:key];
  }
  return dictionary;
}
