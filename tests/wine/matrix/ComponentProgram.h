#ifndef WRT_TESTS_WINE_COMPONENT_PROGRAM_H
#define WRT_TESTS_WINE_COMPONENT_PROGRAM_H

namespace wrt::test {

/// Loads the test component's DLL and makes this program's script and record its own; from then on
/// `keptDelegate` is the DLL's. Whether that worked.
bool connectComponent(const char16_t *path);

/// Whether the test class comes from code that Wine loaded, and not from this program's libraries.
bool isComponentForeign();

} // namespace wrt::test

#endif
