#include "ImageRegistration.h"
#include "TestProcess.h"

#include <gtest/gtest.h>

namespace wrt::startup::test {
namespace {

struct Call {
  int runtime = 0;
  const void *info = nullptr;
  const void *base = nullptr;

  bool operator==(const Call &) const = default;
};

std::vector<Call> calls;

template <int Runtime>
void load(const void *info, const void *base) {
  calls.push_back({Runtime, info, base});
}

void unload(const void *info) { calls.push_back({-1, info, nullptr}); }

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

TEST_F(ImageRegistration, UnregistersThroughTheMainProgram) {
  process.modules[u"zorvex.dll"]["__objc_image_unload"] = reinterpret_cast<void *>(unload);
  unregisterImage(&info, process);
  process.modules[u""];
  unregisterImage(&info, process);
  EXPECT_TRUE(calls.empty());
  process.modules[u""]["__objc_image_unload"] = reinterpret_cast<void *>(unload);
  unregisterImage(&info, process);
  EXPECT_EQ(calls, (std::vector<Call>{{-1, &info, nullptr}}));
}

} // namespace
} // namespace wrt::startup::test
