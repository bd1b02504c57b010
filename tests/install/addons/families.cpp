// A component that knows the same instance from two add-ons.
#include "abi/First.families.h"
#include "abi/Second.families.h"

using namespace wrt::implement;

static_assert(kIdentifier<IVectorView<types::Rect>>.Data1 != 0);
static_assert(kIdentifier<IVectorView<types::FirstGuest>>.Data1 ==
              kIdentifier<IVectorView<types::SecondGuest>>.Data1);
