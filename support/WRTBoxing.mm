#import <WRTSupport/WRTBoxing.h>

#import <WRTSupport/WRTAsking.h>

#include "support/implement/Failure.h"
#include "support/implement/Protocol.h"

#include <WRTBridge.h>
#include <string.h>

using namespace wrt;
using support::store;

namespace {

/// The types of fixed size: their names in members, and their types.
#define WRT_FIXED_SIZE(X)                                                                          \
  X(UInt8, unsigned char)                                                                          \
  X(Int16, short)                                                                                  \
  X(UInt16, unsigned short)                                                                        \
  X(Int32, int)                                                                                    \
  X(UInt32, unsigned int)                                                                          \
  X(Int64, long long)                                                                              \
  X(UInt64, unsigned long long)                                                                    \
  X(Single, float)                                                                                 \
  X(Double, double)                                                                                \
  X(Char16, unsigned short)                                                                        \
  X(Boolean, bool)                                                                                 \
  X(DateTime, WRTDateTime)                                                                         \
  X(TimeSpan, WRTTimeSpan)                                                                         \
  X(Guid, GUID)                                                                                    \
  X(Point, WRTPoint)                                                                               \
  X(Size, WRTSize)                                                                                 \
  X(Rect, WRTRect)

/// Foundation's classes, looked up once: by name it costs more than boxing does.
struct Classes {
  const Class number = [NSNumber class];
  const Class string = [NSString class];
  const Class date = [NSDate class];
  const Class uuid = [NSUUID class];
  const Class value = [NSValue class];
  const Class array = [NSArray class];
  const Class null = [NSNull class];
  const Class bridge = [WRTUnknownBridge class];
  const id yes = [[NSNumber numberWithBool:YES] retain];
  const id no = [[NSNumber numberWithBool:NO] retain];
};

const Classes &classes() {
  static const Classes all;
  return all;
}

id foundation(unsigned char value) { return [NSNumber numberWithUnsignedChar:value]; }
id foundation(short value) { return [NSNumber numberWithShort:value]; }
id foundation(unsigned short value) { return [NSNumber numberWithUnsignedShort:value]; }
id foundation(int value) { return [NSNumber numberWithInt:value]; }
id foundation(unsigned int value) { return [NSNumber numberWithUnsignedInt:value]; }
id foundation(long long value) { return [NSNumber numberWithLongLong:value]; }
id foundation(unsigned long long value) { return [NSNumber numberWithUnsignedLongLong:value]; }
id foundation(float value) { return [NSNumber numberWithFloat:value]; }
id foundation(double value) { return [NSNumber numberWithDouble:value]; }
id foundation(bool value) { return value ? classes().yes : classes().no; }
id foundation(WRTDateTime value) { return WRTDateFromDateTime(value); }
id foundation(WRTTimeSpan value) { return foundation(WRTIntervalFromTimeSpan(value)); }
id foundation(GUID value) { return WRTUUIDFromGUID(value); }
id foundation(WRTPoint value) { return [NSValue valueWithPoint:WRTNSPointFromPoint(value)]; }
id foundation(WRTSize value) { return [NSValue valueWithSize:WRTNSSizeFromSize(value)]; }
id foundation(WRTRect value) { return [NSValue valueWithRect:WRTNSRectFromRect(value)]; }

// From an object of the class that the type is made of; false with the error.
bool take(id object, unsigned char *value, NSError **) {
  return *value = [object unsignedCharValue], true;
}
bool take(id object, short *value, NSError **) { return *value = [object shortValue], true; }
bool take(id object, unsigned short *value, NSError **) {
  return *value = [object unsignedShortValue], true;
}
bool take(id object, int *value, NSError **) { return *value = [object intValue], true; }
bool take(id object, unsigned int *value, NSError **) {
  return *value = [object unsignedIntValue], true;
}
bool take(id object, long long *value, NSError **) { return *value = [object longLongValue], true; }
bool take(id object, unsigned long long *value, NSError **) {
  return *value = [object unsignedLongLongValue], true;
}
bool take(id object, float *value, NSError **) { return *value = [object floatValue], true; }
bool take(id object, double *value, NSError **) { return *value = [object doubleValue], true; }
bool take(id object, bool *value, NSError **) { return *value = [object boolValue], true; }
bool take(id object, WRTDateTime *value, NSError **error) {
  NSError *failure = nil;
  *value = WRTDateTimeFromDate(object, &failure);
  if (error)
    *error = failure;
  return !failure;
}
bool take(id object, WRTTimeSpan *value, NSError **) {
  return *value = WRTTimeSpanFromInterval([object doubleValue]), true;
}
bool take(id object, GUID *value, NSError **) { return *value = WRTGUIDFromUUID(object), true; }
bool take(id object, WRTPoint *value, NSError **) {
  return *value = WRTPointFromNSPoint([object pointValue]), true;
}
bool take(id object, WRTSize *value, NSError **) {
  return *value = WRTSizeFromNSSize([object sizeValue]), true;
}
bool take(id object, WRTRect *value, NSError **) {
  return *value = WRTRectFromNSRect([object rectValue]), true;
}

int typeOfNumber(NSNumber *number) {
  // The two booleans are objects of their own; their `objCType` is that of a small number.
  if (number == classes().yes || number == classes().no)
    return WRTPropertyTypeBoolean;
  switch (*[number objCType]) {
  case 'B':
    return WRTPropertyTypeBoolean;
  case 'C':
    return WRTPropertyTypeUInt8;
  case 'c':
  case 's':
    return WRTPropertyTypeInt16;
  case 'S':
    return WRTPropertyTypeUInt16;
  case 'i':
    return WRTPropertyTypeInt32;
  case 'I':
    return WRTPropertyTypeUInt32;
  case 'l':
    return sizeof(long) == 4 ? WRTPropertyTypeInt32 : WRTPropertyTypeInt64;
  case 'L':
    return sizeof(long) == 4 ? WRTPropertyTypeUInt32 : WRTPropertyTypeUInt64;
  case 'q':
    return WRTPropertyTypeInt64;
  case 'Q':
    return WRTPropertyTypeUInt64;
  case 'f':
    return WRTPropertyTypeSingle;
  default:
    return WRTPropertyTypeDouble;
  }
}

/// The type that the object is boxed as; `OtherType` for a bridge and for what cannot be.
int typeOf(id object) {
  const Classes &known = classes();
  if ([object isKindOfClass:known.number])
    return typeOfNumber(object);
  if ([object isKindOfClass:known.string])
    return WRTPropertyTypeString;
  if ([object isKindOfClass:known.date])
    return WRTPropertyTypeDateTime;
  if ([object isKindOfClass:known.uuid])
    return WRTPropertyTypeGuid;
  if ([object isKindOfClass:known.null])
    return WRTPropertyTypeEmpty;
  if ([object isKindOfClass:known.value]) {
    const char *type = [object objCType];
    return strcmp(type, @encode(NSPoint)) == 0  ? WRTPropertyTypePoint
           : strcmp(type, @encode(NSSize)) == 0 ? WRTPropertyTypeSize
           : strcmp(type, @encode(NSRect)) == 0 ? WRTPropertyTypeRect
                                                : WRTPropertyTypeOtherType;
  }
  return WRTPropertyTypeOtherType;
}

/// A block of memory that goes with the scope.
template <class T>
struct Block {
  T *const start;
  explicit Block(size_t count) : start(static_cast<T *>(WRTTaskMemAlloc(count * sizeof(T)))) {}
  explicit Block(T *block) : start(block) {}
  Block(const Block &) = delete;
  Block &operator=(const Block &) = delete;
  ~Block() { WRTTaskMemFree(start); }
};

/// The elements as an array of `T`; `create` is called with it.
template <class T, class Create>
id boxAll(NSArray *array, NSError **error, Create create) {
  const auto count = static_cast<unsigned>([array count]);
  const Block<T> values(count);
  if (!values.start) {
    store(status::kOutOfMemory, error);
    return nil;
  }
  for (unsigned i = 0; i < count; ++i) {
    if (!take([array objectAtIndex:i], &values.start[i], error))
      return nil;
  }
  return create(count, values.start);
}

id box(id object, NSError **error);

id boxArray(NSArray *array, NSError **error) {
  int type = [array count] ? typeOf([array objectAtIndex:0]) : WRTPropertyTypeInspectable;
  for (id element in array) {
    if (typeOf(element) != type)
      type = WRTPropertyTypeInspectable;
  }
  switch (type) {
#define WRT_BOX_ARRAY(Name, Type)                                                                  \
  case WRTPropertyType##Name:                                                                      \
    return boxAll<Type>(array, error, [error](unsigned count, Type *values) -> id {                \
      return [WRTPropertyValueBridge create##Name##ArrayWithValueSize:count                        \
                                                                value:values                       \
                                                                error:error];                      \
    });
    WRT_FIXED_SIZE(WRT_BOX_ARRAY)
#undef WRT_BOX_ARRAY
  case WRTPropertyTypeString:
    return [WRTPropertyValueBridge createStringArrayWithValue:array error:error];
  default:
    break;
  }
  NSMutableArray *boxes = [NSMutableArray array];
  for (id element in array) {
    id boxed = box(element, error);
    if (!boxed)
      return nil;
    [boxes addObject:boxed];
  }
  return [WRTPropertyValueBridge createInspectableArrayWithValue:boxes error:error];
}

/// As `WRTBoxObject`; the error variable is there.
id box(id object, NSError **error) {
  switch (object ? typeOf(object) : WRTPropertyTypeOtherType) {
#define WRT_BOX(Name, Type)                                                                        \
  case WRTPropertyType##Name: {                                                                    \
    Type value;                                                                                    \
    return take(object, &value, error)                                                             \
               ? [WRTPropertyValueBridge create##Name##WithValue:value error:error]                \
               : nil;                                                                              \
  }
    WRT_FIXED_SIZE(WRT_BOX)
#undef WRT_BOX
  case WRTPropertyTypeString:
    return [WRTPropertyValueBridge createStringWithValue:object error:error];
  case WRTPropertyTypeEmpty:
    return [WRTPropertyValueBridge createEmptyWithError:error];
  default:
    break;
  }
  if ([object isKindOfClass:classes().array])
    return boxArray(object, error);
  if ([object isKindOfClass:classes().bridge]) {
    store(status::kOk, error);
    return object;
  }
  store(object ? status::kInvalidArgument : status::kPointer, error);
  return nil;
}

/// The `count` values of a block that the platform made, which is freed.
template <class T>
NSArray *unboxAll(unsigned count, T *values) {
  const Block<T> block(values);
  NSMutableArray *array = [NSMutableArray array];
  for (unsigned i = 0; i < count; ++i)
    [array addObject:foundation(values[i])];
  return array;
}

id unbox(WRTIPropertyValueBridge *box, int type, NSError **error) {
  switch (type) {
  case WRTPropertyTypeEmpty:
    return [NSNull null];
  case WRTPropertyTypeString:
    return [box getStringWithError:error];
#define WRT_UNBOX(Name, Type)                                                                      \
  case WRTPropertyType##Name: {                                                                    \
    const Type value = [box get##Name##WithError:error];                                           \
    return *error ? nil : foundation(value);                                                       \
  }                                                                                                \
  case WRTPropertyType##Name##Array: {                                                             \
    unsigned count = 0;                                                                            \
    Type *values = nullptr;                                                                        \
    [box get##Name##ArrayWithValueSize:&count value:&values error:error];                          \
    return *error ? nil : unboxAll(count, values);                                                 \
  }
    WRT_FIXED_SIZE(WRT_UNBOX)
#undef WRT_UNBOX
  default:
    break;
  }
  NSMutableArray *array = [NSMutableArray array];
  if (type == WRTPropertyTypeStringArray) {
    [box getStringArrayWithValue:array error:error];
    return *error ? nil : array;
  }
  if (type != WRTPropertyTypeInspectableArray) {
    store(status::kNotImplemented, error);
    return nil;
  }
  NSMutableArray *boxes = [NSMutableArray array];
  [box getInspectableArrayWithValue:boxes error:error];
  for (id element in boxes) {
    id value = WRTUnboxObject(element, nullptr);
    // What is no box is an element all the same.
    [array addObject:value ? value : element];
  }
  return *error ? nil : array;
}

/// The number as `T`; false when it does not fit exactly.
template <class T>
bool fits(NSNumber *number, T *value) {
  return take(number, value, nullptr) && static_cast<double>(*value) == [number doubleValue];
}

} // namespace

id WRTBoxObject(id object, NSError **error) {
  NSError *failure = nil;
  id result = WRTTry(box(object, &failure), &failure);
  if (error)
    *error = failure;
  return result;
}

id WRTUnboxObject(id object, NSError **error) {
  NSError *failure = nil;
  id result = nil;
  if (!object) {
    failure = WRTCreateNSErrorFromHRESULT(status::kPointer);
  } else {
    WRTIPropertyValueBridge *box = [WRTIPropertyValueBridge cast:object];
    const int type = WRTTry([box getTypeWithError:&failure], &failure);
    if (!failure)
      result = unbox(box, type, &failure);
  }
  if (error)
    *error = failure;
  return result;
}

id WRTReferenceTo(id object, Protocol *protocol, NSError **error) {
  NSString *name = support::nameOf(protocol);
  id box = nil;
  HRESULT problem = status::kInvalidArgument;
  const bool isNumber = [object isKindOfClass:classes().number];
  store(status::kOk, error);
  if ([name isEqualToString:@"WRTIReference__1_WRTINT32_Bridge"]) {
    int value = 0;
    if (isNumber && fits(object, &value))
      box = [WRTPropertyValueBridge createInt32WithValue:value error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTUINT32_Bridge"]) {
    unsigned value = 0;
    if (isNumber && fits(object, &value))
      box = [WRTPropertyValueBridge createUInt32WithValue:value error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTFLOAT_Bridge"]) {
    if (isNumber)
      box = [WRTPropertyValueBridge createSingleWithValue:[object floatValue] error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTDOUBLE_Bridge"]) {
    if (isNumber)
      box = [WRTPropertyValueBridge createDoubleWithValue:[object doubleValue] error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTboolean_Bridge"]) {
    if (isNumber)
      box = [WRTPropertyValueBridge createBooleanWithValue:[object boolValue] error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTTimeSpan_Bridge"]) {
    if (isNumber)
      box = [WRTPropertyValueBridge
          createTimeSpanWithValue:WRTTimeSpanFromInterval([object doubleValue])
                            error:error];
  } else if ([name isEqualToString:@"WRTIReference__1_WRTDateTime_Bridge"]) {
    if ([object isKindOfClass:classes().date])
      box = WRTBoxObject(object, error);
  } else {
    problem = status::kNotImplemented;
  }
  if (!box && error && !*error)
    store(problem, error);
  return [NSClassFromString(name) cast:box];
}
