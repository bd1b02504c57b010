#include "tests/component/Answers.h"

#include "platform/linux/string/HString.h"
#include "tests/component/TestObject.h"

namespace wrt::test {

std::string describe(abi::TestInterface *object) {
  if (!object)
    return "null";
  void *identity = nullptr;
  object->QueryInterface(&abi::IUnknown::kIid, &identity);
  if (identity)
    object->Release();
  return identity ? "object" : "stranger";
}
std::string describe(HSTRING string) {
  return string ? "\"" + narrow(viewOf(string)) + "\"" : "null";
}
std::string describe(int32_t value) { return std::to_string(value); }
std::string describe(const WRTTestStruct &value) {
  return "{" + std::to_string(value.x) + ", " + std::to_string(value.y) + "}";
}
std::string describeStatus(HRESULT status) {
  char text[16];
  std::snprintf(text, sizeof text, "%08x", static_cast<uint32_t>(status));
  return text;
}

int32_t makeElement(int32_t index, int32_t *) { return index + 1; }
WRTTestStruct makeElement(int32_t index, WRTTestStruct *) { return {index + 1, -index - 1}; }
HSTRING makeElement(int32_t index, HSTRING *) {
  const std::string digits = std::to_string(index);
  HSTRING string = nullptr;
  makeString(std::u16string(digits.begin(), digits.end()), &string);
  return string;
}
abi::TestInterface *makeElement(int32_t, abi::TestInterface **) {
  return script().nullObjects ? nullptr : implement::make<TestObject>().detach();
}

HSTRING makeResult(HSTRING *) {
  HSTRING string = nullptr;
  makeString(script().string, &string);
  return string;
}

} // namespace wrt::test
