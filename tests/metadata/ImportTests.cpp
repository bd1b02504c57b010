#include "generator/metadata/Comparison.h"
#include "generator/metadata/Import.h"
#include "tests/generator/Generated.h"

#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace bridgegen::test {
namespace {

using namespace metadata;

std::string fixture(const std::string &name) { return readFile(WRT_FIXTURES "/" + name); }

/// Where a column of the fixture's tables is; all its indices take two bytes.
size_t at(Table table, uint32_t row, size_t column) {
  static const std::string image = fixture("Contoso.winmd");
  return Tables("Contoso.winmd", image).offset({table, row}) + column;
}

std::deque<Source> catalogue() {
  std::deque<Source> sources;
  std::istringstream files(readFile(WRT_BUILD_DECLARATIONS));
  for (std::string file; files >> file;)
    sources.emplace_back(file, readFile(file));
  return sources;
}

/// All declarations and then the notes, or else what is refused.
std::string imported(const std::string &image, const std::deque<Source> &known,
                     const Wanted &wanted) {
  Diagnostics diagnostics;
  std::deque<Source> written;
  std::ostringstream text;
  try {
    Library library;
    library.add("Contoso.winmd", image);
    const std::optional<Imported> result =
        importTypes(library, known, wanted, {}, diagnostics, written);
    diagnostics.print(text);
    if (!result)
      return text.str();
    for (const auto &[path, declarations] : result->outputs.files())
      text << "// " << path << '\n' << declarations;
    text << '\n';
    for (const std::string &note : result->notes)
      text << "// note: " << note << '\n';
  } catch (const Refused &refused) {
    return refused.what();
  }
  return text.str();
}

TEST(Import, DeclaresEveryFormOfTypeAndMember) {
  EXPECT_EQ(imported(fixture("Contoso.winmd"), catalogue(), {{"Contoso"}, {}, {}}),
            fixture("Contoso.idl"));
}

TEST(Import, DeclaresWhatIsNeededInTheLeastForm) {
  const std::string text = imported(
      fixture("Contoso.winmd"), catalogue(),
      {{}, {"Contoso.IGuest"}, {"Windows.Foundation.Collections.IVectorView<Contoso.Guest>"}});
  EXPECT_EQ(text, "// Contoso.idl\n"
                  "namespace Contoso;\n\n"
                  "full interface IGuest {c0000008-0000-0000-c000-000000000001}\n{\n"
                  "    Windows.Foundation.Collections.IVectorView<Guest> Friends();\n}\n\n"
                  "extern class Guest : IGuest;\n\n"
                  "proxy Windows.Foundation.Collections.IVectorView<Guest>;\n\n"
                  "// note: 'Contoso.Guest': pulled in as extern\n");
}

struct Broken {
  const char *name;
  std::function<void(std::string &image)> change;
  std::string message;
  Wanted wanted{{"Contoso"}, {}, {}};
};

void PrintTo(const Broken &broken, std::ostream *out) { *out << broken.name; }

void replace(std::string &image, const std::string &text, const std::string &other) {
  image.replace(image.find(text), other.size(), other);
}

const std::vector<Broken> kBroken{
    {"Truncated", [](std::string &image) { image.resize(0x260); },
     "at 0x200: 4096 bytes wanted, 96 left"},
    {"Version", [](std::string &image) { replace(image, "WindowsRuntime", "windowsRuntime"); },
     "at 0x260: no Windows metadata: its version is 'windowsRuntime 1.4', not 'WindowsRuntime "
     "1.x'"},
    {"HugeTable", [](std::string &image) { image.replace(0x2E0, 4, "\xFF\xFF\xFF\x7F"); },
     "at 0x2e0: Field has 2147483647 rows, more than the file has room for"},
    {"OverlappingLists", [](std::string &image) { image[at(Table::TypeDef, 10, 12)] = 1; },
     "TypeDef row 9 at 0x44a: rows 3 to 1 of MethodDef, which has 28"},
    {"NameOutside",
     [](std::string &image) { image.replace(at(Table::TypeDef, 2, 4), 2, "\xF0\xFF"); },
     "TypeDef row 2 at 0x3e8: string 0xfff0 is outside of #Strings"},
    {"NoName", [](std::string &image) { replace(image, "IArrays", "I rrays"); },
     "TypeDef row 11 at 0x466: 'Contoso.I rrays' is no name of a type"},
    {"Signature", [](std::string &image) { image[at(Table::MethodDef, 5, 10)] ^= 3; },
     "MethodDef row 5 at 0xe6d: a type that WinRT does not have (element 4)"},
    {"NoIdentifier", [](std::string &image) { replace(image, "GuidAttribute", "guidAttribute"); },
     "TypeDef row 8 at 0x43c: 'Contoso.GreetedHandler' has no identifier (GuidAttribute)"},
    {"Clash",
     [](std::string &) {},
     "TypeDef row 18 at 0x4c8: the bridge name 'Rect' is already that of "
     "'Windows.Foundation.Rect'; '--as Contoso.Clash.Rect=NAME' gives another",
     {{"Contoso.Clash"}, {}, {}}},
    {"Unknown",
     [](std::string &) {},
     "TypeDef row 19 at 0x4d6: type 'Contoso.Missing.Part' is neither known nor in the files",
     {{"Contoso.Missing"}, {}, {}}},
};

class Refusal : public testing::TestWithParam<Broken> {};

TEST_P(Refusal, NamesPlaceAndReason) {
  std::string image = fixture("Contoso.winmd");
  GetParam().change(image);
  EXPECT_EQ(imported(image, catalogue(), GetParam().wanted),
            "Contoso.winmd: error: " + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Metadata, Refusal, testing::ValuesIn(kBroken),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(Comparison, ListsWhatIsLackingBesidesAndElsewhere) {
  const std::string image = fixture("Contoso.winmd");
  Library library;
  library.add("Contoso.winmd", image);
  std::deque<Source> sources;
  sources.emplace_back("known.idl",
                       "namespace Contoso;\n"
                       "enum Mood { Glum = -1, Merry = 2, Sad = 3 }\n"
                       "full interface IGreeter {c0000003-0000-0000-c000-000000000001}\n"
                       "{ String Name { get; set; } void Nod(); }\n"
                       "full interface IGuest {c0000008-0000-0000-c000-000000000002} { }\n"
                       "enum Colour { }\n");
  Diagnostics diagnostics;
  const Known known(sources, diagnostics);
  std::string found;
  for (const Difference &difference : compare(Types(library, known)))
    found += std::to_string(static_cast<int>(difference.what)) + " " + difference.text + "\n";
  EXPECT_EQ(found,
            "3 Contoso.Mood: Merry = 1, declared as 2\n"
            "0 Contoso.Mood: Sad\n"
            "2 Contoso.IGreeter: get_Name has slot 7, declared at 6\n"
            "2 Contoso.IGreeter: put_Name has slot 6, declared at 7\n"
            "0 Contoso.IGreeter: Nod\n"
            "1 Contoso.IGreeter: get_Mood\n"
            "1 Contoso.IGreeter: Greet\n"
            "1 Contoso.IGreeter: GreetPolitely\n"
            "1 Contoso.IGreeter: add_Greeted\n"
            "1 Contoso.IGreeter: remove_Greeted\n"
            "1 Contoso.IGreeter: add_Left\n"
            "1 Contoso.IGreeter: remove_Left\n"
            "1 Contoso.IGreeter: WelcomeAsync\n"
            "3 Contoso.IGuest: identifier {c0000008-0000-0000-c000-000000000001}, declared as "
            "{c0000008-0000-0000-c000-000000000002}\n"
            "1 Contoso.IGuest: Friends\n"
            "0 Contoso.Colour: not in the metadata\n");
  EXPECT_EQ(imported(image, sources, {}),
            "Contoso.winmd: error: TypeDef row 2 at 0x3e8: Contoso.Mood: Merry = 1, declared as 2");
}

} // namespace
} // namespace bridgegen::test
