#ifndef WRT_MARSHAL_ADAPTER_H
#define WRT_MARSHAL_ADAPTER_H

#include "marshal/Delegate.h"
#include "marshal/Object.h"
#include "marshal/Shield.h"
#include "marshal/String.h"

namespace wrt {

/// A delegate's argument that crosses as it is.
template <class T>
struct Passed {
  using Raw = T;
  using Type = T;

  T value;

  explicit Passed(T raw) : value(raw) {}
  T get() const { return value; }
};

/// A delegate's string argument; the handle stays WinRT's.
struct PassedString {
  using Raw = HSTRING;
  using Type = NSString *;

  Retained<NSString *> string;

  explicit PassedString(HSTRING raw) : string(WRTCreateNSStringFromHSTRING(raw)) {}
  NSString *get() const { return string.get(); }
};

/// A delegate's object argument of the interface `Table`: a bridge of class `type` with a reference
/// of its own.
template <class Table, ClassReference type>
struct PassedObject {
  using Raw = Table *;
  using Type = id;

  Retained<> object;

  explicit PassedObject(Table *raw) : object(bridge(type, raw)) {}
  id get() const { return object.get(); }
};

namespace detail {

/// Makes the adapter's arguments one by one, first to last, calls `handler` with them and drops
/// them last to first.
template <class Handler>
HRESULT convertAndCall(const Handler &handler) {
  return handler();
}

template <class Head, class... Tail, class Handler>
HRESULT convertAndCall(const Handler &handler, typename Head::Raw raw, typename Tail::Raw... rest) {
  Head argument(raw);
  return convertAndCall<Tail...>([&](auto... more) { return handler(argument.get(), more...); },
                                 rest...);
}

} // namespace detail

/// The maker of a delegate without result: `factory` is its `WRT<Delegate>FromBlock`. The adapter
/// captures the caller's block alone, and its signature names the raw arguments.
template <auto factory, class... Arguments>
void *makeDelegate(id handler, Retained<> &adapter) {
  HRESULT (^block)(typename Arguments::Type...) = handler;
  adapter.fill(objc_retainBlock(^HRESULT(typename Arguments::Raw... raw) {
    return shielded(kAdapterName<factory>.data(), [&] {
      return detail::convertAndCall<Arguments...>(
          [&](auto... arguments) { return block(arguments...); }, raw...);
    });
  }));
  return factory(adapter.get());
}

/// The maker of a delegate that returns a string through its last argument, which is written only
/// when the block succeeds and leaves a string.
template <auto factory>
void *makeStringDelegate(id handler, Retained<> &adapter) {
  HRESULT (^block)(NSString **) = handler;
  adapter.fill(objc_retainBlock(^HRESULT(HSTRING *result) {
    return shielded(kAdapterName<factory>.data(), [&] {
      NSString *string = nil;
      const HRESULT status = block(&string);
      if (status >= 0 && string)
        *result = WRTCreateHSTRINGFromNSString(string);
      return status;
    });
  }));
  return factory(adapter.get());
}

/// Under which name a delegate's adapter logs, and what.
struct AdapterSite {
  const char *function;
  NSString *message;
};

/// The interface (+1) that `object` hands to WinRT as a delegate's result. A failure is logged and
/// gives null.
void *delegateResult(id object, Accessor accessor, const AdapterSite &site);

/// The maker of a delegate that returns an interface through its last argument, which is written
/// only when the block succeeds and leaves an object. The block's status is returned unchanged.
template <auto factory, Accessor accessor, const AdapterSite &site>
void *makeInterfaceDelegate(id handler, Retained<> &adapter) {
  HRESULT (^block)(id *) = handler;
  adapter.fill(objc_retainBlock(^HRESULT(void **result) {
    return shielded(site.function, [&] {
      id object = nil;
      const HRESULT status = block(&object);
      if (status >= 0 && object)
        *result = delegateResult(object, accessor, site);
      return status;
    });
  }));
  return factory(adapter.get());
}

} // namespace wrt

#endif
