#ifndef WRT_TOOLS_METADATA_H
#define WRT_TOOLS_METADATA_H

#include "PortableExecutable.h"

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace wrt::pe {

struct ObjCMethod {
  std::string selector;
  std::string encoding;
  /// Protocol methods: the encoding with the classes, protocols and block signatures of objects.
  std::string extendedEncoding;
  /// Class methods: where the code is, the Thumb bit included. 0 in protocols.
  Rva implementation = 0;
  bool isClassMethod = false;
  bool isOptional = false;
};

struct ObjCVariable {
  std::string name;
  std::string encoding;
  std::uint32_t offset;
};

struct ObjCProperty {
  std::string name;
  std::string attributes;
};

struct ObjCProtocol {
  std::string name;
  std::vector<std::string> adopted;
  std::vector<ObjCMethod> methods;
  std::vector<ObjCProperty> properties;
};

struct ObjCClass {
  std::string name;
  /// Empty for a root class.
  std::string superclass;
  std::vector<std::string> protocols;
  std::uint32_t instanceSize = 0;
  std::vector<ObjCVariable> variables;
  std::vector<ObjCProperty> properties;
  /// Instance methods, then class methods.
  std::vector<ObjCMethod> methods;
};

/// The Objective-C metadata of an image, read as the runtime would read it (the ABI with
/// non-fragile instance variables, in the form of the image's pointers).
struct Metadata {
  /// By name.
  std::map<std::string, ObjCClass> classes;
  std::map<std::string, ObjCProtocol> protocols;

  /// Starts from the image-information record that the patcher puts into the section `objcinfo`.
  /// Throws `FormatError`.
  static Metadata read(const Image &image);

  /// How many methods all classes have.
  std::size_t methodCount() const;
  /// The method of `className`'s protocols, adopted ones included, or null.
  const ObjCMethod *findProtocolMethod(const std::string &className, const std::string &selector,
                                       bool isClassMethod) const;
};

/// Writes everything as text, classes and protocols by name, their parts as they were declared.
void writeText(const Metadata &metadata, std::ostream &out);

} // namespace wrt::pe

#endif
