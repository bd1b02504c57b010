#include "ImageRegistration.h"
#include "TestProcess.h"

#include <gtest/gtest.h>

#include <tuple>

namespace wrt::startup::test {
namespace {

/// Which runtime was told, the image's information and its base.
using Call = std::tuple<int, const void *, const void *>;

std::vector<Call> calls;

template <int Runtime>
void load(const void *info, const void *base) {
  calls.emplace_back(Runtime, info, base);
}

class ImageRegistration : public testing::Test {
protected:
  ImageRegistration() { calls.clear(); }

  template <int Runtime>
  void addRuntime(const char16_t *name) {
    process.modules[name]["__objc_image_load"] = reinterpret_cast<void *>(load<Runtime>);
  }

  TestProcess process{{kPageReadOnly}};
  int info = 0;
  int base = 0;
};

TEST_F(ImageRegistration, TheFirstRuntimeThatIsLoadedIsTaken) {
  addRuntime<3>(u"objc4_noncompact.dll");
  registerImage(&info, &base, process);
  addRuntime<2>(u"objc_zorvex.dll");
  registerImage(&info, &base, process);
  addRuntime<1>(u"zorvex.dll");
  registerImage(&info, &base, process);
  EXPECT_EQ(calls, (std::vector<Call>{{3, &info, &base}, {2, &info, &base}, {1, &info, &base}}));
  EXPECT_EQ(process.askedModules,
            (std::vector<std::u16string>{u"zorvex.dll", u"objc_zorvex.dll", u"objc4_noncompact.dll",
                                         u"zorvex.dll", u"objc_zorvex.dll", u"zorvex.dll"}));
}

TEST_F(ImageRegistration, WithoutARuntimeNothingIsRegistered) {
  registerImage(&info, &base, process);
  // One that lacks the function is still the one that was found.
  process.modules[u"zorvex.dll"];
  addRuntime<2>(u"objc_zorvex.dll");
  registerImage(&info, &base, process);
  EXPECT_TRUE(calls.empty());
}

} // namespace
} // namespace wrt::startup::test
