#ifndef WRT_MARSHAL_OUT_H
#define WRT_MARSHAL_OUT_H

namespace wrt {

/// An out-parameter of the kind: the method takes a pointer to the caller's variable, or the
/// caller's mutable array, which is written on success only.
template <class Kind>
struct Out;

/// An array that WinRT writes into elements of the bridge's, as many as the `Capacity` before it
/// asks for.
template <class Kind>
struct Fill;

} // namespace wrt

#endif
