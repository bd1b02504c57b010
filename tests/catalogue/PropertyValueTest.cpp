// The property values: one list of types, which fixes two tables of forty slots.

#include "tests/catalogue/CatalogueTable.h"

#include <gtest/gtest.h>

using namespace wrt::test;

namespace {

struct BoxedType {
  std::string name;
  std::string encoding; ///< of a value; `@` for what travels in `NSArray`s
  int size = 4;         ///< in an argument list
};

const std::vector<BoxedType> kTypes = {
    {"UInt8", "C"},
    {"Int16", "s"},
    {"UInt16", "S"},
    {"Int32", "i"},
    {"UInt32", "I"},
    {"Int64", "q", 8},
    {"UInt64", "Q", 8},
    {"Single", "f"},
    {"Double", "d", 8},
    {"Char16", "S"},
    {"Boolean", "B"},
    {"String", "@"},
    {"Inspectable", "@"},
    {"Guid", "{?=LSS[8C]}", 16},
    {"DateTime", "{WRTDateTime=q}", 8},
    {"TimeSpan", "{WRTTimeSpan=q}", 8},
    {"Point", "{WRTPoint=ff}", 8},
    {"Size", "{WRTSize=ff}", 8},
    {"Rect", "{WRTRect=ffff}", 16},
};

struct Expected {
  std::string selector;
  int slot;
  std::string encoding;
};

/// A pointer to a value. A byte's has an encoding of its own.
std::string pointer(const std::string &encoding) { return encoding == "C" ? "*" : "^" + encoding; }

/// A pointer to a pointer, where structures no longer show their fields.
std::string pointerToPointer(const std::string &encoding) {
  const size_t fields = encoding.find('=');
  return "^" + pointer(fields == std::string::npos ? encoding : encoding.substr(0, fields) + "}");
}

void expectMembers(const std::string &className, char side, const std::vector<Expected> &expected) {
  std::vector<CatalogueMethod> members;
  for (const CatalogueMethod &method : catalogueTable().at(className)) {
    if (method.isMember() && method.side == side)
      members.push_back(method);
  }
  ASSERT_EQ(expected.size(), members.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(expected[i].selector, members[i].selector);
    EXPECT_EQ(expected[i].slot, members[i].slot) << expected[i].selector;
    EXPECT_EQ(expected[i].encoding, members[i].encoding) << expected[i].selector;
  }
}

/// The member that takes or fills an array: `prefix` and `encoding` are those of a C array's, and
/// `objectEncoding` that of an `NSArray`'s.
Expected arrayMember(const std::string &prefix, const BoxedType &type, int slot,
                     const std::string &encoding, const std::string &objectEncoding) {
  const std::string start = prefix + type.name + "Array";
  if (type.encoding == "@")
    return {start + "WithValue:error:", slot, objectEncoding};
  return {start + "WithValueSize:value:error:", slot, encoding};
}

} // namespace

TEST(PropertyValue, Factories) {
  std::vector<Expected> expected = {{"createEmptyWithError:", 6, "@12@0:4^@8"}};
  int slot = 7;
  for (const BoxedType &type : kTypes) {
    std::string encoding = "@" + std::to_string(12 + type.size) + "@0:4";
    encoding.append(type.encoding).append("8^@").append(std::to_string(8 + type.size));
    expected.push_back({"create" + type.name + "WithValue:error:", slot++, encoding});
  }
  for (const BoxedType &type : kTypes) {
    expected.push_back(arrayMember(
        "create", type, slot++, "@20@0:4I8" + pointer(type.encoding) + "12^@16", "@16@0:4@8^@12"));
  }
  EXPECT_EQ(45, slot);
  expectMembers("WRTPropertyValueBridge", '+', expected);
}

TEST(PropertyValue, Getters) {
  std::vector<Expected> expected = {{"getTypeWithError:", 6, "i12@0:4^@8"},
                                    {"getIsNumericScalarWithError:", 7, "B12@0:4^@8"}};
  int slot = 8;
  for (const BoxedType &type : kTypes) {
    if (type.name != "Inspectable")
      expected.push_back({"get" + type.name + "WithError:", slot++, type.encoding + "12@0:4^@8"});
  }
  for (const BoxedType &type : kTypes) {
    expected.push_back(arrayMember("get", type, slot++,
                                   "v20@0:4^I8" + pointerToPointer(type.encoding) + "12^@16",
                                   "v16@0:4@8^@12"));
  }
  EXPECT_EQ(45, slot);
  expectMembers("WRTIPropertyValueBridge", '-', expected);
}
