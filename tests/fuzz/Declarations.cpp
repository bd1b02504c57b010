// Any text is refused with a place in a file, or becomes outputs.

#include "generator/Generate.h"

#include <cstdlib>
#include <iostream>
#include <sstream>

namespace {

using namespace bridgegen;

/// What inputs may name.
const char *const kKnown = R"(namespace Windows.Foundation;
struct TimeSpan { Int64 Duration; }
enum AsyncStatus { Started = 0, Completed = 1 }
full interface IClosable {30d5a829-7fa4-4026-83bb-d75bae4ea99e} { void Close(); }
delegate TypedEventHandler<S, A> {9de1c534-6ae1-11e0-84e1-18a905bcc53f} (S sender, A args);
interface IReference<T> {61c17706-2d65-11e0-9ae8-d48564015472} { T Value { get; } }
namespace Windows.Foundation.Collections;
interface IVectorView<T> {bbe1fa4c-b0e3-4583-baef-1f1b2e483e56} { T GetAt(UInt32 index); UInt32 Size { get; } }
)";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  std::deque<Source> sources;
  sources.emplace_back("known.idl", kKnown);
  sources.emplace_back("input.idl", std::string(reinterpret_cast<const char *>(data), size));
  Diagnostics diagnostics;
  const auto outputs = generate(sources, {}, diagnostics);
  std::ostringstream errors;
  diagnostics.print(errors);
  if (outputs.has_value() == diagnostics.hasErrors() ||
      (!outputs && errors.str().find(".idl:") == std::string::npos)) {
    std::cerr << errors.str();
    std::abort();
  }
  return 0;
}
