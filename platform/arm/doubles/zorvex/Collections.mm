#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

@interface NSArray () {
@package
  id *_elements;
  NSUInteger _count;
  NSUInteger _capacity;
  unsigned long _mutations;
}
@end

@interface NSEnumerator () {
@package
  NSArray *_array;
  NSUInteger _next;
  BOOL _reversed;
}
@end

namespace {

void append(NSArray *array, id object) {
  if (!object)
    hostEnd("nil is put into an array");
  if (array->_count == array->_capacity) {
    const NSUInteger capacity = array->_capacity ? 2 * array->_capacity : 4;
    auto *elements = static_cast<id *>(malloc(capacity * sizeof(id)));
    if (array->_count)
      memcpy(elements, array->_elements, array->_count * sizeof(id));
    free(array->_elements);
    array->_elements = elements;
    array->_capacity = capacity;
  }
  array->_elements[array->_count++] = [object retain];
  ++array->_mutations;
}

NSEnumerator *enumerate(NSArray *array, BOOL reversed) {
  NSEnumerator *enumerator = [[NSEnumerator alloc] init];
  enumerator->_array = [array retain];
  enumerator->_reversed = reversed;
  return [enumerator autorelease];
}

} // namespace

@implementation NSEnumerator
- (void)dealloc {
  [_array release];
  [super dealloc];
}
- (id)nextObject {
  if (_next == _array->_count)
    return nil;
  const NSUInteger index = _reversed ? _array->_count - 1 - _next : _next;
  ++_next;
  return _array->_elements[index];
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id *)buffer
                                    count:(NSUInteger)count {
  NSUInteger given = 0;
  while (given < count) {
    id object = [self nextObject];
    if (!object)
      break;
    buffer[given++] = object;
  }
  state->itemsPtr = buffer;
  state->mutationsPtr = &_array->_mutations;
  return given;
}
@end

@implementation NSArray
+ (instancetype)array {
  return [[[self alloc] init] autorelease];
}
+ (instancetype)arrayWithObject:(id)object {
  return [self arrayWithObjects:&object count:1];
}
+ (instancetype)arrayWithArray:(NSArray *)array {
  return [self arrayWithObjects:array->_elements count:array->_count];
}
+ (instancetype)arrayWithObjects:(const id *)objects count:(NSUInteger)count {
  return [[[self alloc] initWithObjects:objects count:count] autorelease];
}
- (instancetype)initWithObjects:(const id *)objects count:(NSUInteger)count {
  for (NSUInteger i = 0; i < count; ++i)
    append(self, objects[i]);
  return self;
}
- (void)dealloc {
  for (NSUInteger i = 0; i < _count; ++i)
    [_elements[i] release];
  free(_elements);
  [super dealloc];
}
- (NSUInteger)count {
  return _count;
}
- (id)objectAtIndex:(NSUInteger)index {
  if (index >= _count)
    hostEnd("an element beyond an array's end");
  return _elements[index];
}
- (id)objectAtIndexedSubscript:(NSUInteger)index {
  return [self objectAtIndex:index];
}
- (NSEnumerator *)objectEnumerator {
  return enumerate(self, NO);
}
- (NSEnumerator *)reverseObjectEnumerator {
  return enumerate(self, YES);
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState *)state
                                  objects:(id *)buffer
                                    count:(NSUInteger)count {
  (void)buffer;
  (void)count;
  if (state->state++)
    return 0;
  state->itemsPtr = _elements;
  state->mutationsPtr = &_mutations;
  return _count;
}
- (id)copyWithZone:(struct _NSZone *)zone {
  (void)zone;
  hostEnd("the double copies nothing");
}
- (id)mutableCopyWithZone:(struct _NSZone *)zone {
  (void)zone;
  hostEnd("the double copies nothing");
}
@end

@implementation NSMutableArray
+ (instancetype)arrayWithCapacity:(NSUInteger)capacity {
  (void)capacity;
  return [self array];
}
- (instancetype)initWithCapacity:(NSUInteger)capacity {
  (void)capacity;
  return [self init];
}
- (void)addObject:(id)object {
  append(self, object);
}
- (void)insertObject:(id)object atIndex:(NSUInteger)index {
  append(self, object);
  for (NSUInteger i = _count - 1; i > index; --i)
    _elements[i] = _elements[i - 1];
  _elements[index] = object;
}
- (void)removeObjectAtIndex:(NSUInteger)index {
  id object = [self objectAtIndex:index];
  --_count;
  for (NSUInteger i = index; i < _count; ++i)
    _elements[i] = _elements[i + 1];
  ++_mutations;
  [object release];
}
- (void)removeLastObject {
  [self removeObjectAtIndex:_count - 1];
}
- (void)removeAllObjects {
  while (_count > 0)
    [self removeLastObject];
}
- (void)replaceObjectAtIndex:(NSUInteger)index withObject:(id)object {
  id old = [self objectAtIndex:index];
  _elements[index] = [object retain];
  [old release];
}
- (void)setObject:(id)object atIndexedSubscript:(NSUInteger)index {
  if (index == _count)
    append(self, object);
  else
    [self replaceObjectAtIndex:index withObject:object];
}
- (void)setArray:(NSArray *)array {
  [array retain];
  [self removeAllObjects];
  for (id object in array)
    append(self, object);
  [array release];
}
@end
