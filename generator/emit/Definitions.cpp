#include "generator/emit/Definitions.h"

#include "generator/emit/MemberConstant.h"
#include "generator/emit/Parts.h"
#include "generator/project/ObjcType.h"

namespace bridgegen {

void ClassReferences::write(Writer &writer) const {
  for (const auto &[name, type] : types_) {
    if (type->unit && type->unit->target.isAddOn())
      writer.write("WRT_CLASS_REFERENCE_OF(%, %);\n", exportMacro(*type->unit), name);
    else
      writer.write("WRT_CLASS_REFERENCE(%);\n", name);
  }
}

/// A boxed value comes out of its factory as a bridge of the plain object type, which has no
/// accessor for what it can be passed as; there the object itself is asked.
void writeAccessorFunction(Writer &writer, const InterfaceType &interface) {
  const std::string accessor = interface.accessorSelector();
  writer.write("void *wrt::%::interface(id object, NSError **error) {\n", interface.scopeName());
  if (interface.instance && interface.instance->familyName == "Windows.Foundation.IReference")
    writer.write("  if (![object respondsToSelector:@selector(%)])\n"
                 "    return queryInterface(object, kIid, error);\n",
                 accessor);
  writer.write("  return [object %error];\n}\n", accessor);
}

namespace {

/// A delegate's argument as the adapter takes it.
std::string passedKind(const Type &type) {
  if (type.isString())
    return "PassedString";
  if (!type.isReferenceType())
    return "Passed<" + valueSpelling(type) + ">";
  const InterfaceType *interface = crossingInterface(type);
  return "PassedObject<" + (interface ? *interface : type).cName() + ", " + classReference(type) +
         ">";
}

} // namespace

void writeMaker(Writer &writer, const DelegateType &delegate) {
  if (delegate.returnsObject())
    return;
  std::string arguments = delegate.factory();
  for (const DelegateType::Argument &argument : delegate.arguments)
    arguments += ", " + passedKind(*argument.type);
  writer.write("\nvoid *wrt::delegates::%(id handler, Retained<> &adapter) {\n"
               "  return %<%>(handler, adapter);\n}\n",
               delegate.scopeName(),
               delegate.returnsString() ? "makeStringDelegate" : "makeDelegate", arguments);
}

void MakerNeeds::add(const DelegateType &delegate) {
  platforms.insert(delegate.unit);
  for (const Type *type : namedTypes(delegate)) {
    const Type *crossing = type->kind == Kind::Struct ? type : crossingInterface(*type);
    if (crossing)
      types.insert(crossing->unit);
  }
  for (const DelegateType::Argument &argument : delegate.arguments) {
    if (argument.type->kind == Kind::Class || argument.type->kind == Kind::Interface)
      classes.add(*argument.type);
  }
}

} // namespace bridgegen
