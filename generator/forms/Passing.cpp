#include "generator/forms/Passing.h"

#include <algorithm>

namespace bridgegen {

namespace {

using syntax::Filled;

constexpr PassedWord kValue[] = {{Word::Value, 0}};
constexpr PassedWord kPlace[] = {{Word::Value, 1}};
constexpr PassedWord kArray[] = {{Word::Count, 0}, {Word::Value, 1}};
constexpr PassedWord kArrayPlace[] = {{Word::Count, 1}, {Word::Value, 2}};
constexpr PassedWord kCountedRoom[] = {{Word::Count, 0}, {Word::FilledCount, 1}, {Word::Value, 1}};
constexpr PassedWord kRoomWithCountBehind[] = {
    {Word::Count, 0}, {Word::Value, 1}, {Word::FilledCount, 1}};

constexpr const MarshalWord *kOut[] = {&marshalWord("Out")};
constexpr const MarshalWord *kInArray[] = {&marshalWord("Array")};
constexpr const MarshalWord *kOutArray[] = {&marshalWord("Out"), &marshalWord("Array")};
constexpr const MarshalWord *kFilledArray[] = {&marshalWord("Fill"), &marshalWord("Array")};
constexpr const MarshalWord *kBulkRead[] = {&marshalWord("BulkRead")};
constexpr const MarshalWord *kReturnedArray[] = {&marshalWord("ReturnedArray")};
constexpr const MarshalWord *kReturnedFill[] = {&marshalWord("ReturnedFill")};

constexpr const char *kImmutable = "NSArray";
constexpr const char *kMutable = "NSMutableArray";

constexpr Passing kPassings[] = {
    // T a
    {.words = kValue, .objects = ObjectForm{}, .takesDelegates = true},
    // out T a
    {.isOut = true, .words = kPlace, .objects = ObjectForm{.around = kOut}},
    // T[count] a
    {.isArray = true,
     .words = kArray,
     .objects = ObjectForm{.around = kInArray, .arrayClass = kImmutable}},
    // out T[count] a
    {.isArray = true,
     .isOut = true,
     .words = kArrayPlace,
     .objects = ObjectForm{.around = kOutArray, .arrayClass = kMutable}},
    // fill T[size] a
    {.isArray = true, .isFill = true, .words = kArray},
    // fill T[size, out count] a
    {.isArray = true,
     .isFill = true,
     .filled = Filled::Out,
     .words = kCountedRoom,
     .objects = ObjectForm{.around = kFilledArray, .arrayClass = kMutable, .hasCapacity = true}},
    // fill T[capacity, return actual] a
    {.isArray = true,
     .isFill = true,
     .filled = Filled::Return,
     .words = kRoomWithCountBehind,
     .objects =
         ObjectForm{
             .around = kBulkRead, .arrayClass = kImmutable, .hasCapacity = true, .isResult = true}},
    // return T[count] a
    {.isArray = true,
     .isReturn = true,
     .words = kArrayPlace,
     .objects = ObjectForm{.around = kReturnedArray, .arrayClass = kMutable, .isResult = true}},
    // return fill T[size, out count] a
    {.isArray = true,
     .isReturn = true,
     .isFill = true,
     .filled = Filled::Out,
     .words = kCountedRoom,
     .objects = ObjectForm{.around = kReturnedFill,
                           .arrayClass = kMutable,
                           .hasCapacity = true,
                           .isResult = true}},
};

} // namespace

const Passing &kPassedIn = kPassings[0];

const Passing *passingOf(const syntax::Parameter &parameter) {
  const Filled filled = parameter.array ? parameter.array->filled : Filled::Nowhere;
  const auto found = std::ranges::find_if(kPassings, [&](const Passing &passing) {
    return passing.isArray == parameter.array.has_value() &&
           passing.isReturn == parameter.isReturn && passing.isOut == parameter.isOut &&
           passing.isFill == parameter.isFill && passing.filled == filled;
  });
  return found == std::end(kPassings) ? nullptr : found;
}

} // namespace bridgegen
