#include "Metadata.h"

#include <fmt/core.h>

#include <algorithm>
#include <ostream>
#include <set>

namespace wrt::pe {

namespace {

/// A structure of numbers of 32 bits and then pointers.
class Words {
public:
  Words(const Image &image, Rva address, std::uint32_t numbers = 0)
      : image_(image), address_(address), pointers_(address + 4 * numbers) {}

  std::uint32_t number(std::uint32_t index) const { return image_.u32(address_ + 4 * index); }
  std::uint64_t word(std::uint32_t index) const { return image_.word(place(index)); }
  bool isNull(std::uint32_t index) const { return word(index) == 0; }
  Rva pointer(std::uint32_t index) const { return image_.pointer(place(index)); }
  std::string string(std::uint32_t index) const {
    return isNull(index) ? std::string() : image_.string(pointer(index));
  }

  /// Where the pointer lies.
  Rva place(std::uint32_t index) const { return pointers_ + image_.pointerSize() * index; }

private:
  const Image &image_;
  Rva address_;
  Rva pointers_;
};

/// Field numbers of the structures that are read, of each the pointers unless it says otherwise.
namespace class_field {
enum : std::uint8_t { kMetaclass, kSuperclass, kCache, kVtable, kData };
}
namespace data_field {
enum : std::uint8_t { kFlags, kStart, kSize }; // numbers
enum : std::uint8_t { kLayout, kName, kMethods, kProtocols, kVariables, kWeak, kProperties };
} // namespace data_field
namespace protocol_field {
enum : std::uint8_t {
  kIsa,
  kName,
  kAdopted,
  kInstanceMethods,
  kClassMethods,
  kOptionalInstanceMethods,
  kOptionalClassMethods,
  kProperties,
  kNumbers ///< its size in bytes and flags, and behind them the extended encodings
};
}

class Reader {
public:
  explicit Reader(const Image &image) : image_(image) {}

  Metadata read() {
    const Section *info = image_.findSection("objcinfo");
    if (!info)
      throw FormatError("the image has no section objcinfo: the patcher is not linked into it");
    // Two words, then bounds of lists: classes first, protocols fourth.
    const Words record(image_, info->rva, 2);
    readList(record.pointer(0), record.pointer(1), [this](Rva each) { readClass(each); });
    readList(record.pointer(6), record.pointer(7), [this](Rva each) { readProtocol(each); });
    return std::move(metadata_);
  }

private:
  template <class Each>
  void readList(Rva begin, Rva end, Each each) {
    for (Rva entry = begin; entry < end; entry += image_.pointerSize()) {
      if (image_.word(entry) != 0) // padding between the contributions of object files
        each(image_.pointer(entry));
    }
  }

  std::string className(Rva address) const {
    if (const Import *import = image_.importAt(address)) {
      constexpr std::string_view kPrefix = "OBJC_CLASS_$_";
      if (import->name.starts_with(kPrefix))
        return import->name.substr(kPrefix.size());
      throw FormatError(import->name + " is imported as a class");
    }
    return dataOf(address).string(data_field::kName);
  }

  /// In images of 64 bits a fourth number fills the gap before the pointers.
  Words dataOf(Rva classAddress) const {
    return {image_, Words(image_, classAddress).pointer(class_field::kData) & ~3u,
            image_.pointerSize() == 4 ? 3u : 4u};
  }

  void readClass(Rva address) {
    const Words object(image_, address);
    const Words data = dataOf(address);
    ObjCClass result;
    result.name = data.string(data_field::kName);
    if (!object.isNull(class_field::kSuperclass))
      result.superclass = className(object.pointer(class_field::kSuperclass));
    result.instanceSize = data.number(data_field::kSize);
    result.protocols = readProtocolList(data, data_field::kProtocols);
    readVariables(data, result.variables);
    result.properties = readProperties(data, data_field::kProperties);
    readMethods(data, data_field::kMethods, false, false, result.methods);
    const Words metaData = dataOf(object.pointer(class_field::kMetaclass));
    readMethods(metaData, data_field::kMethods, true, false, result.methods);
    const std::string name = result.name;
    if (!metadata_.classes.emplace(name, std::move(result)).second)
      throw FormatError("two classes are called " + name);
  }

  std::vector<std::string> readProtocolList(const Words &owner, std::uint32_t field) {
    std::vector<std::string> names;
    if (owner.isNull(field))
      return names;
    const Words list(image_, owner.pointer(field));
    for (std::uint32_t i = 0; i < list.word(0); ++i)
      names.push_back(readProtocol(list.pointer(1 + i)));
    return names;
  }

  std::string readProtocol(Rva address) {
    const Words object(image_, address);
    ObjCProtocol result;
    result.name = object.string(protocol_field::kName);
    if (metadata_.protocols.count(result.name))
      return result.name;
    const std::string name = result.name;
    metadata_.protocols.emplace(name, ObjCProtocol()); // protocols may adopt in a circle
    result.adopted = readProtocolList(object, protocol_field::kAdopted);
    readMethods(object, protocol_field::kInstanceMethods, false, false, result.methods);
    readMethods(object, protocol_field::kClassMethods, true, false, result.methods);
    readMethods(object, protocol_field::kOptionalInstanceMethods, false, true, result.methods);
    readMethods(object, protocol_field::kOptionalClassMethods, true, true, result.methods);
    result.properties = readProperties(object, protocol_field::kProperties);
    // The extended encodings stand in one array, in the order of the four lists.
    const Words tail(image_, object.place(protocol_field::kNumbers), 2);
    const std::uint32_t size = tail.number(0);
    if (!result.methods.empty() && size > tail.place(0) - address && !tail.isNull(0)) {
      const Words extended(image_, tail.pointer(0));
      for (std::uint32_t i = 0; i < result.methods.size(); ++i)
        result.methods[i].extendedEncoding = extended.string(i);
    }
    metadata_.protocols[name] = std::move(result);
    return name;
  }

  void readMethods(const Words &owner, std::uint32_t field, bool isClassMethod, bool isOptional,
                   std::vector<ObjCMethod> &methods) {
    forEachEntry(owner, field, 3, 0, [&](const Words &entry) {
      ObjCMethod method;
      method.selector = entry.string(0);
      method.encoding = entry.string(1);
      method.implementation = entry.isNull(2) ? 0 : entry.pointer(2);
      method.isClassMethod = isClassMethod;
      method.isOptional = isOptional;
      methods.push_back(std::move(method));
    });
  }

  void readVariables(const Words &data, std::vector<ObjCVariable> &variables) {
    forEachEntry(data, data_field::kVariables, 3, 2, [&](const Words &entry) {
      variables.push_back({entry.string(1), entry.string(2), image_.u32(entry.pointer(0))});
    });
  }

  std::vector<ObjCProperty> readProperties(const Words &owner, std::uint32_t field) {
    std::vector<ObjCProperty> properties;
    forEachEntry(owner, field, 2, 0, [&](const Words &entry) {
      properties.push_back({entry.string(0), entry.string(1)});
    });
    return properties;
  }

  /// A list with the size of its entries and their number in front; an entry has `pointers` and,
  /// behind them, numbers.
  template <class Each>
  void forEachEntry(const Words &owner, std::uint32_t field, std::uint32_t pointers,
                    std::uint32_t numbers, Each each) {
    if (owner.isNull(field))
      return;
    const std::uint32_t size = pointers * image_.pointerSize() + 4 * numbers;
    const Rva list = owner.pointer(field);
    const Words header(image_, list);
    if ((header.number(0) & ~3u) != size) {
      throw FormatError(fmt::format("a list at {} has entries of {} bytes instead of {}",
                                    image_.describe(list), header.number(0), size));
    }
    for (std::uint32_t i = 0; i < header.number(1); ++i)
      each(Words(image_, list + 8 + i * size));
  }

  const Image &image_;
  Metadata metadata_;
};

void writeNames(const std::vector<std::string> &names, std::ostream &out) {
  if (names.empty())
    return;
  out << " <";
  for (std::size_t i = 0; i < names.size(); ++i)
    out << (i ? ", " : "") << names[i];
  out << '>';
}

} // namespace

Metadata Metadata::read(const Image &image) { return Reader(image).read(); }

std::size_t Metadata::methodCount() const {
  std::size_t count = 0;
  for (const auto &[name, each] : classes)
    count += each.methods.size();
  return count;
}

const ObjCMethod *Metadata::findProtocolMethod(const std::string &className,
                                               const std::string &selector,
                                               bool isClassMethod) const {
  const auto found = classes.find(className);
  if (found == classes.end())
    return nullptr;
  std::vector<std::string> waiting(found->second.protocols.rbegin(),
                                   found->second.protocols.rend());
  std::set<std::string> seen;
  while (!waiting.empty()) {
    const std::string name = waiting.back();
    waiting.pop_back();
    const auto protocol = protocols.find(name);
    if (protocol == protocols.end() || !seen.insert(name).second)
      continue;
    for (const ObjCMethod &method : protocol->second.methods) {
      if (method.isClassMethod == isClassMethod && method.selector == selector)
        return &method;
    }
    waiting.insert(waiting.end(), protocol->second.adopted.rbegin(),
                   protocol->second.adopted.rend());
  }
  return nullptr;
}

void writeText(const Metadata &metadata, std::ostream &out) {
  for (const auto &[name, each] : metadata.classes) {
    out << "class " << name;
    if (!each.superclass.empty())
      out << " : " << each.superclass;
    writeNames(each.protocols, out);
    out << " size " << each.instanceSize << '\n';
    for (const ObjCVariable &variable : each.variables) {
      out << "  variable " << variable.name << ' ' << variable.encoding << " at " << variable.offset
          << '\n';
    }
    for (const ObjCProperty &property : each.properties)
      out << "  property " << property.name << ' ' << property.attributes << '\n';
    for (const ObjCMethod &method : each.methods) {
      out << "  " << (method.isClassMethod ? '+' : '-') << ' ' << method.selector << ' '
          << method.encoding << '\n';
    }
  }
  for (const auto &[name, each] : metadata.protocols) {
    out << "protocol " << name;
    writeNames(each.adopted, out);
    out << '\n';
    for (const ObjCProperty &property : each.properties)
      out << "  property " << property.name << ' ' << property.attributes << '\n';
    for (const ObjCMethod &method : each.methods) {
      out << "  " << (method.isOptional ? "optional " : "") << (method.isClassMethod ? '+' : '-')
          << ' ' << method.selector << ' ' << method.encoding << ' ' << method.extendedEncoding
          << '\n';
    }
  }
}

} // namespace wrt::pe
