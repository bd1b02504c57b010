#ifndef WRT_DEBUG_ENCODING_H
#define WRT_DEBUG_ENCODING_H

#include <ffi.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wrt::debug {

/// One type of an extended method encoding. `kind` is the encoding's letter; `?` stands for a
/// block.
struct EncodedType {
  char kind = 'v';
  /// Of an object: its class, or its protocol in angle brackets. Of a structure: its tag. Of a
  /// block: its own encoding, which is to be parsed in turn; empty where it is not told.
  std::string name;
  /// Of a pointer: what it points at.
  std::vector<EncodedType> fields;

  bool isStructure() const { return kind == '{'; }
  bool isString() const { return kind == '@' && name == "NSString"; }
  bool isArray() const { return kind == '@' && (name == "NSArray" || name == "NSMutableArray"); }
  /// The bridge class that stands for an object type: a class's own name, or its protocol's.
  std::string bridgeName() const;
  /// How the type is passed in this process. Lives as long as this object.
  ffi_type *ffi() const;

private:
  mutable std::shared_ptr<ffi_type> structure_;
  mutable std::vector<ffi_type *> elements_;
};

/// A method's encoding taken apart: `{result, receiver, selector, arguments..., error}`; a block's:
/// `{result, block, arguments...}`. Throws `std::out_of_range` for a text that ends too early.
std::vector<EncodedType> parseEncoding(std::string_view text);

} // namespace wrt::debug

#endif
