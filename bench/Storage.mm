// Conversions of data beside plain copies, and listing a folder through the bridges beside a walk
// through it that reads the same.

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.FileProperties.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>

#include <DispatchSemaphore.h>
#include <ObjCRuntime.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kFiles = 2000;

/// Data to a stream reference and back.
void convert(benchmark::State &state) {
  const auto size = static_cast<size_t>(state.range(0)) << 20;
  @autoreleasepool {
    NSMutableData *data = [NSMutableData dataWithLength:size];
    std::memset([data mutableBytes], 1, size);
    for (auto _ : state) {
      @autoreleasepool {
        id reference = WRTCreateWRTRandomAccessReferenceBridgeFromNSData(data);
        if ([WRTCreateNSDataFromRandomAccessStreamReference(reference) length] != size)
          state.SkipWithError("the data did not come back");
      }
    }
  }
}
BENCHMARK(convert)->Name("conversion there and back (MiB)")->Arg(1)->Arg(64)->UseRealTime();

/// The same number of bytes copied once into fresh memory.
void copy(benchmark::State &state) {
  const auto size = static_cast<size_t>(state.range(0)) << 20;
  const std::vector<char> data(size, 1);
  for (auto _ : state) {
    const std::unique_ptr<char[]> target(new char[size]);
    std::memcpy(target.get(), data.data(), size);
    benchmark::DoNotOptimize(target.get());
    benchmark::ClobberMemory();
  }
}
BENCHMARK(copy)->Name("memcpy (MiB)")->Arg(1)->Arg(64)->UseRealTime();

/// A folder with as many small files, which goes away when the program ends.
class FolderOfFiles {
public:
  explicit FolderOfFiles(int count) {
    std::string name = std::filesystem::temp_directory_path() / "storage-bench-XXXXXX";
    path = mkdtemp(name.data());
    for (int i = 0; i < count; ++i)
      std::ofstream(path / ("file " + std::to_string(i) + ".txt")) << 'x';
  }
  ~FolderOfFiles() {
    std::error_code error;
    std::filesystem::remove_all(path, error);
  }

  std::filesystem::path path;
};

const std::filesystem::path &folderOfFiles() {
  static const FolderOfFiles folder(kFiles);
  return folder.path;
}

template <class Operation>
Operation wait(Operation operation) {
  const id semaphore = __zorvex_dispatch_semaphore_create(0);
  [operation
      setCompletedWithHandler:^HRESULT(Operation, int) {
        __zorvex_dispatch_semaphore_signal(semaphore);
        return 0;
      }
                        error:nullptr];
  __zorvex_dispatch_semaphore_wait(semaphore, ZORVEX_DISPATCH_TIME_FOREVER);
  objc_release(semaphore);
  return operation;
}

/// Name, size and time of every file, each asked for by a bridge of its own.
/// The files of the folder, by the bridges.
id<WRTIVectorView__1_WRTStorageFile_P_Bridge> filesOf(NSString *path) {
  WRTStorageFolderBridge *folder =
      [wait([WRTStorageFolderBridge getFolderFromPathAsyncWithPath:path error:nullptr])
          getResultsWithError:nullptr];
  return [wait([folder getFilesAsyncOverloadDefaultOptionsStartAndCountWithError:nullptr])
      getResultsWithError:nullptr];
}

void listByBridges(benchmark::State &state) {
  NSString *path = [[NSString alloc] initWithUTF8String:folderOfFiles().c_str()];
  for (auto _ : state) {
    unsigned long long bytes = 0;
    @autoreleasepool {
      const id<WRTIVectorView__1_WRTStorageFile_P_Bridge> files = filesOf(path);
      for (WRTStorageFileBridge *file in [files getManyWithStartIndex:0
                                                             capacity:kFiles
                                                                error:nullptr]) {
        WRTBasicPropertiesBridge *facts =
            [wait([file getBasicPropertiesAsyncWithError:nullptr]) getResultsWithError:nullptr];
        benchmark::DoNotOptimize([file getNameWithError:nullptr]);
        benchmark::DoNotOptimize([facts getDateModifiedWithError:nullptr].UniversalTime);
        bytes += [facts getSizeWithError:nullptr];
      }
    }
    if (bytes != kFiles)
      state.SkipWithError("not all files were found");
  }
  [path release];
}
BENCHMARK(listByBridges)->Name("2000 files by the bridges")->MeasureProcessCPUTime()->UseRealTime();

/// What of the process is in memory.
size_t residentBytes() {
  size_t whole = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> whole >> resident;
  return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

/// The files of a folder with a great many, as objects, and the memory that the list takes.
void listMany(benchmark::State &state) {
  const auto count = static_cast<int>(state.range(0));
  const FolderOfFiles made(count);
  double most = 0;
  NSString *path = [[NSString alloc] initWithUTF8String:made.path.c_str()];
  for (auto _ : state) {
    @autoreleasepool {
      const size_t before = residentBytes();
      const id<WRTIVectorView__1_WRTStorageFile_P_Bridge> files = filesOf(path);
      if ([files getSizeWithError:nullptr] != static_cast<unsigned>(count))
        state.SkipWithError("not all files were found");
      most = std::max(most, static_cast<double>(residentBytes()) - static_cast<double>(before));
    }
  }
  state.counters["bytes/file"] = most / count;
  [path release];
}
BENCHMARK(listMany)
    ->Name("getFiles (files)")
    ->Arg(100'000)
    ->Iterations(5)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void listByWalk(benchmark::State &state) {
  for (auto _ : state) {
    std::uintmax_t bytes = 0;
    for (const auto &entry : std::filesystem::directory_iterator(folderOfFiles())) {
      benchmark::DoNotOptimize(entry.path().filename());
      benchmark::DoNotOptimize(entry.last_write_time());
      bytes += entry.file_size();
    }
    if (bytes != kFiles)
      state.SkipWithError("not all files were found");
  }
}
BENCHMARK(listByWalk)->Name("2000 files by a walk")->MeasureProcessCPUTime()->UseRealTime();

} // namespace

BENCHMARK_MAIN();
