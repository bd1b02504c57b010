#include "support/implement/CollectionReader.h"

#include "support/implement/Failure.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/WRTInspectableBridge.h>
#import <WRTSupport/WRTEnumeration.h>
#import <WRTSupport/WRTValues.h>

namespace wrt::support {

namespace {

Class bridgeOf(const Element &element) {
  return element.bridge ? NSClassFromString([NSString stringWithUTF8String:element.bridge]) : Nil;
}

/// Room for any element that is no structure.
union Cell {
  void *word;
  int32_t number;
  GUID guid;
};

/// The element in Foundation's form; takes over what the cell owns.
id toObject(const Element &element, Class bridge, const Cell &cell) {
  switch (element.kind) {
  case ElementKind::String: {
    const auto text = static_cast<HSTRING>(cell.word);
    NSString *string = WRTCreateNSStringFromHSTRING(text);
    WRTHSTRINGRelease(text);
    return string ? string : @"";
  }
  case ElementKind::Int32:
    return [NSNumber numberWithInt:cell.number];
  case ElementKind::Guid:
    return WRTUUIDFromGUID(cell.guid);
  default:
    return cell.word ? [bridge bridgeTransfer:cell.word] : [NSNull null];
  }
}

} // namespace

HRESULT CollectionReader::open(id bridge) {
  if (!bridge)
    return status::kPointer;
  collection_ =
      [bridge respondsToSelector:@selector(inner)] ? collectionOf([bridge class]) : nullptr;
  if (!collection_)
    return status::kNoInterface;
  const ElementKind kind = collection_->value.kind;
  if (kind == ElementKind::Other || (kind == ElementKind::Guid && !collection_->hasPairs()))
    return status::kNotImplemented;
  keyBridge_ = bridgeOf(collection_->key);
  valueBridge_ = bridgeOf(collection_->value);
  next_ = 0;
  const bool isVector =
      collection_->family == Family::Vector || collection_->family == Family::VectorView;
  void *interface = nullptr;
  HRESULT status = WRTIUnknownQueryInterface(
      [bridge inner], isVector ? &collection_->iid : &collection_->iterable, &interface);
  if (status < 0)
    return status;
  if (!interface)
    return status::kNoInterface;
  source_ = static_cast<abi::IInspectable *>(interface);
  if (isVector)
    return size(&size_);
  IteratorTable<void *> *iterator = nullptr;
  status = static_cast<IterableTable<void *> *>(source_)->First(&iterator);
  close();
  source_ = iterator;
  return status < 0 || iterator ? status : status::kUnexpected;
}

void CollectionReader::close() {
  WRTIUnknownSafeRelease(source_);
  source_ = nullptr;
}

HRESULT CollectionReader::size(uint32_t *size) {
  // The views' and the vectors' tables begin with the same functions.
  return static_cast<VectorViewTable<void *> *>(source_)->get_Size(size);
}

template <class T>
HRESULT CollectionReader::readVector(T *cells, uint32_t *count) {
  uint32_t now = 0;
  HRESULT status = size(&now);
  if (status < 0)
    return status;
  if (now != size_)
    return status::kChangedState;
  if (next_ >= size_)
    return status::kOk;
  if (collection_->family == Family::Vector)
    status = static_cast<VectorTable<T> *>(source_)->GetMany(next_, kBlock, cells, count);
  else
    status = static_cast<VectorViewTable<T> *>(source_)->GetMany(next_, kBlock, cells, count);
  if (status == status::kNotImplemented) {
    status = static_cast<VectorViewTable<T> *>(source_)->GetAt(next_, cells);
    *count = 1;
  }
  // One that delivers nothing although there is more would never end.
  return status >= 0 && *count == 0 ? status::kUnexpected : status;
}

template <class T>
HRESULT CollectionReader::readIterator(T *cells, uint32_t *count) {
  auto *iterator = static_cast<IteratorTable<T> *>(source_);
  HRESULT status = iterator->GetMany(kBlock, cells, count);
  if (status != status::kNotImplemented)
    return status;
  uint8_t hasCurrent = 0;
  status = iterator->get_HasCurrent(&hasCurrent);
  if (status < 0 || !hasCurrent)
    return status;
  status = iterator->get_Current(cells);
  if (status < 0)
    return status;
  *count = 1;
  return iterator->MoveNext(&hasCurrent);
}

template <class T>
HRESULT CollectionReader::readCells(T *cells, uint32_t *count) {
  const bool isVector =
      collection_->family == Family::Vector || collection_->family == Family::VectorView;
  return isVector ? readVector(cells, count) : readIterator(cells, count);
}

HRESULT CollectionReader::toPair(abi::IInspectable *pair, id *element) {
  if (!pair)
    return status::kPointer;
  auto *table = static_cast<PairTable *>(pair);
  Cell key{};
  Cell value{};
  HRESULT status = table->get_Key(&key);
  id first = status < 0 ? nil : toObject(collection_->key, keyBridge_, key);
  if (status >= 0)
    status = table->get_Value(&value);
  if (status >= 0)
    *element = [WRTKeyValuePair pairWithKey:first
                                      value:toObject(collection_->value, valueBridge_, value)];
  pair->Release();
  return status;
}

HRESULT CollectionReader::read(id *elements, uint32_t *count) {
  union {
    void *words[kBlock];
    int32_t numbers[kBlock];
  } cells{};
  *count = 0;
  const bool areWords = collection_->hasPairs() || collection_->value.kind != ElementKind::Int32;
  uint32_t delivered = 0;
  HRESULT status =
      areWords ? readCells(cells.words, &delivered) : readCells(cells.numbers, &delivered);
  if (status < 0)
    return status;
  // One that claims to have filled more than it was given room for is not believed.
  delivered = delivered < kBlock ? delivered : kBlock;
  next_ += delivered;
  for (uint32_t i = 0; i < delivered; ++i) {
    Cell cell{};
    if (areWords)
      cell.word = cells.words[i];
    else
      cell.number = cells.numbers[i];
    if (collection_->hasPairs()) {
      // All of them are released, whatever becomes of one.
      const HRESULT outcome = toPair(static_cast<abi::IInspectable *>(cell.word), &elements[i]);
      status = status < 0 ? status : outcome;
    } else {
      elements[i] = toObject(collection_->value, valueBridge_, cell);
    }
  }
  if (status >= 0)
    *count = delivered;
  return status;
}

} // namespace wrt::support
