// The application layer beside the same written out with the bridges alone. The two sides of a row
// take turns, so that a busy moment of the machine hits both; the medians are compared.

#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/VectorView.h"

#include <DispatchSemaphore.h>
#include <ObjCRuntime.h>
#import <WRTSupport/WRTSupport.h>
#include <abi/Windows.Storage.abi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

using namespace wrt::implement;

namespace {

using Files = WRTIVectorView__1_WRTStorageFile_P_Bridge;
using Number = WRTIAsyncOperation__1_WRTUINT32_Bridge;

constexpr uint32_t kFiles = 1000;

/// The objects' interface without its members, which nobody calls.
struct FileWithoutMembers : wrt::abi::IInspectable {
  static constexpr GUID kIid = wrt::abi::IStorageFile::kIid;
};
class File final : public Implements<FileWithoutMembers> {};

Files *newFiles() {
  using FileType = types::StorageFile;
  std::vector<ComPtr<wrt::abi::IStorageFile>> files;
  for (uint32_t i = 0; i < kFiles; ++i)
    files.push_back(ComPtr<wrt::abi::IStorageFile>::adopt(interfaceCast<wrt::abi::IStorageFile>(
        static_cast<FileWithoutMembers *>(make<File>().detach()))));
  wrt::implement::IVectorView<FileType> *view = nullptr;
  makeVectorView<FileType>(&view, std::move(files));
  return [Files bridgeTransfer:view];
}

Number *finished() {
  wrt::implement::IAsyncOperation<UInt32> *operation = nullptr;
  completedAsync<UInt32>(&operation, 17);
  return [Number bridgeTransfer:operation];
}

/// Stops the program when a side does not do its work.
void require(bool isRight) {
  if (!isRight) {
    std::fprintf(stderr, "support_bench: a wrong result\n");
    std::exit(1);
  }
}

double nanoseconds(const std::function<void()> &work, int calls) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < calls; ++i) {
    @autoreleasepool {
      work();
    }
  }
  const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - start;
  return taken.count() / calls;
}

double median(std::vector<double> &values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void measure(const char *name, int calls, const std::function<void()> &layer,
             const std::function<void()> &writtenOut) {
  std::vector<double> first;
  std::vector<double> second;
  for (int round = 0; round < 41; ++round) {
    first.push_back(nanoseconds(layer, calls));
    second.push_back(nanoseconds(writtenOut, calls));
  }
  const double with = median(first);
  const double without = median(second);
  std::printf("| %s | %.0f ns | %.0f ns | %.2f |\n", name, with, without, with / without);
}

unsigned waitWrittenOut(Number *operation) {
  id ended = __zorvex_dispatch_semaphore_create(0);
  [operation
      setCompletedWithHandler:^HRESULT(id, int) {
        __zorvex_dispatch_semaphore_signal(ended);
        return 0;
      }
                        error:nullptr];
  __zorvex_dispatch_semaphore_wait(ended, ZORVEX_DISPATCH_TIME_FOREVER);
  objc_release(ended);
  return [operation getResultsWithError:nullptr];
}

} // namespace

int main() {
  @autoreleasepool {
    std::printf("| operation | the layer | written out | ratio |\n|---|---|---|---|\n");
    Files *files = newFiles();
    measure(
        "`WRTEach` over 1,000 objects", 20,
        [files] {
          uint32_t count = 0;
          for (id file in WRTEach(files, nullptr))
            count += [file inner] != nullptr;
          require(count == kFiles);
        },
        [files] {
          uint32_t count = 0;
          for (id file in [files getManyWithStartIndex:0 capacity:kFiles error:nullptr])
            count += [file inner] != nullptr;
          require(count == kFiles);
        });
    measure(
        "`WRTAwait` of a finished operation", 2000,
        [] { require(WRTAwait(finished(), nullptr) == 17); },
        [] { require(waitWrittenOut(finished()) == 17); });
    NSNumber *number = [NSNumber numberWithInt:-42];
    measure(
        "`WRTBox` and `WRTUnbox` of a number", 5000,
        [number] { require([WRTUnbox(WRTBox(number)) intValue] == -42); },
        [number] {
          id box = [WRTPropertyValueBridge createInt32WithValue:[number intValue] error:nullptr];
          const int value = [[WRTIPropertyValueBridge cast:box] getInt32WithError:nullptr];
          require([[NSNumber numberWithInt:value] intValue] == -42);
        });
  }
}
