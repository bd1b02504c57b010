#ifndef WRT_COMPONENTS_PROPERTY_VALUE_MEMBERS_H
#define WRT_COMPONENTS_PROPERTY_VALUE_MEMBERS_H

#include "platform/linux/components/values/PropertyTypes.h"

namespace wrt::implement {

/// The members of `IPropertyValue`, whatever the value. A getter of another type answers
/// `TYPE_E_TYPEMISMATCH`, except that numbers are converted, or `DISP_E_OVERFLOW`.
class WRT_DLLEXPORT PropertyValueMembers : public abi::IPropertyValue {
public:
  HRESULT WRT_ABI get_Type(int *type) override;
  HRESULT WRT_ABI get_IsNumericScalar(unsigned char *isNumericScalar) override;

  HRESULT WRT_ABI GetUInt8(Abi<UInt8> *value) override;
  HRESULT WRT_ABI GetInt16(Abi<Int16> *value) override;
  HRESULT WRT_ABI GetUInt16(Abi<UInt16> *value) override;
  HRESULT WRT_ABI GetInt32(Abi<Int32> *value) override;
  HRESULT WRT_ABI GetUInt32(Abi<UInt32> *value) override;
  HRESULT WRT_ABI GetInt64(Abi<Int64> *value) override;
  HRESULT WRT_ABI GetUInt64(Abi<UInt64> *value) override;
  HRESULT WRT_ABI GetSingle(Abi<Single> *value) override;
  HRESULT WRT_ABI GetDouble(Abi<Double> *value) override;
  HRESULT WRT_ABI GetChar16(Abi<Char16> *value) override;
  HRESULT WRT_ABI GetBoolean(Abi<Boolean> *value) override;
  HRESULT WRT_ABI GetString(Abi<String> *value) override;
  HRESULT WRT_ABI GetGuid(Abi<Guid> *value) override;
  HRESULT WRT_ABI GetDateTime(Abi<DateTime> *value) override;
  HRESULT WRT_ABI GetTimeSpan(Abi<TimeSpan> *value) override;
  HRESULT WRT_ABI GetPoint(Abi<Point> *value) override;
  HRESULT WRT_ABI GetSize(Abi<Size> *value) override;
  HRESULT WRT_ABI GetRect(Abi<Rect> *value) override;

  HRESULT WRT_ABI GetUInt8Array(unsigned int *count, Abi<UInt8> **values) override;
  HRESULT WRT_ABI GetInt16Array(unsigned int *count, Abi<Int16> **values) override;
  HRESULT WRT_ABI GetUInt16Array(unsigned int *count, Abi<UInt16> **values) override;
  HRESULT WRT_ABI GetInt32Array(unsigned int *count, Abi<Int32> **values) override;
  HRESULT WRT_ABI GetUInt32Array(unsigned int *count, Abi<UInt32> **values) override;
  HRESULT WRT_ABI GetInt64Array(unsigned int *count, Abi<Int64> **values) override;
  HRESULT WRT_ABI GetUInt64Array(unsigned int *count, Abi<UInt64> **values) override;
  HRESULT WRT_ABI GetSingleArray(unsigned int *count, Abi<Single> **values) override;
  HRESULT WRT_ABI GetDoubleArray(unsigned int *count, Abi<Double> **values) override;
  HRESULT WRT_ABI GetChar16Array(unsigned int *count, Abi<Char16> **values) override;
  HRESULT WRT_ABI GetBooleanArray(unsigned int *count, Abi<Boolean> **values) override;
  HRESULT WRT_ABI GetStringArray(unsigned int *count, Abi<String> **values) override;
  HRESULT WRT_ABI GetInspectableArray(unsigned int *count, Abi<Inspectable> **values) override;
  HRESULT WRT_ABI GetGuidArray(unsigned int *count, Abi<Guid> **values) override;
  HRESULT WRT_ABI GetDateTimeArray(unsigned int *count, Abi<DateTime> **values) override;
  HRESULT WRT_ABI GetTimeSpanArray(unsigned int *count, Abi<TimeSpan> **values) override;
  HRESULT WRT_ABI GetPointArray(unsigned int *count, Abi<Point> **values) override;
  HRESULT WRT_ABI GetSizeArray(unsigned int *count, Abi<Size> **values) override;
  HRESULT WRT_ABI GetRectArray(unsigned int *count, Abi<Rect> **values) override;

protected:
  PropertyContent content_;

private:
  template <class T>
  HRESULT scalar(Abi<T> *value) const;
  template <class T>
  HRESULT array(unsigned int *count, Abi<T> **values) const;
};

} // namespace wrt::implement

#endif
