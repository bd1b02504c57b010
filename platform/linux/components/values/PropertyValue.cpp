// The runtime class Windows.Foundation.PropertyValue: the makers of property values.

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/values/Reference.h"

namespace wrt::implement {
namespace {

/// A new property value (+1) of a borrowed value.
template <class T>
HRESULT box(const Abi<T> &value, abi::IInspectable **object) {
  if (object == nullptr)
    return status::kPointer;
  *object = nullptr;
  Stored<T> stored{};
  const HRESULT status = T::store(value, stored);
  return status < 0 ? status : makeReference<T>(object, std::move(stored));
}

/// The same for a borrowed array.
template <class T>
HRESULT boxArray(uint32_t count, const Abi<T> *values, abi::IInspectable **object) {
  if (object == nullptr)
    return status::kPointer;
  *object = nullptr;
  std::vector<Stored<T>> stored;
  const HRESULT status = storeArray<T>(count, values, stored);
  if (status >= 0)
    *object = make<ArrayValue<T>>(std::move(stored)).detach()->identity();
  return status;
}

class PropertyValueStatics final : public ActivationFactory<abi::IPropertyValueStatics> {
public:
  HRESULT WRT_ABI CreateEmpty(abi::IInspectable **object) override {
    return makeInto<EmptyValue>(object);
  }
  HRESULT WRT_ABI CreateUInt8(Abi<UInt8> value, abi::IInspectable **object) override {
    return box<UInt8>(value, object);
  }
  HRESULT WRT_ABI CreateInt16(Abi<Int16> value, abi::IInspectable **object) override {
    return box<Int16>(value, object);
  }
  HRESULT WRT_ABI CreateUInt16(Abi<UInt16> value, abi::IInspectable **object) override {
    return box<UInt16>(value, object);
  }
  HRESULT WRT_ABI CreateInt32(Abi<Int32> value, abi::IInspectable **object) override {
    return box<Int32>(value, object);
  }
  HRESULT WRT_ABI CreateUInt32(Abi<UInt32> value, abi::IInspectable **object) override {
    return box<UInt32>(value, object);
  }
  HRESULT WRT_ABI CreateInt64(Abi<Int64> value, abi::IInspectable **object) override {
    return box<Int64>(value, object);
  }
  HRESULT WRT_ABI CreateUInt64(Abi<UInt64> value, abi::IInspectable **object) override {
    return box<UInt64>(value, object);
  }
  HRESULT WRT_ABI CreateSingle(Abi<Single> value, abi::IInspectable **object) override {
    return box<Single>(value, object);
  }
  HRESULT WRT_ABI CreateDouble(Abi<Double> value, abi::IInspectable **object) override {
    return box<Double>(value, object);
  }
  HRESULT WRT_ABI CreateChar16(Abi<Char16> value, abi::IInspectable **object) override {
    return box<Char16>(value, object);
  }
  HRESULT WRT_ABI CreateBoolean(Abi<Boolean> value, abi::IInspectable **object) override {
    return box<Boolean>(value, object);
  }
  HRESULT WRT_ABI CreateString(Abi<String> value, abi::IInspectable **object) override {
    return box<String>(value, object);
  }
  /// An object is its own value; there is none for null.
  HRESULT WRT_ABI CreateInspectable(Abi<Inspectable> value, abi::IInspectable **object) override {
    const HRESULT status = ComPtr(value).copyTo(object);
    return status >= 0 && value == nullptr ? status::kInvalidArgument : status;
  }
  HRESULT WRT_ABI CreateGuid(Abi<Guid> value, abi::IInspectable **object) override {
    return box<Guid>(value, object);
  }
  HRESULT WRT_ABI CreateDateTime(Abi<DateTime> value, abi::IInspectable **object) override {
    return box<DateTime>(value, object);
  }
  HRESULT WRT_ABI CreateTimeSpan(Abi<TimeSpan> value, abi::IInspectable **object) override {
    return box<TimeSpan>(value, object);
  }
  HRESULT WRT_ABI CreatePoint(Abi<Point> value, abi::IInspectable **object) override {
    return box<Point>(value, object);
  }
  HRESULT WRT_ABI CreateSize(Abi<Size> value, abi::IInspectable **object) override {
    return box<Size>(value, object);
  }
  HRESULT WRT_ABI CreateRect(Abi<Rect> value, abi::IInspectable **object) override {
    return box<Rect>(value, object);
  }

  HRESULT WRT_ABI CreateUInt8Array(unsigned int count, Abi<UInt8> *values,
                                   abi::IInspectable **object) override {
    return boxArray<UInt8>(count, values, object);
  }
  HRESULT WRT_ABI CreateInt16Array(unsigned int count, Abi<Int16> *values,
                                   abi::IInspectable **object) override {
    return boxArray<Int16>(count, values, object);
  }
  HRESULT WRT_ABI CreateUInt16Array(unsigned int count, Abi<UInt16> *values,
                                    abi::IInspectable **object) override {
    return boxArray<UInt16>(count, values, object);
  }
  HRESULT WRT_ABI CreateInt32Array(unsigned int count, Abi<Int32> *values,
                                   abi::IInspectable **object) override {
    return boxArray<Int32>(count, values, object);
  }
  HRESULT WRT_ABI CreateUInt32Array(unsigned int count, Abi<UInt32> *values,
                                    abi::IInspectable **object) override {
    return boxArray<UInt32>(count, values, object);
  }
  HRESULT WRT_ABI CreateInt64Array(unsigned int count, Abi<Int64> *values,
                                   abi::IInspectable **object) override {
    return boxArray<Int64>(count, values, object);
  }
  HRESULT WRT_ABI CreateUInt64Array(unsigned int count, Abi<UInt64> *values,
                                    abi::IInspectable **object) override {
    return boxArray<UInt64>(count, values, object);
  }
  HRESULT WRT_ABI CreateSingleArray(unsigned int count, Abi<Single> *values,
                                    abi::IInspectable **object) override {
    return boxArray<Single>(count, values, object);
  }
  HRESULT WRT_ABI CreateDoubleArray(unsigned int count, Abi<Double> *values,
                                    abi::IInspectable **object) override {
    return boxArray<Double>(count, values, object);
  }
  HRESULT WRT_ABI CreateChar16Array(unsigned int count, Abi<Char16> *values,
                                    abi::IInspectable **object) override {
    return boxArray<Char16>(count, values, object);
  }
  HRESULT WRT_ABI CreateBooleanArray(unsigned int count, Abi<Boolean> *values,
                                     abi::IInspectable **object) override {
    return boxArray<Boolean>(count, values, object);
  }
  HRESULT WRT_ABI CreateStringArray(unsigned int count, Abi<String> *values,
                                    abi::IInspectable **object) override {
    return boxArray<String>(count, values, object);
  }
  HRESULT WRT_ABI CreateInspectableArray(unsigned int count, Abi<Inspectable> *values,
                                         abi::IInspectable **object) override {
    return boxArray<Inspectable>(count, values, object);
  }
  HRESULT WRT_ABI CreateGuidArray(unsigned int count, Abi<Guid> *values,
                                  abi::IInspectable **object) override {
    return boxArray<Guid>(count, values, object);
  }
  HRESULT WRT_ABI CreateDateTimeArray(unsigned int count, Abi<DateTime> *values,
                                      abi::IInspectable **object) override {
    return boxArray<DateTime>(count, values, object);
  }
  HRESULT WRT_ABI CreateTimeSpanArray(unsigned int count, Abi<TimeSpan> *values,
                                      abi::IInspectable **object) override {
    return boxArray<TimeSpan>(count, values, object);
  }
  HRESULT WRT_ABI CreatePointArray(unsigned int count, Abi<Point> *values,
                                   abi::IInspectable **object) override {
    return boxArray<Point>(count, values, object);
  }
  HRESULT WRT_ABI CreateSizeArray(unsigned int count, Abi<Size> *values,
                                  abi::IInspectable **object) override {
    return boxArray<Size>(count, values, object);
  }
  HRESULT WRT_ABI CreateRectArray(unsigned int count, Abi<Rect> *values,
                                  abi::IInspectable **object) override {
    return boxArray<Rect>(count, values, object);
  }
};

const activation::Registration registration(u"Windows.Foundation.PropertyValue",
                                            activation::makeFactory<PropertyValueStatics>);

} // namespace
} // namespace wrt::implement
