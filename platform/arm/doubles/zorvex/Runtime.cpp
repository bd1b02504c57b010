#include "platform/arm/doubles/zorvex/Runtime.h"

#include "platform/arm/doubles/Host.h"

namespace {

int liveObjects = 0;
int registeredImages = 0;

bool equal(const char *left, const char *right) {
  while (*left && *left == *right)
    ++left, ++right;
  return *left == *right;
}

/// The reference count stands in front of an instance.
struct Header {
  int count;
  uint32_t padding;
};

Header &headerOf(id object) { return reinterpret_cast<Header *>(object)[-1]; }

constexpr unsigned kPoolSize = 4096;
id pool[kPoolSize];
unsigned pooled = 0;

/// Methods for a class of another image.
struct Category {
  const char *name;
  const ClassObject *type;
  const MethodList *instanceMethods;
  const MethodList *classMethods;
};

/// An image's lists begin behind two words: first and last pointer of each, of which there are
/// more.
struct ImageInfo {
  uint32_t version;
  uint32_t flags;
  ClassObject **classesBegin;
  ClassObject **classesEnd;
  void *nonLazyClasses[2];
  const Category **categoriesBegin;
  const Category **categoriesEnd;
};

constexpr unsigned kMostCategories = 64;
const Category *categories[kMostCategories];
unsigned categoryCount = 0;

IMP implementationIn(const MethodList *list, const char *selector) {
  for (uint32_t i = 0; list && i < list->count; ++i)
    if (equal(list->entries[i].selector, selector))
      return list->entries[i].implementation;
  return nullptr;
}

IMP implementationInCategories(const ClassObject *type, const char *selector) {
  for (unsigned i = 0; i < categoryCount; ++i) {
    const Category &each = *categories[i];
    const MethodList *list = each.type == type        ? each.instanceMethods
                             : each.type->isa == type ? each.classMethods
                                                      : nullptr;
    if (IMP found = implementationIn(list, selector))
      return found;
  }
  return nullptr;
}

bool comesFromRoot(const ClassObject *type) {
  for (int depth = 0; type->superclass && depth < 16; ++depth)
    type = type->superclass;
  return !type->superclass && equal(type->data->name, "NSObject");
}

using Method = id (*)(id, const char *);

Method methodOf(id object, const char *selector) {
  return reinterpret_cast<Method>(lookUpMethod(classOf(object), selector));
}

} // namespace

extern "C" {

IMP findMethod(const ClassObject *start, const char *selector) {
  for (const ClassObject *each = start; each; each = each->superclass) {
    if (IMP found = implementationInCategories(each, selector))
      return found;
    if (IMP found = implementationIn(each->data->methods, selector))
      return found;
  }
  return nullptr;
}

IMP lookUpMethod(const ClassObject *start, const char *selector) {
  if (IMP method = findMethod(start, selector))
    return method;
  hostLog(start->data->name);
  hostEnd(selector);
}

id allocateInstance(Class type, size_t extraBytes) {
  const size_t size = reinterpret_cast<ClassObject *>(type)->data->instanceSize + extraBytes;
  auto *block = static_cast<Header *>(malloc(sizeof(Header) + size));
  memset(block, 0, sizeof(Header) + size);
  block->count = 1;
  id object = reinterpret_cast<id>(block + 1);
  *reinterpret_cast<Class *>(object) = type;
  ++liveObjects;
  return object;
}

void deallocateInstance(id object) {
  for (const ClassObject *each = classOf(object); each; each = each->superclass)
    if (const MethodList *list = each->data->methods)
      for (uint32_t i = 0; i < list->count; ++i)
        if (equal(list->entries[i].selector, ".cxx_destruct"))
          reinterpret_cast<Method>(list->entries[i].implementation)(object, ".cxx_destruct");
  --liveObjects;
  free(&headerOf(object));
}

int testLiveObjects() { return liveObjects; }
void countObject(int change) { liveObjects += change; }
int testRetainCount(id object) { return headerOf(object).count; }
int testRegisteredImages() { return registeredImages; }
unsigned testPoolPush() { return pooled; }

void testPoolPop(unsigned mark) {
  while (pooled > mark)
    methodOf(pool[--pooled], "release")(pool[pooled], "release");
}

/// Reference counting of plain objects, for `NSObject`.
id retainInstance(id object) {
  ++headerOf(object).count;
  return object;
}

void releaseInstance(id object) {
  const int count = --headerOf(object).count;
  if (count < 0)
    hostEnd("an object is released too often");
  if (count == 0)
    methodOf(object, "dealloc")(object, "dealloc");
}

id objc_retain(id object) {
  return object ? methodOf(object, "retain")(object, "retain") : nullptr;
}

void objc_release(id object) {
  if (object)
    methodOf(object, "release")(object, "release");
}

id objc_autorelease(id object) {
  if (!object)
    return nullptr;
  if (pooled == kPoolSize)
    hostEnd("the autorelease pool is full");
  return pool[pooled++] = object;
}

// What compiled code calls under automatic reference counting.
void objc_storeStrong(id *place, id object) {
  id old = *place;
  *place = objc_retain(object);
  objc_release(old);
}
id objc_autoreleaseReturnValue(id object) { return objc_autorelease(object); }
id objc_retainAutoreleaseReturnValue(id object) { return objc_autorelease(objc_retain(object)); }

void *objc_autoreleasePoolPush() { return reinterpret_cast<void *>(pooled + 1); }

void objc_autoreleasePoolPop(void *mark) {
  testPoolPop(static_cast<unsigned>(reinterpret_cast<uintptr_t>(mark)) - 1);
}

void objc_enumerationMutation(id) { hostEnd("mutated during enumeration"); }

/// Looks at every class before it takes the image: an address that start-up left unpatched points
/// into an import section and not at a class.
OBJC_EXPORT void __objc_image_load(const ImageInfo *info, const void *) {
  for (ClassObject **each = info->classesBegin; each < info->classesEnd; ++each) {
    if (!*each)
      continue;
    if (!comesFromRoot(*each) || !comesFromRoot((*each)->isa))
      hostEnd("an image has a class that does not come from NSObject");
  }
  for (const Category **each = info->categoriesBegin; each < info->categoriesEnd; ++each) {
    if (!*each)
      continue;
    if (!comesFromRoot((*each)->type))
      hostEnd("an image has a category of a class that does not come from NSObject");
    if (categoryCount == kMostCategories)
      hostEnd("there are too many categories");
    categories[categoryCount++] = *each;
  }
  ++registeredImages;
}

OBJC_EXPORT void __objc_image_unload(const ImageInfo *) { --registeredImages; }
}
