// buffertests IDENTIFIERS DLL...: the three functions between bytes and streams, as ARM code. One
// object of the host is every buffer, stream and operation; what a slot means follows from the
// interface that was asked for.
#include "HostObject.h"
#include "ObjectiveC.h"
#include "tests/exhaustive/Identifiers.h"

#include <fmt/core.h>

#include <gtest/gtest.h>

#include <iostream>

namespace wrt::emulator {
namespace {

test::Identifiers identifiers;
std::vector<std::string> imageFiles;

constexpr std::string_view kBytes = "bytes that cross";

class Buffers : public testing::Test {
protected:
  Buffers() {
    process.hostImports = {"WRTGetActivationFactory", "WRTActivateInstance",
                           "WRTCreateBufferWrappingBytes"};
    machine.define("WRTGetActivationFactory", [this](const HostCall &call) {
      Iid iid;
      std::ranges::copy(machine.read(call[1], iid.size()), iid.begin());
      ask(iid);
      return giveOut(call[2]);
    });
    machine.define("WRTActivateInstance", [this](const HostCall &call) -> std::uint32_t {
      const std::u16string name = machine.readWideString(call[0]);
      crossed.emplace_back(name.begin(), name.end());
      ++object.references;
      return object.pointer();
    });
    machine.define("WRTCreateBufferWrappingBytes", [this](const HostCall &call) -> std::uint32_t {
      const auto bytes = machine.read(call[0], call[1]);
      crossed.push_back("wrap " + std::string(bytes.begin(), bytes.end()));
      ++object.references;
      return object.pointer();
    });
    for (const std::string &file : imageFiles)
      EXPECT_TRUE(process.attach(process.load(file)));
    bytes = process.allocate(64);
    machine.write(bytes, kBytes.data(), kBytes.size());
    object.asked = [this](const Iid &iid, const HostCall &) { ask(iid); };
    object.called = [this](int slot, const HostCall &call) { return receive(slot, call); };
    objects = machine.call(process.find("testLiveObjects"), {});
  }

  /// Everything is given back when the pool is emptied.
  ~Buffers() override {
    objc.drain();
    EXPECT_EQ(object.references, 1);
    EXPECT_EQ(machine.call(process.find("testLiveObjects"), {}), objects);
    EXPECT_EQ(machine.call(process.find("testLiveDelegates"), {}), 0u);
  }

  std::uint32_t giveOut(Address place) {
    ++object.references;
    machine.writeWord(place, object.pointer());
    return 0;
  }

  /// An operation is complete when it is asked to tell: the handler's Invoke takes the slot's
  /// place.
  std::uint32_t complete(const HostCall &call) {
    const Address handler = call[1];
    call.continueIn(machine.readWord(machine.readWord(handler) + 12),
                    {handler, object.pointer(), 1});
    return 0;
  }

  void ask(const Iid &iid) {
    previous = last;
    last = "IBufferByteAccess";
    for (const auto &[name, each] : identifiers.interfaces)
      if (each == iid)
        last = name.substr(0, name.find("__"));
  }

  /// Whose slot is called: the interface that was asked for last, unless that was for an argument.
  std::string receiver(int slot) const {
    const bool isArgument =
        (last == "IBuffer" && slot != 8) || (last == "IRandomAccessStream" && slot != 6);
    return isArgument ? previous : last;
  }

  std::uint32_t receive(int slot, const HostCall &call) {
    const std::string member = fmt::format("{} {}", receiver(slot), slot);
    crossed.push_back(member);
    if (member == "IAsyncOperation 6" || member == "IAsyncOperationWithProgress 8")
      return complete(call);
    if (member == "IBufferByteAccess 3") {
      machine.writeWord(call[1], bytes);
      return 0;
    }
    if (member == "IBuffer 8") {
      EXPECT_EQ(call[1], kBytes.size());
      return 0;
    }
    if (member == "IRandomAccessStream 6") {
      machine.writeWord(call[1], kBytes.size());
      machine.writeWord(call[1] + 4, 1); // 4 GiB more, which does not count
      return 0;
    }
    if (member == "IBufferFactory 6" || member == "IInputStream 6")
      EXPECT_EQ(call[member == "IInputStream 6" ? 2 : 1], kBytes.size());
    // Whatever is handed out comes last: behind other arguments where there are any.
    static const std::map<std::string, std::uint32_t> kPlaces = {
        {"IInputStream 6", 4},
        {"IOutputStream 6", 2},
        {"IBufferFactory 6", 2},
        {"IRandomAccessStreamReferenceStatics 8", 2}};
    const auto place = kPlaces.find(member);
    return giveOut(call[place == kPlaces.end() ? 1 : place->second]);
  }

  std::string contents(Address data) {
    const auto read = machine.read(objc.send(data, "bytes"), objc.send(data, "length"));
    return {read.begin(), read.end()};
  }

  Address bridge(const char *type) {
    return objc.send(objc.type(type), "bridge:", object.pointer());
  }

  Address fromStream() {
    return machine.call(process.find("WRTCreateNSDataFromRandomAccessStreamReference"),
                        {bridge("WRTIRandomAccessStreamReferenceBridge")});
  }

  Process process;
  Machine &machine = process.machine();
  ObjectiveC objc{process};
  HostObject object{process};
  Address bytes = 0;
  std::string last;
  std::string previous;
  std::vector<std::string> crossed;
  std::uint32_t objects = 0;
};

TEST_F(Buffers, GiveTheirBytes) {
  const Address data =
      machine.call(process.find("WRTCreateNSDataFromIBuffer"), {object.pointer(), 0, 5, 7});
  EXPECT_EQ(contents(data), kBytes.substr(0, 5));
  EXPECT_EQ(crossed, std::vector<std::string>{"IBufferByteAccess 3"});
}

TEST_F(Buffers, BecomeStreams) {
  const Address data = machine.call(
      process.find("objc_msgSend"),
      {objc.type("NSData"), objc.selector("dataWithBytes:length:"), bytes, kBytes.size()});
  const Address reference =
      machine.call(process.find("WRTCreateWRTRandomAccessReferenceBridgeFromNSData"), {data});
  EXPECT_EQ(machine.readWord(reference), objc.type("WRTRandomAccessStreamReferenceBridge"));
  EXPECT_EQ(crossed, (std::vector<std::string>{"wrap " + std::string(kBytes), "IBuffer 8",
                                               "Windows.Storage.Streams.InMemoryRandomAccessStream",
                                               "IOutputStream 6", "IAsyncOperationWithProgress 8",
                                               "IRandomAccessStreamReferenceStatics 8"}));
}

TEST_F(Buffers, ComeFromStreams) {
  EXPECT_EQ(contents(fromStream()), kBytes);
  EXPECT_EQ(crossed, (std::vector<std::string>{
                         "IRandomAccessStreamReference 6", "IAsyncOperation 6", "IAsyncOperation 8",
                         "IRandomAccessStream 6", "IBufferFactory 6", "IInputStream 6",
                         "IAsyncOperationWithProgress 8", "IAsyncOperationWithProgress 10",
                         "IBufferByteAccess 3"}));
}

} // namespace
} // namespace wrt::emulator

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc < 3) {
    std::cerr << "usage: buffertests IDENTIFIERS DLL...\n";
    return 2;
  }
  wrt::emulator::identifiers = wrt::test::Identifiers::read(argv[1]);
  wrt::emulator::imageFiles.assign(argv + 2, argv + argc);
  return RUN_ALL_TESTS();
}
