#include "platform/linux/wine/WindowsFunctions.h"

namespace wrt::wine {

namespace {

const WindowsFunctions *table = nullptr;

} // namespace

const WindowsFunctions &windows() { return *table; }

void setWindows(const WindowsFunctions *functions) { table = functions; }

} // namespace wrt::wine
