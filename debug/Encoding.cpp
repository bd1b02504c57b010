#include "debug/Encoding.h"

#include <cctype>

namespace wrt::debug {

namespace {

class Parser {
public:
  explicit Parser(std::string_view text) : text_(text) {}

  bool atEnd() const { return at_ == text_.size(); }

  EncodedType type() {
    EncodedType type;
    type.kind = next();
    switch (type.kind) {
    case '^':
      type.fields = {this->type()};
      break;
    case '@':
      if (take('?')) {
        type.kind = '?';
        if (!atEnd() && peek() == '<')
          type.name = signature();
      } else if (take('"')) {
        while (peek() != '"')
          type.name += next();
        next();
      }
      break;
    case '{':
      while (peek() != '=' && peek() != '}')
        type.name += next();
      if (take('=')) {
        while (peek() != '}') {
          if (take('[')) { // as in [8C]
            const int count = next() - '0';
            const EncodedType element = this->type();
            type.fields.insert(type.fields.end(), static_cast<size_t>(count), element);
            next();
          } else {
            type.fields.push_back(this->type());
          }
        }
      }
      next();
      break;
    default:
      break;
    }
    return type;
  }

  void skipOffset() {
    while (!atEnd() && isdigit(peek()))
      next();
  }

private:
  char peek() const { return text_.at(at_); }
  char next() { return text_.at(at_++); }
  bool take(char wanted) {
    if (atEnd() || peek() != wanted)
      return false;
    ++at_;
    return true;
  }
  /// A block's own encoding, without the brackets around it; there may be protocols and blocks in
  /// it.
  std::string signature() {
    const size_t start = at_ + 1;
    int depth = 0;
    do {
      const char c = next();
      depth += (c == '<') - (c == '>');
    } while (depth > 0);
    return std::string(text_.substr(start, at_ - 1 - start));
  }

  std::string_view text_;
  size_t at_ = 0;
};

} // namespace

std::string EncodedType::bridgeName() const {
  return name.starts_with('<') ? name.substr(1, name.size() - 2) : name;
}

ffi_type *EncodedType::ffi() const {
  switch (kind) {
  case 'v':
    return &ffi_type_void;
  case 'c':
    return &ffi_type_sint8;
  case 'B':
  case 'C':
    return &ffi_type_uint8;
  case 's':
    return &ffi_type_sint16;
  case 'S':
    return &ffi_type_uint16;
  case 'i':
  case 'l': // an HRESULT
    return &ffi_type_sint32;
  case 'I':
  case 'L': // a GUID's first field
    return &ffi_type_uint32;
  case 'q':
    return &ffi_type_sint64;
  case 'Q':
    return &ffi_type_uint64;
  case 'f':
    return &ffi_type_float;
  case 'd':
    return &ffi_type_double;
  case '{':
    if (!structure_) {
      for (const EncodedType &field : fields)
        elements_.push_back(field.ffi());
      elements_.push_back(nullptr);
      structure_ = std::make_shared<ffi_type>(ffi_type{0, 0, FFI_TYPE_STRUCT, elements_.data()});
    }
    return structure_.get();
  default:
    return &ffi_type_pointer;
  }
}

std::vector<EncodedType> parseEncoding(std::string_view text) {
  std::vector<EncodedType> types;
  for (Parser parser(text); !parser.atEnd(); parser.skipOffset())
    types.push_back(parser.type());
  return types;
}

} // namespace wrt::debug
