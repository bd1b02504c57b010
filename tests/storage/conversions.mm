// Data to streams and back, and every way in which that can fail.

#include "platform/linux/objc/BlockLayout.h"
#include "tests/storage/ScriptedStream.h"
#include "tests/storage/StorageFixture.h"
#include "tests/support/LogRecorder.h"

#include "tests/support/PlatformTrace.h"

#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>

#import <objc/runtime.h>

#include <map>
#include <mutex>
#include <set>
#include <utility>

using namespace wrt::test;
namespace status = wrt::status;

namespace {

constexpr HRESULT kFailure = static_cast<HRESULT>(0x80070005);
constexpr const char *kToData = "WRTCreateNSDataFromRandomAccessStreamReference";

/// Bytes that differ from their neighbours.
NSData *patternOf(size_t length) {
  NSMutableData *data = [NSMutableData dataWithLength:length];
  auto *bytes = static_cast<uint8_t *>([data mutableBytes]);
  for (size_t i = 0; i < length; ++i)
    bytes[i] = static_cast<uint8_t>(i * 31 + (i >> 8));
  return data;
}

using Handler = HRESULT (^)(id, int);
using SetHandler = void (*)(id, SEL, Handler, NSError **);

/// Sees the completion handlers that the conversions set: what types they say they have, and what
/// they answer. Each is told that its operation was canceled, at which none may look.
class HandlerWatch {
public:
  HandlerWatch() {
    seen.clear();
    for (const char *name : kClasses)
      originals[objc_getClass(name)] = replace(
          objc_getClass(name), reinterpret_cast<IMP>(reinterpret_cast<void *>(&setHandler)));
  }
  ~HandlerWatch() {
    for (auto [type, original] : originals)
      replace(type, original);
  }

  static inline std::set<std::string> seen;
  static constexpr const char *kClasses[] = {
      "WRTIAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P_Bridge",
      "WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge",
      "WRTIAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32_Bridge"};

private:
  static inline std::map<Class, IMP> originals;
  static inline std::mutex mutex;

  static IMP replace(Class type, IMP implementation) {
    return method_setImplementation(
        class_getInstanceMethod(type, @selector(setCompletedWithHandler:error:)), implementation);
  }
  static void setHandler(id self, SEL selector, Handler handler, NSError **error) {
    const auto *block = static_cast<const wrt::block::Block *>(static_cast<void *>(handler));
    // The signature follows what the flags say the descriptor has.
    const auto *end = reinterpret_cast<const char *const *>(block->descriptor + 1);
    const std::string types = (block->flags & wrt::block::kHasCopyDispose) ? end[0] : end[-2];
    reinterpret_cast<SetHandler>(reinterpret_cast<void *>(originals.at([self class])))(
        self, selector,
        ^HRESULT(id operation, int) {
          const HRESULT answer = handler(operation, 2);
          std::lock_guard lock(mutex);
          seen.insert(std::to_string(answer) + " " + types);
          return answer;
        },
        error);
  }
};

const Cell roundTrip("conversion.data.stream.round_trip", [] {
  settleAfterwards();
  const HandlerWatch watch;
  for (size_t length : {0u, 1u, 4095u, 4096u, 4097u, 99999u, runsForItsEnd() ? 2u : 64u << 20}) {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    NSData *data = patternOf(length);
    WRTRandomAccessStreamReferenceBridge *reference =
        WRTCreateWRTRandomAccessReferenceBridgeFromNSData(data);
    EXPECT_EQ([WRTRandomAccessStreamReferenceBridge class], [reference class]);
    for (int time = 0; time < 2; ++time) {
      NSData *back = WRTCreateNSDataFromRandomAccessStreamReference(reference);
      EXPECT_TRUE([back isEqual:data]) << length;
    }
    [pool release];
  }
  EXPECT_TRUE(logRecords().empty());
  wrt::implement::waitForPool();
  std::set<std::string> expected;
  for (const std::string operation : HandlerWatch::kClasses)
    expected.insert("0 i20@?0@\"<" + operation + ">\"8i16");
  EXPECT_EQ(expected, HandlerWatch::seen);
});

const Cell buffer("conversion.data.buffer.normal", [] {
  const auto buffer = wrt::components::makeBuffer(16);
  std::span<uint8_t> room;
  wrt::components::roomOf(buffer.get(), &room);
  std::ranges::fill(room, 7);
  auto *interface = reinterpret_cast<WRTIBuffer *>(buffer.get());
  // Its own length, which is 0, is not asked; of the caller's the low 32 bits count.
  EXPECT_EQ(10u, [WRTCreateNSDataFromIBuffer(interface, 10) length]);
  EXPECT_EQ(3u, [WRTCreateNSDataFromIBuffer(interface, (3ull << 32) + 3) length]);
  NSData *copy = WRTCreateNSDataFromIBuffer(interface, 16);
  room[0] = 9;
  EXPECT_EQ(7, *static_cast<const uint8_t *>([copy bytes]));

  EXPECT_EQ(nil, WRTCreateNSDataFromIBuffer(
                     reinterpret_cast<WRTIBuffer *>(makeFailingBuffer().get()), 4));
  EXPECT_EQ(
      (std::vector<LogRecord>{{3, "WRTCreateNSDataFromIBuffer", "", "Failed buffer byte access"}}),
      logRecords());
  const void *context = lastLogContext();
  [WRTBufferBridge bridge:nullptr];
  EXPECT_NE(context, lastLogContext()) << "the conversions have one of their own";
});

const Cell bufferWithoutBytes("conversion.data.buffer.without_bytes_aborts", [] {
  EXPECT_DEATH(
      {
        printLogWhenAborted();
        WRTCreateNSDataFromIBuffer(reinterpret_cast<WRTIBuffer *>(makeBareBuffer().get()), 1);
      },
      "2 WRTCreateNSDataFromIBuffer Failed to get BufferByteAccess interface on IBuffer object: "
      "0x80004002");
});

/// What was logged, as "function: text", without the queries that failed.
std::string logged() {
  std::string log;
  for (const LogRecord &record : logRecords()) {
    if (record.text.starts_with("Failed QueryInterface"))
      continue;
    EXPECT_EQ(3, record.level);
    EXPECT_EQ("", record.file);
    log += record.function + ": " + record.text;
  }
  return log;
}

/// What was logged and what came of a reference.
using Reading = std::pair<std::string, NSData *>;

Reading readScripted(StreamScript &script) {
  clearLog();
  const auto reference = makeReference(script);
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSData *data = [WRTCreateNSDataFromRandomAccessStreamReference(
      [WRTRandomAccessStreamReferenceBridge bridge:reference.get()]) retain];
  [pool release];
  return {logged(), [data autorelease]};
}

const Cell readFailures("conversion.data.from_stream.failing_steps", [] {
  settleAfterwards();
  const std::string call = kToData, block = call + "_block_invoke";
  const std::pair<HRESULT StreamScript::*, std::string> cases[] = {
      {&StreamScript::openStart,
       call + ": Failed [WRTRandomAccessStreamReferenceBridge openReadAsync]"},
      {&StreamScript::openHandler, ""},
      {&StreamScript::openResult, block + ": Failed fetching rawStream"},
      {&StreamScript::sizeStatus, block + ": Failed fetching size of randomAccessStream"},
      {&StreamScript::readStart, block + ": Failed initiating ReadAsync on inputStream"},
      {&StreamScript::readHandler, block + ": Failed to install handler in read op"},
      {&StreamScript::readResult, block + "_2: Failed to get buffer"},
  };
  for (const auto &[step, log] : cases) {
    for (const HRESULT failure : {kFailure, status::kNoInterface}) {
      StreamScript script;
      script.size = 8;
      script.*step = failure;
      EXPECT_EQ(Reading(log, nil), readScripted(script));
    }
  }
  StreamScript script;
  failNext(Lack::Semaphore);
  EXPECT_EQ(Reading("", nil), readScripted(script)) << "nobody could wait";
  clearLog();
  EXPECT_EQ(nil, WRTCreateNSDataFromRandomAccessStreamReference(nil));
  EXPECT_EQ(1u, logRecords().size());
});

// As long as the stream said, whatever was delivered; of sizes beyond 4 GiB the low 32 bits count.
const Cell shortRead("conversion.data.from_stream.short_read", [] {
  settleAfterwards();
  for (uint64_t size : {uint64_t{100}, (uint64_t{5} << 32) + 12}) {
    const auto low = static_cast<uint32_t>(size);
    StreamScript script;
    script.size = size;
    script.delivered = 10;
    const auto [log, data] = readScripted(script);
    EXPECT_EQ("", log);
    ASSERT_EQ(low, [data length]);
    EXPECT_EQ(0x5A, static_cast<const uint8_t *>([data bytes])[9]);
    EXPECT_EQ(0, static_cast<const uint8_t *>([data bytes])[10]);
    EXPECT_EQ(0, script.options);
    EXPECT_EQ(low, script.capacity);
    EXPECT_EQ(low, script.count);
  }
  StreamScript script;
  script.size = 4;
  script.bareBuffer = true;
  const auto [log, data] = readScripted(script);
  EXPECT_EQ("WRTCreateNSDataFromIBuffer: Failed buffer byte access", log);
  EXPECT_EQ(nil, data);
});

const Cell writeFailures("conversion.data.to_stream.failing_steps", [] {
  expectLeftover({}); // bytes of writes that may still run; the ledger does not count them
  settleAfterwards();
  const std::string call = "WRTCreateWRTRandomAccessReferenceBridgeFromNSData: Failed ";
  const struct {
    HRESULT StreamScript::*step; ///< null: nobody can wait
    bool makesReference;
    std::string log;
  } cases[] = {
      {&StreamScript::lengthStatus, true, ""},
      {&StreamScript::writeStart, false,
       call + "[WRTInMemoryRandomAccessStreamBridge writeAsyncWithBuffer:]"},
      {&StreamScript::writeHandler, false, call + "writing data"},
      {nullptr, false, call + "writing data"},
      {&StreamScript::writeResult, true, ""},
      {&StreamScript::referenceStatus, false, ""},
  };
  for (const auto &[step, makesReference, log] : cases) {
    for (const HRESULT failure : {kFailure, status::kNoInterface}) {
      clearLog();
      StreamScript script;
      if (step != nullptr)
        script.*step = failure;
      else
        failNext(Lack::Semaphore);
      const ActiveScript active(script);
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      const id reference = WRTCreateWRTRandomAccessReferenceBridgeFromNSData(patternOf(3));
      EXPECT_EQ(makesReference, reference != nil);
      EXPECT_EQ(3u, script.length) << "the buffer is told its length";
      [pool release];
      EXPECT_EQ(log, logged());
      wrt::implement::waitForPool();
      if (step == nullptr || step == &StreamScript::writeHandler)
        EXPECT_EQ(31, script.written[1]) << "a write that may still run can read its bytes";
    }
  }
});

} // namespace
