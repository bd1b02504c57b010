#ifndef WRT_BYTE_STORE_H
#define WRT_BYTE_STORE_H

#include <WRTStatus.h>

#include <filesystem>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace wrt::components {

/// The content behind a random-access stream; clones of a stream share it. Any thread.
class ByteStore {
public:
  virtual ~ByteStore() = default;

  /// In bytes.
  virtual HRESULT size(uint64_t *size) = 0;
  /// Cuts the content, or fills it up with zeros.
  virtual HRESULT resize(uint64_t size) = 0;
  /// Reads as much as there is from `offset` on; `*count` bytes, which at the end is 0.
  virtual HRESULT read(uint64_t offset, std::span<uint8_t> bytes, size_t *count) = 0;
  /// Writes all bytes at `offset`; a gap before them is zeros.
  virtual HRESULT write(uint64_t offset, std::span<const uint8_t> bytes) = 0;
  /// Makes sure that what was written is where it belongs.
  virtual HRESULT flush() = 0;
  virtual bool canWrite() const = 0;
};

/// Content in memory.
class MemoryStore final : public ByteStore {
public:
  HRESULT size(uint64_t *size) override;
  HRESULT resize(uint64_t size) override;
  HRESULT read(uint64_t offset, std::span<uint8_t> bytes, size_t *count) override;
  HRESULT write(uint64_t offset, std::span<const uint8_t> bytes) override;
  HRESULT flush() override { return status::kOk; }
  bool canWrite() const override { return true; }

private:
  HRESULT resizeLocked(uint64_t size);

  std::mutex mutex_;
  std::vector<uint8_t> bytes_;
};

/// The content of an open file. Only regular files: others have no size and may block for ever.
class FileStore final : public ByteStore {
public:
  enum class Access { kRead, kReadWrite };
  /// Opens an existing file, symbolic links followed; `*store` is null on failure. A file that is
  /// no regular one is denied.
  static HRESULT open(const std::filesystem::path &path, Access access,
                      std::shared_ptr<ByteStore> *store);
  ~FileStore() override;
  FileStore(const FileStore &) = delete;
  FileStore &operator=(const FileStore &) = delete;

  HRESULT size(uint64_t *size) override;
  HRESULT resize(uint64_t size) override;
  HRESULT read(uint64_t offset, std::span<uint8_t> bytes, size_t *count) override;
  HRESULT write(uint64_t offset, std::span<const uint8_t> bytes) override;
  HRESULT flush() override;
  bool canWrite() const override { return access_ == Access::kReadWrite; }

private:
  FileStore(int descriptor, Access access) : descriptor_(descriptor), access_(access) {}

  const int descriptor_;
  const Access access_;
};

} // namespace wrt::components

#endif
