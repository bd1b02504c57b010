#ifndef WRT_SUPPORT_COLLECTION_READER_H
#define WRT_SUPPORT_COLLECTION_READER_H

#include "support/implement/Collection.h"
#include "support/implement/CollectionTables.h"

namespace wrt::support {

/// Reads a collection from its first element to its last, in blocks, by its own function table:
/// many of them have no bridge with members. All zeros before `open` and after `close`, so that it
/// can be an instance variable. One thread at a time.
class CollectionReader {
public:
  static constexpr uint32_t kBlock = 64;

  /// Takes a reference of its own to what is read. `E_POINTER` for nil, `E_NOINTERFACE` for what is
  /// no collection, `E_NOTIMPL` for one of structures.
  HRESULT open(id bridge);
  /// The next elements, autoreleased, `*count` of them, 0 at the end. Null is `NSNull`, a pair a
  /// `WRTKeyValuePair`. `E_CHANGED_STATE` when the collection has changed since it was opened.
  HRESULT read(id *elements, uint32_t *count);
  void close();

private:
  template <class T>
  HRESULT readCells(T *cells, uint32_t *count);
  template <class T>
  HRESULT readVector(T *cells, uint32_t *count);
  template <class T>
  HRESULT readIterator(T *cells, uint32_t *count);
  HRESULT size(uint32_t *size);
  HRESULT toPair(abi::IInspectable *pair, id *element);

  const Collection *collection_;
  Class keyBridge_, valueBridge_;
  abi::IInspectable *source_; ///< a vector, a view or an iterator
  uint32_t size_, next_;
};

} // namespace wrt::support

#endif
