// Any bytes at all are refused or become declarations that can be read.

#include "generator/metadata/Import.h"
#include "generator/read/Parser.h"

#include <cstdlib>
#include <iostream>

namespace {

using namespace bridgegen;

/// What the seeds name from outside.
const char *const kKnown = R"(namespace Windows.Foundation;
struct TimeSpan { Int64 Duration; }
struct Rect { Single X; Single Y; Single Width; Single Height; }
enum AsyncStatus { Started = 0 }
proxy interface IUriRuntimeClass {9e365e57-48b2-4160-956f-c7385120bbfc};
proxy class Uri : IUriRuntimeClass;
full interface IClosable {30d5a829-7fa4-4026-83bb-d75bae4ea99e} { void Close(); }
delegate TypedEventHandler<S, A> {9de1c534-6ae1-11e0-84e1-18a905bcc53f} (S sender, A args);
delegate Done<T> {fcdcf02c-e5d8-4478-915a-4d90b74b83a5} (IAsyncOperation<T> info, AsyncStatus status);
interface IAsyncOperation<T> {9fc2b0bb-e446-44e2-aa61-9cab8f636af2}
{ Done<T> Completed { set(handler); get; } T GetResults(); }
interface IReference<T> {61c17706-2d65-11e0-9ae8-d48564015472} { T Value { get; } }
namespace Windows.Foundation.Collections;
interface IIterable<T> {faa585ea-6214-4217-afda-7f46de5869b3} { IIterator<T> First(); }
interface IIterator<T> {6a79e863-4300-459a-9966-cbb660963ee1} { T Current { get; } }
interface IVector<T> {913337e9-11a1-4345-a3a2-4e7f956e222d} { IVectorView<T> GetView(); }
interface IVectorView<T> {bbe1fa4c-b0e3-4583-baef-1f1b2e483e56} { T GetAt(UInt32 index); }
)";

void tryImport(const metadata::Library &library, const metadata::Wanted &wanted) {
  std::deque<Source> known;
  known.emplace_back("known.idl", kKnown);
  std::deque<Source> written;
  Diagnostics diagnostics;
  try {
    metadata::importTypes(library, known, wanted, {}, diagnostics, written);
  } catch (const metadata::Refused &) {
  }
  // What is written may be refused for what it means, never for how it is written.
  Diagnostics syntax;
  for (const Source &source : written)
    parse(source, syntax);
  if (syntax.hasErrors()) {
    syntax.print(std::cerr);
    std::abort();
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char *>(data), size);
  metadata::Library library;
  try {
    library.add("input.winmd", bytes);
  } catch (const metadata::Refused &) {
    return 0;
  }
  tryImport(library, {});
  tryImport(library, {{"Contoso"}, {}, {}});
  return 0;
}
