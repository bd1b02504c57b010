/// Boxed values. A member that returns an optional number, structure or enumeration:
///
///     HRESULT WRT_ABI get_Reminder(abi::IReference__1_WRTTimeSpan **value) override {
///       return makeReference<TimeSpan>(value, WRTTimeSpan{600'000'000});
///     }
///
/// and one that returns it as an object: `makeReference<UInt32>(object, 17)` with an
/// `abi::IInspectable **`. Every boxed value is an `IPropertyValue` as well.
#ifndef WRT_COMPONENTS_REFERENCE_H
#define WRT_COMPONENTS_REFERENCE_H

#include "platform/linux/components/generic/InterfaceCast.h"
#include "platform/linux/components/values/GiveOutArray.h"
#include "platform/linux/components/values/PropertyValueMembers.h"
#include "platform/linux/implement/Implements.h"

namespace wrt::implement {

/// The runtime class name of boxed values: ``Windows.Foundation.IReference`1<Int32>`` for
/// "IReference" and `Int32`.
template <class T>
std::u16string boxName(std::u16string_view family) {
  std::u16string name = u"Windows.Foundation.";
  return ((name += family) += u"`1<") += std::u16string(T::kName) + u">";
}

/// A value of one of the property types.
template <class T>
class ScalarValue final : public Implements<PropertyValueMembers, IReference<T>> {
public:
  explicit ScalarValue(Stored<T> value) { this->content_ = Scalar<T>{std::move(value)}; }

  HRESULT WRT_ABI get_Value(Abi<T> *value) override {
    if (value == nullptr)
      return status::kPointer;
    return T::giveOut(std::get<Scalar<T>>(this->content_).value, value);
  }

private:
  std::u16string_view runtimeClassName() const override {
    static const std::u16string name = boxName<T>(u"IReference");
    return name;
  }
};

/// A value of any other type.
template <class T>
class OtherValue final : public Implements<PropertyValueMembers, IReference<T>> {
public:
  explicit OtherValue(Stored<T> value) : value_(std::move(value)) { this->content_ = OtherType{}; }

  HRESULT WRT_ABI get_Value(Abi<T> *value) override {
    return value == nullptr ? status::kPointer : T::giveOut(value_, value);
  }

private:
  std::u16string_view runtimeClassName() const override {
    static const std::u16string name = boxName<T>(u"IReference");
    return name;
  }

  const Stored<T> value_;
};

/// An array of values of one of the property types.
template <class T>
class ArrayValue final : public Implements<PropertyValueMembers, IReferenceArray<T>> {
public:
  explicit ArrayValue(std::vector<Stored<T>> values) {
    this->content_ = Elements<T>{std::move(values)};
  }

  HRESULT WRT_ABI get_Value(uint32_t *count, Abi<T> **values) override {
    return giveOutArray<T>(std::get<Elements<T>>(this->content_).values, count, values);
  }

private:
  std::u16string_view runtimeClassName() const override {
    static const std::u16string name = boxName<T>(u"IReferenceArray");
    return name;
  }
};

/// No value: `PropertyType` Empty.
class EmptyValue final : public Implements<PropertyValueMembers> {};

/// The class of boxed values of `T`.
template <class T>
using BoxOf = std::conditional_t<kIsPropertyType<T>, ScalarValue<T>, OtherValue<T>>;

/// A boxed value, as the reference or the object that the parameter is declared as; `*reference` is
/// +1.
template <class T, class Declared>
HRESULT makeReference(Declared **reference, Stored<T> value) {
  auto box = make<BoxOf<T>>(std::move(value));
  if constexpr (std::is_same_v<Declared, abi::IInspectable>)
    return handOut<abi::IInspectable>(ComPtr<PropertyValueMembers>(std::move(box)), reference);
  else
    return handOut<IReference<T>>(std::move(box), reference);
}

} // namespace wrt::implement

#endif
