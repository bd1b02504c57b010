// Windows.System.UserProfile.GlobalizationPreferences: vector views of strings, which are compared
// with what Windows' older functions say.

#include "tests/wine/classes/Members.h"

#include "platform/linux/wine/WindowsFunctions.h"

#include <WRTStatus.h>

#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.System.UserProfile.h>

using namespace wrt;
using namespace wrt::test;

namespace {

using StringView = id<WRTIVectorView__1_WRTHSTRING_Bridge>;

/// What a function of kernel32 writes into a buffer; it tells the length with the terminator.
NSString *kernelString(const char *name) {
  void *kernel = wine::windows().LoadLibraryW(u"kernel32.dll");
  using Function = int WRT_ABI(char16_t *, int);
  auto *function = reinterpret_cast<Function *>(wine::windows().GetProcAddress(kernel, name));
  char16_t text[85] = {}; // LOCALE_NAME_MAX_LENGTH (winnls.h)
  const int length = function ? function(text, 85) : 0;
  return [NSString stringWithCharacters:reinterpret_cast<unichar *>(text)
                                 length:length > 0 ? static_cast<NSUInteger>(length - 1) : 0];
}

void expectBounds(StringView view, unsigned index) {
  NSError *error = nil;
  EXPECT_EQ(nil, [view getAtWithIndex:index error:&error]);
  EXPECT_EQ(status::kBounds, [error code]);
}

/// The body of a member that gives an empty view.
std::function<void(NSError **)> isEmpty(StringView (*get)(NSError **)) {
  return [get](NSError **error) {
    StringView view = get(error);
    EXPECT_EQ([WRTIVectorView__1_WRTHSTRING_Bridge class], [static_cast<id>(view) class]);
    NSError *ownError = nil;
    EXPECT_EQ(0u, [view getSizeWithError:&ownError]);
    EXPECT_EQ(nil, ownError);
    EXPECT_EQ(0u, [[view getManyWithStartIndex:0 capacity:4 error:&ownError] count]);
    EXPECT_EQ(nil, ownError);
    unsigned index = 77;
    EXPECT_FALSE([view indexOfWithItem:@"x" index:&index error:&ownError]);
    EXPECT_EQ(nil, ownError) << "absent is no failure";
    expectBounds(view, 0);
  };
}

void languages(NSError **error) {
  StringView view = [WRTGlobalizationPreferencesBridge getLanguagesWithError:error];
  NSString *const language = kernelString("GetUserDefaultLocaleName");
  EXPECT_LT(1u, [language length]);
  NSError *ownError = nil;
  EXPECT_EQ(1u, [view getSizeWithError:&ownError]);
  EXPECT_TRUE([language isEqual:[view getAtWithIndex:0 error:&ownError]]);
  NSArray *const all = [view getManyWithStartIndex:0 capacity:17 error:&ownError];
  EXPECT_TRUE([all isEqual:[NSArray arrayWithObject:language]]) << "as many as there are";
  unsigned index = 77;
  EXPECT_TRUE([view indexOfWithItem:language index:&index error:&ownError]);
  EXPECT_EQ(0u, index);
  EXPECT_FALSE([view indexOfWithItem:@"tlh-KX" index:&index error:&ownError]);
  EXPECT_EQ(0u, [[view getManyWithStartIndex:0 capacity:0 error:&ownError] count]);
  EXPECT_EQ(nil, ownError);
  expectBounds(view, 1);
  expectBounds(view, 0xFFFFFFFF);
}

void homeGeographicRegion(NSError **error) {
  NSString *region = [WRTGlobalizationPreferencesBridge getHomeGeographicRegionWithError:error];
  NSString *const expected = kernelString("GetUserDefaultGeoName");
  EXPECT_EQ(2u, [expected length]);
  EXPECT_TRUE([expected isEqual:region])
      << [expected UTF8String] << " against " << [region UTF8String];
}

const Member members[] = {
    {"GlobalizationPreferences.Calendars", isEmpty([](NSError **error) {
       return [WRTGlobalizationPreferencesBridge getCalendarsWithError:error];
     })},
    {"GlobalizationPreferences.Clocks", isEmpty([](NSError **error) {
       return [WRTGlobalizationPreferencesBridge getClocksWithError:error];
     })},
    {"GlobalizationPreferences.Currencies", isEmpty([](NSError **error) {
       return [WRTGlobalizationPreferencesBridge getCurrenciesWithError:error];
     })},
    {"GlobalizationPreferences.Languages", languages},
    {"GlobalizationPreferences.HomeGeographicRegion", homeGeographicRegion},
};

} // namespace
