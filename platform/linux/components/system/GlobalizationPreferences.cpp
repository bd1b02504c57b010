#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/collections/VectorView.h"
#include "platform/linux/components/foundation/Text.h"

#include <abi/IVectorView.abi.h>
#include <abi/Windows.System.UserProfile.abi.h>

#include <cstdlib>
#include <ctime>
#include <langinfo.h>
#include <locale.h>

namespace wrt::components {

using namespace implement;

namespace {

/// The user's locale as the environment names it, such as "de_AT.UTF-8"; empty for the plain one.
std::string localeName(const char *category) {
  for (const char *variable : {"LC_ALL", category, "LANG"}) {
    const char *value = std::getenv(variable);
    if (value == nullptr || *value == '\0')
      continue;
    const std::string name = value;
    return name.starts_with("C.") || name == "C" || name == "POSIX" ? std::string() : name;
  }
  return {};
}

/// "de-AT" for "de_AT.UTF-8@euro".
std::u16string languageTag(const std::string &locale) {
  std::u16string tag = toUtf16(locale.substr(0, locale.find_first_of(".@")));
  for (char16_t &c : tag)
    c = c == u'_' ? u'-' : c;
  return tag;
}

/// The system's facts about the locale of a category; those of the plain one if it is not
/// installed.
class Locale {
public:
  explicit Locale(const char *category)
      : locale_(newlocale(LC_ALL_MASK, localeName(category).c_str(), nullptr)) {
    if (locale_ == nullptr)
      locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
  }
  Locale(const Locale &) = delete;
  Locale &operator=(const Locale &) = delete;
  ~Locale() { freelocale(locale_); }

  std::string text(nl_item item) const { return nl_langinfo_l(item, locale_); }
  /// Items whose value is a byte.
  int byte(nl_item item) const { return static_cast<unsigned char>(*nl_langinfo_l(item, locale_)); }

private:
  locale_t locale_;
};

/// Windows.System.UserProfile.GlobalizationPreferences from the environment's locale.
class GlobalizationPreferences final
    : public ActivationFactory<abi::IGlobalizationPreferencesStatics,
                               abi::IGlobalizationPreferencesStatics2> {
public:
  using List = abi::IVectorView__1_WRTHSTRING;

  HRESULT WRT_ABI get_Languages(List **result) override {
    Items<String> tags;
    const char *languages = std::getenv("LANGUAGE");
    std::string list = languages == nullptr ? "" : languages;
    list += ":" + localeName("LC_MESSAGES");
    for (size_t start = 0, end; start <= list.size(); start = end + 1) {
      end = std::min(list.find(':', start), list.size());
      const std::u16string tag = languageTag(list.substr(start, end - start));
      if (!tag.empty() && std::ranges::find(tags, StringHolder(tag)) == tags.end())
        tags.emplace_back(tag);
    }
    if (tags.empty())
      tags.emplace_back(u"en-US");
    return makeVectorView<String>(result, std::move(tags));
  }
  HRESULT WRT_ABI get_HomeGeographicRegion(HSTRING *result) override {
    if (result == nullptr)
      return status::kPointer;
    const std::u16string tag = languageTag(localeName("LC_ADDRESS"));
    const size_t dash = tag.rfind(u'-');
    return makeString(dash == tag.npos ? u"US" : tag.substr(dash + 1), result);
  }
  HRESULT WRT_ABI get_Calendars(List **result) override {
    return list(result, u"GregorianCalendar");
  }
  HRESULT WRT_ABI get_Clocks(List **result) override {
    const std::string format = Locale("LC_TIME").text(T_FMT);
    const bool half = format.find("%I") != format.npos || format.find("%r") != format.npos;
    return list(result, half ? u"12HourClock" : u"24HourClock");
  }
  HRESULT WRT_ABI get_Currencies(List **result) override {
    // The sign in front of the symbol says where it goes.
    const std::string symbol = Locale("LC_MONETARY").text(__INT_CURR_SYMBOL);
    const std::string code = symbol.substr(0, 3);
    return list(result, code.size() == 3 ? toUtf16(code) : u"USD");
  }
  HRESULT WRT_ABI get_WeekStartsOn(int *result) override {
    if (result == nullptr)
      return status::kPointer;
    // Counted from 1, which is a Sunday, as Windows.Globalization.DayOfWeek counts from 0.
    *result = std::max(0, Locale("LC_TIME").byte(_NL_TIME_FIRST_WEEKDAY) - 1);
    return status::kOk;
  }

  // They are the user's to change.
  HRESULT WRT_ABI TrySetHomeGeographicRegion(HSTRING, unsigned char *result) override {
    return no(result);
  }
  HRESULT WRT_ABI TrySetLanguages(abi::IIterable__1_WRTHSTRING *, unsigned char *result) override {
    return no(result);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.System.UserProfile.GlobalizationPreferences";
  }
  static HRESULT list(List **result, std::u16string_view only) {
    Items<String> items;
    items.emplace_back(only);
    return makeVectorView<String>(result, std::move(items));
  }
  static HRESULT no(unsigned char *result) {
    if (result == nullptr)
      return status::kPointer;
    *result = 0;
    return status::kOk;
  }
};

const activation::Registration registration(u"Windows.System.UserProfile.GlobalizationPreferences",
                                            activation::makeFactory<GlobalizationPreferences>);

} // namespace
} // namespace wrt::components
