#include "platform/linux/components/values/PropertyValueMembers.h"

#include "platform/linux/components/values/GiveOutArray.h"
#include "platform/linux/components/values/NumericConversion.h"

namespace wrt::implement {

template <class T>
HRESULT PropertyValueMembers::scalar(Abi<T> *value) const {
  if (value == nullptr)
    return status::kPointer;
  *value = Abi<T>{};
  return std::visit(
      [&]<class Held>(const Held &held) {
        if constexpr (std::is_same_v<Held, Scalar<T>>) {
          return T::giveOut(held.value, value);
        } else if constexpr (requires { held.value; }) {
          if constexpr (kIsNumeric<T> && kIsNumeric<typename Held::Type>)
            return convertNumber(held.value, value);
        }
        return kTypeMismatch;
      },
      content_);
}

template <class T>
HRESULT PropertyValueMembers::array(unsigned int *count, Abi<T> **values) const {
  const auto *held = std::get_if<Elements<T>>(&content_);
  if (held != nullptr)
    return giveOutArray<T>(held->values, count, values);
  const HRESULT status = giveOutArray<T>({}, count, values);
  return status < 0 ? status : kTypeMismatch;
}

HRESULT PropertyValueMembers::get_Type(int *type) {
  if (type == nullptr)
    return status::kPointer;
  *type = propertyTypeOf(content_);
  return status::kOk;
}

HRESULT PropertyValueMembers::get_IsNumericScalar(unsigned char *isNumericScalar) {
  if (isNumericScalar == nullptr)
    return status::kPointer;
  *isNumericScalar = std::visit(
      []<class Held>(const Held &held) {
        if constexpr (requires { held.value; })
          return kIsNumeric<typename Held::Type>;
        return false;
      },
      content_);
  return status::kOk;
}

HRESULT PropertyValueMembers::GetUInt8(Abi<UInt8> *value) { return scalar<UInt8>(value); }
HRESULT PropertyValueMembers::GetInt16(Abi<Int16> *value) { return scalar<Int16>(value); }
HRESULT PropertyValueMembers::GetUInt16(Abi<UInt16> *value) { return scalar<UInt16>(value); }
HRESULT PropertyValueMembers::GetInt32(Abi<Int32> *value) { return scalar<Int32>(value); }
HRESULT PropertyValueMembers::GetUInt32(Abi<UInt32> *value) { return scalar<UInt32>(value); }
HRESULT PropertyValueMembers::GetInt64(Abi<Int64> *value) { return scalar<Int64>(value); }
HRESULT PropertyValueMembers::GetUInt64(Abi<UInt64> *value) { return scalar<UInt64>(value); }
HRESULT PropertyValueMembers::GetSingle(Abi<Single> *value) { return scalar<Single>(value); }
HRESULT PropertyValueMembers::GetDouble(Abi<Double> *value) { return scalar<Double>(value); }
HRESULT PropertyValueMembers::GetChar16(Abi<Char16> *value) { return scalar<Char16>(value); }
HRESULT PropertyValueMembers::GetBoolean(Abi<Boolean> *value) { return scalar<Boolean>(value); }
HRESULT PropertyValueMembers::GetString(Abi<String> *value) { return scalar<String>(value); }
HRESULT PropertyValueMembers::GetGuid(Abi<Guid> *value) { return scalar<Guid>(value); }
HRESULT PropertyValueMembers::GetDateTime(Abi<DateTime> *value) { return scalar<DateTime>(value); }
HRESULT PropertyValueMembers::GetTimeSpan(Abi<TimeSpan> *value) { return scalar<TimeSpan>(value); }
HRESULT PropertyValueMembers::GetPoint(Abi<Point> *value) { return scalar<Point>(value); }
HRESULT PropertyValueMembers::GetSize(Abi<Size> *value) { return scalar<Size>(value); }
HRESULT PropertyValueMembers::GetRect(Abi<Rect> *value) { return scalar<Rect>(value); }

HRESULT PropertyValueMembers::GetUInt8Array(unsigned int *count, Abi<UInt8> **values) {
  return array<UInt8>(count, values);
}
HRESULT PropertyValueMembers::GetInt16Array(unsigned int *count, Abi<Int16> **values) {
  return array<Int16>(count, values);
}
HRESULT PropertyValueMembers::GetUInt16Array(unsigned int *count, Abi<UInt16> **values) {
  return array<UInt16>(count, values);
}
HRESULT PropertyValueMembers::GetInt32Array(unsigned int *count, Abi<Int32> **values) {
  return array<Int32>(count, values);
}
HRESULT PropertyValueMembers::GetUInt32Array(unsigned int *count, Abi<UInt32> **values) {
  return array<UInt32>(count, values);
}
HRESULT PropertyValueMembers::GetInt64Array(unsigned int *count, Abi<Int64> **values) {
  return array<Int64>(count, values);
}
HRESULT PropertyValueMembers::GetUInt64Array(unsigned int *count, Abi<UInt64> **values) {
  return array<UInt64>(count, values);
}
HRESULT PropertyValueMembers::GetSingleArray(unsigned int *count, Abi<Single> **values) {
  return array<Single>(count, values);
}
HRESULT PropertyValueMembers::GetDoubleArray(unsigned int *count, Abi<Double> **values) {
  return array<Double>(count, values);
}
HRESULT PropertyValueMembers::GetChar16Array(unsigned int *count, Abi<Char16> **values) {
  return array<Char16>(count, values);
}
HRESULT PropertyValueMembers::GetBooleanArray(unsigned int *count, Abi<Boolean> **values) {
  return array<Boolean>(count, values);
}
HRESULT PropertyValueMembers::GetStringArray(unsigned int *count, Abi<String> **values) {
  return array<String>(count, values);
}
HRESULT PropertyValueMembers::GetInspectableArray(unsigned int *count, Abi<Inspectable> **values) {
  return array<Inspectable>(count, values);
}
HRESULT PropertyValueMembers::GetGuidArray(unsigned int *count, Abi<Guid> **values) {
  return array<Guid>(count, values);
}
HRESULT PropertyValueMembers::GetDateTimeArray(unsigned int *count, Abi<DateTime> **values) {
  return array<DateTime>(count, values);
}
HRESULT PropertyValueMembers::GetTimeSpanArray(unsigned int *count, Abi<TimeSpan> **values) {
  return array<TimeSpan>(count, values);
}
HRESULT PropertyValueMembers::GetPointArray(unsigned int *count, Abi<Point> **values) {
  return array<Point>(count, values);
}
HRESULT PropertyValueMembers::GetSizeArray(unsigned int *count, Abi<Size> **values) {
  return array<Size>(count, values);
}
HRESULT PropertyValueMembers::GetRectArray(unsigned int *count, Abi<Rect> **values) {
  return array<Rect>(count, values);
}

} // namespace wrt::implement
