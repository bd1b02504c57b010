#include "debug/trace/Values.h"

#include "debug/trace/Status.h"

#import <Foundation/Foundation.h>

#import <objc/runtime.h>

#include <WRTObjcBridge/WRTTypes.h>
#include <algorithm>
#include <cinttypes>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <sys/uio.h>
#include <unistd.h>

namespace wrt::trace {

namespace {

using debug::EncodedType;

/// So many units of a text are shown.
constexpr NSUInteger kLongest = 60;

template <class T>
T read(const void *place) {
  T value;
  std::memcpy(&value, place, sizeof value);
  return value;
}

[[gnu::format(printf, 1, 2)]] std::string format(const char *form, ...) {
  char text[128];
  va_list arguments;
  va_start(arguments, form);
  std::vsnprintf(text, sizeof text, form, arguments);
  va_end(arguments);
  return text;
}

std::string quoted(NSString *string) {
  const NSUInteger length = [string length];
  // Not between the halves of a character.
  NSUInteger shown = std::min(length, kLongest);
  if (shown < length && shown > 0 && ([string characterAtIndex:shown - 1] & 0xFC00) == 0xD800)
    --shown;
  std::string text = "\"";
  NSString *part = shown < length ? [string substringToIndex:shown] : string;
  const char *bytes = [part UTF8String];
  if (!bytes)
    return format("<%lu units that are no text>", static_cast<unsigned long>(length));
  for (; *bytes; ++bytes) {
    const char c = *bytes;
    if (c == '\n')
      text += "\\n";
    else if (c == '"' || c == '\\')
      (text += '\\') += c;
    else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
      text += format("\\x%02X", static_cast<unsigned>(c));
    else
      text += c;
  }
  text += '"';
  if (shown < length)
    text += format("... (%lu)", static_cast<unsigned long>(length));
  return text;
}

std::string objectText(id object) {
  if (!object)
    return "nil";
  if ([object isKindOfClass:[NSString class]])
    return quoted(object);
  const char *name = class_getName(object_getClass(object));
  if ([object isKindOfClass:[NSArray class]])
    return format("<%s of %lu>", name, static_cast<unsigned long>([object count]));
  return format("<%s %p>", name, static_cast<void *>(object));
}

std::string guidText(const void *place, const Tables &tables) {
  const auto guid = read<GUID>(place);
  std::string text = format("%08x-%04x-%04x-%02x%02x-", static_cast<unsigned>(guid.Data1),
                            guid.Data2, guid.Data3, guid.Data4[0], guid.Data4[1]);
  for (int i = 2; i < 8; ++i)
    text += format("%02x", guid.Data4[i]);
  const auto found = tables.interfaces.find(text);
  return found == tables.interfaces.end() ? "{" + text + "}" : found->second;
}

std::string structureText(const EncodedType &type, const void *place, const Tables &tables) {
  if (type.fields.size() == 11 && type.ffi()->size == sizeof(GUID))
    return guidText(place, tables);
  std::string text = "{";
  size_t offset = 0;
  for (const EncodedType &field : type.fields) {
    const ffi_type *layout = field.ffi();
    offset = (offset + layout->alignment - 1) / layout->alignment * layout->alignment;
    if (text.size() > 1)
      text += ", ";
    text += valueText(field, static_cast<const char *>(place) + offset, tables, false);
    offset += layout->size;
  }
  return text + "}";
}

std::string pointerText(const EncodedType &type, const void *place, const Tables &tables,
                        bool follows) {
  void *pointer = read<void *>(place);
  if (!pointer)
    return "NULL";
  if (!follows || type.fields.empty())
    return format("%p", pointer);
  // What belongs to the application may be anything, so it is read with care.
  const EncodedType &target = type.fields.front();
  constexpr std::string_view kFollowed = "cCBsSiIlLqQfd@";
  unsigned char value[16];
  const size_t size = target.ffi()->size;
  const iovec from{pointer, size};
  const iovec to{value, size};
  if (kFollowed.find(target.kind) == std::string_view::npos ||
      process_vm_readv(getpid(), &to, 1, &from, 1, 0) != static_cast<ssize_t>(size))
    return format("%p", pointer);
  return "&" + valueText(target, value, tables, false);
}

} // namespace

std::string valueText(const EncodedType &type, const void *place, const Tables &tables,
                      bool follows) {
  switch (type.kind) {
  case '@':
    return objectText(read<id>(place));
  case '?':
    return read<void *>(place) ? format("^%p", read<void *>(place)) : "nil";
  case '{':
    return structureText(type, place, tables);
  case 'B':
    return read<unsigned char>(place) ? "true" : "false";
  case 'c':
  case 'C':
    return format("%d", read<unsigned char>(place));
  case 's':
    return format("%d", read<int16_t>(place));
  case 'S':
    return format("%u", read<uint16_t>(place));
  case 'i':
    return format("%" PRId32, read<int32_t>(place));
  case 'l':
    return statusText(read<int32_t>(place));
  case 'I':
  case 'L':
    return format("%" PRIu32, read<uint32_t>(place));
  case 'q':
    return format("%" PRId64, read<int64_t>(place));
  case 'Q':
    return format("%" PRIu64, read<uint64_t>(place));
  case 'f':
    return format("%g", read<float>(place));
  case 'd':
    return format("%g", read<double>(place));
  case '^':
    return pointerText(type, place, tables, follows);
  default:
    return format("%p", read<void *>(place));
  }
}

} // namespace wrt::trace
