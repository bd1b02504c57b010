#include "generator/output/OutputSet.h"
#include "tests/generator/Generated.h"

#include <algorithm>
#include <sstream>

namespace bridgegen::test {
namespace {

namespace fs = std::filesystem;

const char *const kSample = R"(
full interface IFirst {11111111-0000-0000-0000-000000000001} { void Run(); ISecond Next(); }
)";
const char *const kOther = R"(
full interface ISecond {11111111-0000-0000-0000-000000000002} { Int32 Count { get; } }
)";

class Outputs : public FolderTest {
protected:
  /// How many of the outputs were written into the folder.
  size_t commit(const Generated &generated) {
    OutputSet outputs;
    for (const auto &[path, text] : generated.files)
      outputs.add(path, text);
    return outputs.commit(folder_);
  }
};

TEST_F(Outputs, DoNotDependOnTheOrderOfTheFiles) {
  const Generated forwards = generateFrom({{"x/a.idl", kSample}, {"y/b.idl", kOther}});
  const Generated backwards = generateFrom({{"y/b.idl", kOther}, {"x/a.idl", kSample}});
  ASSERT_EQ(forwards.errors, "");
  EXPECT_EQ(forwards.files, backwards.files);
}

TEST_F(Outputs, AreWrittenOnlyWhenTheyChange) {
  const Generated before = generateFrom({{"a.idl", kSample}, {"b.idl", kOther}});
  EXPECT_EQ(commit(before), before.files.size());
  EXPECT_EQ(commit(before), 0U);

  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
  for (const auto &[path, text] : before.files)
    fs::last_write_time(folder_ / path, old);
  std::string changed = kSample;
  changed.replace(changed.find("Run"), 3, "Walk");
  const Generated after = generateFrom({{"a.idl", changed}, {"b.idl", kOther}});
  EXPECT_GT(commit(after), 0U);
  for (const auto &[path, text] : before.files) {
    if (path.find("/b.") != path.npos) // a unit does not change with the members of another
      EXPECT_EQ(fs::last_write_time(folder_ / path), old) << path;
  }
  for (const char *path : {"classes/a.mm", "surface.digest"}) {
    EXPECT_NE(fs::last_write_time(folder_ / path), old);
    EXPECT_EQ(readFile(folder_ / path), after.files.at(path));
  }
}

TEST_F(Outputs, OfARemovedFileGo) {
  const Generated before = generateFrom({{"a.idl", "enum E { }"}, {"b.idl", kOther}});
  commit(before);
  const fs::path foreign = folder_ / "include/WRTObjcBridge/WRTTypes.h";
  fs::copy_file(folder_ / "catalogue.tsv", foreign);
  const Generated after = generateFrom({{"a.idl", "enum E { }"}});
  commit(after);
  for (const auto &[path, text] : before.files)
    EXPECT_EQ(fs::exists(folder_ / path), after.files.contains(path)) << path;
  EXPECT_TRUE(fs::exists(foreign));
}

/// What is selected comes whole, with its interfaces and instances; what those name, as proxies.
TEST_F(Outputs, OfASelectionHaveWhatItNeeds) {
  std::deque<Source> sources;
  sources.emplace_back("a.idl", R"(
namespace N;
interface IList<T> {11111111-0000-0000-0000-000000000001} { T First(); }
full interface IPart {11111111-0000-0000-0000-000000000002} { Other Deep(); }
full class Part : IPart;
full interface IOther {11111111-0000-0000-0000-000000000003} { void Run(); }
full class Other : IOther;
full interface IWhole {11111111-0000-0000-0000-000000000004} { IList<Part> Parts { get; } Kind Kind { get; } }
factory interface IWholeFactory {11111111-0000-0000-0000-000000000005} { Whole Make(); }
full class Whole : IWhole factory IWholeFactory;
enum Kind { One = 1 }
enum Unused { One = 1 }
full IList<Part>, IList<Other>;
)");
  Diagnostics diagnostics;
  Extras extras;
  extras.selection = {"N.Whole"};
  const auto outputs = generate(sources, extras, diagnostics);
  ASSERT_TRUE(outputs);
  std::istringstream digest(outputs->files().at("surface.digest"));
  std::string classes;
  for (std::string name, kind, superclass, count, hash;
       digest >> name >> kind >> superclass >> count >> hash;)
    classes += name + " " + kind + " " + count + "\n";
  EXPECT_EQ(classes, "WRTIPartBridge proxy-interface 1\n"
                     "WRTIWholeBridge interface 3\n"
                     "WRTIList__1_WRTPart_P_Bridge interface 2\n"
                     "WRTPartBridge proxy-class 1\n"
                     "WRTWholeBridge class 6\n");
  EXPECT_EQ(outputs->files().at("include/WRTObjcBridge/types/a.h").find("Unused"),
            std::string::npos);
  extras.selection = {"N.Hole"};
  EXPECT_FALSE(generate(sources, extras, diagnostics));
}

} // namespace
} // namespace bridgegen::test
