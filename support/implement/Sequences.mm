#include "support/implement/Sequences.h"

#include "support/implement/Implemented.h"

namespace wrt::support {

namespace {

class Iterator final : public Implemented<IteratorTable<void *>> {
public:
  Iterator(const Collection &collection, ElementList *list)
      : Implemented(collection.iterator), list_(list), version_(list->version()) {}
  ~Iterator() override { list_->release(); }

  HRESULT WRT_ABI get_Current(void **current) override {
    uint32_t position = position_;
    uint32_t actual = 0;
    if (!current)
      return status::kPointer;
    *current = nullptr;
    const HRESULT status = list_->read(version_, &position, 1, current, &actual);
    return status >= 0 && actual == 0 ? status::kBounds : status;
  }
  HRESULT WRT_ABI get_HasCurrent(uint8_t *hasCurrent) override {
    return list_->hasElement(version_, position_, hasCurrent);
  }
  /// At the end it stays there.
  HRESULT WRT_ABI MoveNext(uint8_t *hasCurrent) override {
    const HRESULT status = list_->hasElement(version_, position_, hasCurrent);
    if (status < 0 || !*hasCurrent)
      return status;
    return list_->hasElement(version_, ++position_, hasCurrent);
  }
  HRESULT WRT_ABI GetMany(uint32_t capacity, void **items, uint32_t *actual) override {
    return list_->read(version_, &position_, capacity, items, actual);
  }

private:
  ElementList *const list_;
  const uint32_t version_;
  uint32_t position_ = 0; ///< an iterator is for one thread at a time
};

/// A reference to the list, for an object that takes one over.
ElementList *shared(ElementList *list) {
  list->retain();
  return list;
}

class VectorView final : public Implemented<VectorViewTable<void *>, IterableTable<void *>> {
public:
  VectorView(const Collection &collection, ElementList *list)
      : Implemented(collection.view, collection.iterable), collection_(collection), list_(list) {}
  ~VectorView() override { list_->release(); }

  HRESULT WRT_ABI GetAt(uint32_t index, void **item) override { return list_->getAt(index, item); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return list_->getSize(size); }
  HRESULT WRT_ABI IndexOf(void *item, uint32_t *index, uint8_t *found) override {
    return list_->indexOf(item, index, found);
  }
  HRESULT WRT_ABI GetMany(uint32_t start, uint32_t capacity, void **items,
                          uint32_t *actual) override {
    return list_->getMany(start, capacity, items, actual);
  }
  HRESULT WRT_ABI First(IteratorTable<void *> **iterator) override {
    return iterator ? answer(makeIterator(collection_, shared(list_)), iterator) : status::kPointer;
  }

private:
  const Collection &collection_;
  ElementList *const list_;
};

class Vector final : public Implemented<VectorTable<void *>, IterableTable<void *>> {
public:
  Vector(const Collection &collection, ElementList *list)
      : Implemented(collection.iid, collection.iterable), collection_(collection), list_(list) {}
  ~Vector() override { list_->release(); }

  HRESULT WRT_ABI GetAt(uint32_t index, void **item) override { return list_->getAt(index, item); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return list_->getSize(size); }
  HRESULT WRT_ABI GetView(VectorViewTable<void *> **view) override {
    if (!view)
      return status::kPointer;
    *view = nullptr;
    ElementList *copy = list_->copy();
    return copy ? answer(withList<VectorView>(collection_, copy), view) : status::kOutOfMemory;
  }
  HRESULT WRT_ABI IndexOf(void *item, uint32_t *index, uint8_t *found) override {
    return list_->indexOf(item, index, found);
  }
  HRESULT WRT_ABI SetAt(uint32_t index, void *item) override { return list_->setAt(index, item); }
  HRESULT WRT_ABI InsertAt(uint32_t index, void *item) override {
    return index == UINT32_MAX ? status::kBounds : list_->insertAt(index, item);
  }
  HRESULT WRT_ABI RemoveAt(uint32_t index) override { return list_->removeAt(index); }
  HRESULT WRT_ABI Append(void *item) override { return list_->append(item); }
  HRESULT WRT_ABI RemoveAtEnd() override { return list_->removeAtEnd(); }
  HRESULT WRT_ABI Clear() override { return list_->replaceAll(0, nullptr); }
  HRESULT WRT_ABI GetMany(uint32_t start, uint32_t capacity, void **items,
                          uint32_t *actual) override {
    return list_->getMany(start, capacity, items, actual);
  }
  HRESULT WRT_ABI ReplaceAll(uint32_t count, void **items) override {
    return list_->replaceAll(count, items);
  }
  HRESULT WRT_ABI First(IteratorTable<void *> **iterator) override {
    return iterator ? answer(makeIterator(collection_, shared(list_)), iterator) : status::kPointer;
  }

private:
  const Collection &collection_;
  ElementList *const list_;
};

} // namespace

abi::IInspectable *makeVector(const Collection &collection, ElementList *list) {
  return static_cast<VectorTable<void *> *>(withList<Vector>(collection, list));
}

abi::IInspectable *makeVectorView(const Collection &collection, ElementList *list) {
  return static_cast<VectorViewTable<void *> *>(withList<VectorView>(collection, list));
}

IteratorTable<void *> *makeIterator(const Collection &collection, ElementList *list) {
  return withList<Iterator>(collection, list);
}

} // namespace wrt::support
