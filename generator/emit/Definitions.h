#ifndef WRT_GENERATOR_DEFINITIONS_H
#define WRT_GENERATOR_DEFINITIONS_H

#include "generator/model/Model.h"
#include "generator/output/Writer.h"

/// What a members header declares and some source has to define, once in each library.
namespace bridgegen {

/// Declarations of the structures of Objective-C classes, each once and by name.
class ClassReferences {
public:
  void add(const Type &type) { types_.emplace(type.bridgeClass(), &type); }
  void write(Writer &writer) const;

private:
  std::map<std::string, const Type *> types_;
};

/// The function that asks an object for the interface.
void writeAccessorFunction(Writer &writer, const InterfaceType &interface);

/// The function that makes the delegate; none for one that returns an object, which each class
/// that needs it makes for itself.
void writeMaker(Writer &writer, const DelegateType &delegate);

/// What the makers' definitions name.
class MakerNeeds {
public:
  void add(const DelegateType &delegate);

  Units types;             ///< of the tables and structures of raw arguments
  Units platforms;         ///< of the factories
  ClassReferences classes; ///< that are made of objects
};

} // namespace bridgegen

#endif
