#import <WRTSupport/WRTCollections.h>

#import <WRTSupport/WRTBoxing.h>

#include "support/implement/Failure.h"
#include "support/implement/Protocol.h"
#include "support/implement/Sequences.h"

#include <WRTAbi.h>
#include <WRTBridge.h>

using namespace wrt;
using namespace wrt::support;

namespace {

HRESULT make(id from, const Collection &collection, abi::IInspectable **object);

/// The object as the interface, +1.
HRESULT interfaceOf(id bridge, const GUID &iid, void **word) {
  const HRESULT status = WRTIUnknownQueryInterface([bridge inner], &iid, word);
  return status < 0 || *word ? status : status::kNoInterface;
}

/// What crosses for the element, which the caller owns.
HRESULT toWord(id object, const Element &element, void **word) {
  *word = nullptr;
  if (element.kind == ElementKind::String) {
    if (![object isKindOfClass:[NSString class]])
      return status::kInvalidArgument;
    *word = WRTCreateHSTRINGFromNSString(object);
    return *word || [object length] == 0 ? status::kOk : status::kOutOfMemory;
  }
  if (object == [NSNull null])
    return status::kOk;
  if ([object isKindOfClass:[WRTUnknownBridge class]])
    return interfaceOf(object, element.iid, word);
  if (const Collection *inner = collectionNamed(element.bridge)) {
    abi::IInspectable *made = nullptr;
    const HRESULT status = make(object, *inner, &made);
    *word = made;
    return status;
  }
  if (!(element.iid == abi::IInspectable::kIid))
    return status::kInvalidArgument;
  NSError *failure = nil;
  id box = WRTBox(object, &failure);
  return box ? interfaceOf(box, element.iid, word) : static_cast<HRESULT>([failure code]);
}

/// The dictionary's entry, or the array's element, which `key` is then, as a word.
HRESULT toElement(id key, NSDictionary *dictionary, const Collection &collection, void **word) {
  if (!dictionary)
    return toWord(key, collection.value, word);
  void *keyWord = nullptr;
  void *value = nullptr;
  HRESULT status = toWord(key, collection.key, &keyWord);
  if (status >= 0)
    status = toWord([dictionary objectForKey:key], collection.value, &value);
  if (status < 0) {
    disposeWord(collection.key.kind, keyWord);
    return status;
  }
  *word = makePair(collection, keyWord, value);
  return *word ? status::kOk : status::kOutOfMemory;
}

HRESULT make(id from, const Collection &collection, abi::IInspectable **object) {
  const bool hasPairs = collection.hasPairs();
  const Class dictionaries = [NSDictionary class];
  if (![from isKindOfClass:hasPairs ? dictionaries : [NSArray class]])
    return from ? status::kInvalidArgument : status::kPointer;
  const ElementKind key = collection.key.kind;
  const ElementKind value = collection.value.kind;
  if ((hasPairs && key != ElementKind::String) ||
      (value != ElementKind::String && value != ElementKind::Object))
    return status::kNotImplemented;
  const ElementKind kind = hasPairs ? ElementKind::Object : value;
  Words words;
  for (id element in from) {
    void *word = nullptr;
    HRESULT status = toElement(element, hasPairs ? from : nil, collection, &word);
    if (status >= 0 && !words.insert(words.count, word)) {
      disposeWord(kind, word);
      status = status::kOutOfMemory;
    }
    if (status < 0) {
      disposeWords(kind, words);
      return status;
    }
  }
  ElementList *list = ElementList::make(kind, words);
  if (!list)
    return status::kOutOfMemory;
  abi::IInspectable *made = collection.family == Family::Vector ? makeVector(collection, list)
                            : collection.family == Family::Map  ? makeMap(collection, list)
                            : hasPairs                          ? makeMapView(collection, list)
                                                                : makeVectorView(collection, list);
  if (!made)
    return status::kOutOfMemory;
  // Of its tables the one that is wanted.
  const HRESULT status = made->QueryInterface(&collection.iid, reinterpret_cast<void **>(object));
  made->Release();
  return status;
}

} // namespace

id WRTCollectionOf(id from, Protocol *protocol, NSError **error) {
  NSString *name = nameOf(protocol);
  const Collection *collection = collectionNamed([name UTF8String]);
  abi::IInspectable *object = nullptr;
  const HRESULT status = collection ? make(from, *collection, &object) : status::kInvalidArgument;
  store(status, error);
  return status < 0 ? nil : [NSClassFromString(name) bridgeTransfer:object];
}
