#include "ImageInfo.h"

// The compiler puts its lists into sections whose names end in $B; the linker sorts by name within
// a section, so that $A and $C enclose them.
#define WRT_LIST_EDGES(name, group)                                                                \
  [[gnu::section(group "$A"), gnu::aligned(4), gnu::used]] void *name##Begin[1] = {nullptr};       \
  [[gnu::section(group "$C"), gnu::aligned(4), gnu::used]] void *name##End[1] = {nullptr};

namespace wrt::startup {

namespace {

WRT_LIST_EDGES(classes, ".objc_classlist")
WRT_LIST_EDGES(nonLazyClasses, ".objc_nlclslist")
WRT_LIST_EDGES(categories, ".objc_catlist")
WRT_LIST_EDGES(protocols, ".objc_protolist")
WRT_LIST_EDGES(classReferences, ".objc_classrefs")
WRT_LIST_EDGES(superclassReferences, ".objc_superrefs")
WRT_LIST_EDGES(selectorReferences, ".objc_selrefs")
WRT_LIST_EDGES(protocolReferences, ".objc_protorefs")

// In a section of its own, where tools that read images find it.
[[gnu::section("objcinfo"), gnu::used]] const ImageInfo info = {
    0,
    0,
    {classesBegin + 1, classesEnd},
    {nonLazyClassesBegin + 1, nonLazyClassesEnd},
    {categoriesBegin + 1, categoriesEnd},
    {protocolsBegin + 1, protocolsEnd},
    {classReferencesBegin + 1, classReferencesEnd},
    {superclassReferencesBegin + 1, superclassReferencesEnd},
    {selectorReferencesBegin + 1, selectorReferencesEnd},
    {protocolReferencesBegin + 1, protocolReferencesEnd}};

} // namespace

const ImageInfo &imageInfo() { return info; }

} // namespace wrt::startup
