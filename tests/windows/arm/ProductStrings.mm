// Strings and arrays. The product neither releases the string of a string result nor frees the
// block of an array that it is handed; the fakes keep both to clear away.
#include "arm/Product.h"

#import <WRTObjcBridge/WRTHSTRINGBridge.h>

namespace wrt::test {

namespace {

/// More clean-ups than one batch of their enumeration has.
constexpr int kMany = 20;

int seen;
HSTRING handed[kMany];
void *block;

/// Element `index` of every long array here: "a" and so on.
char16_t letter(int index) { return static_cast<char16_t>(u'a' + index); }

/// An array of `count` one-letter strings.
NSArray *letters(int count) {
  NSMutableArray *array = [NSMutableArray array];
  for (int i = 0; i < count; ++i) {
    const unichar unit = letter(i);
    [array addObject:[NSString stringWithCharacters:&unit length:1]];
  }
  return array;
}

bool areLetters(NSArray *array, int count) {
  if ([array count] != static_cast<NSUInteger>(count))
    return false;
  for (int i = 0; i < count; ++i)
    if ([array[i] length] != 1 || [array[i] characterAtIndex:0] != letter(i))
      return false;
  return true;
}

/// How many of the strings are the letters they should be.
int countLetters(int count, HSTRING *strings) {
  int right = 0;
  for (int i = 0; i < count; ++i) {
    const char16_t expected[] = {letter(i), 0};
    right += hasText(strings[i], expected);
  }
  return right;
}

void makeLetters(int count, HSTRING *strings) {
  for (int i = 0; i < count; ++i) {
    const char16_t unit = letter(i);
    handed[i] = strings[i] = testMakeString(&unit, 1);
  }
}

/// A block of letters as WinRT hands it out.
HSTRING *makeBlock(int count) {
  auto *strings = static_cast<HSTRING *>(WRTTaskMemAlloc(count * sizeof(HSTRING)));
  makeLetters(count, strings);
  block = strings;
  return strings;
}

void testStrings(TestObject &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.InString = [](WRTTestInterface *, HSTRING arg) -> HRESULT {
    seen = arg == nullptr ? 1 : hasText(arg, u"Gr\u00fc\u00dfe") ? 2 : 0;
    return 0;
  };
  [bridge inStringWithArg:@"Gr\u00fc\u00dfe" error:&error];
  CHECK(seen == 2);
  [bridge inStringWithArg:nil error:&error];
  CHECK(seen == 1);
  CHECK(testLiveStrings() == 0);

  object.table.ReturnString = [](WRTTestInterface *, HSTRING *result) -> HRESULT {
    *result = handed[0] = testMakeString(u"\u20ac 5", 3);
    return 0;
  };
  NSString *string = [bridge returnStringWithError:&error];
  CHECK([string length] == 3 && [string characterAtIndex:0] == 0x20AC);
  CHECK(testLiveStrings() == 1);
  WRTHSTRINGRelease(handed[0]);

  object.table.OutString = [](WRTTestInterface *, HSTRING *arg) -> HRESULT {
    *arg = handed[0] = testMakeString(u"out", 3);
    return 0;
  };
  NSString *out = nil;
  [bridge outStringWithArg:&out error:&error];
  CHECK([out isEqualToString:@"out"]);
  WRTHSTRINGRelease(handed[0]);

  // A failure says nothing of what was handed out.
  object.table.OutString = [](WRTTestInterface *, HSTRING *) -> HRESULT { return kFail; };
  NSString *before = out;
  [bridge outStringWithArg:&out error:&error];
  CHECK(out == before && [error code] == kFail && [[error domain] isEqualToString:@"WRT"]);
}

/// The bridge of a string owns both of its forms, the first by automatic reference counting.
void testHeldStrings() {
  const int live = testLiveObjects();
  const unsigned pool = testPoolPush();
  NSString *string = [NSString stringWithUTF8String:"held"];
  WRTHSTRINGBridge *bridge = [WRTHSTRINGBridge createWithString:string];
  CHECK([bridge string] == string);
  CHECK(hasText(static_cast<HSTRING>([bridge hstring]), u"held"));
  CHECK([[[WRTHSTRINGBridge bridge:[bridge hstring]] string] isEqualToString:string]);
  testPoolPop(pool);
  CHECK(testLiveObjects() == live && testLiveStrings() == 0);
}

void testStringArrays(TestObject &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.InStringArray = [](WRTTestInterface *, int count, HSTRING *arr) -> HRESULT {
    seen = countLetters(count, arr);
    return kFail; // clean-ups run all the same
  };
  [bridge inStringArrayWithArr:letters(kMany) error:&error];
  CHECK(seen == kMany && [error code] == kFail);
  CHECK(testLiveStrings() == 0 && testLiveTaskBlocks() == 0);

  object.table.OutStringArray = [](WRTTestInterface *, int *count, HSTRING **arr) -> HRESULT {
    *count = kMany;
    *arr = makeBlock(kMany);
    return 0;
  };
  NSMutableArray *array = [NSMutableArray array];
  [array addObject:@"to be removed"];
  [bridge outStringArrayWithArr:array error:&error];
  CHECK(areLetters(array, kMany) && error == nil);
  CHECK(testLiveStrings() == 0 && testLiveTaskBlocks() == 1);
  WRTTaskMemFree(block);

  // The one form that leaves its strings.
  object.table.ReturnStringArrayPreallocated = [](WRTTestInterface *, int size, int *count,
                                                  HSTRING *arr) -> HRESULT {
    *count = size;
    makeLetters(size, arr);
    return 0;
  };
  CHECK(areLetters([bridge returnStringArrayPreallocatedWithSize:4 error:&error], 4));
  CHECK(testLiveStrings() == 4 && testLiveTaskBlocks() == 0);
  for (int i = 0; i < 4; ++i)
    WRTHSTRINGRelease(handed[i]);
}

} // namespace

void testStringsAndArrays(TestObject &object, WRTTestInterfaceBridge *bridge) {
  testStrings(object, bridge);
  testHeldStrings();
  testStringArrays(object, bridge);
  testPoolPop(0);
  CHECK(testLiveStrings() == 0 && testLiveTaskBlocks() == 0);
}

} // namespace wrt::test
