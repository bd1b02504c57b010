#include "HostObject.h"
#include "ObjectiveC.h"

#include "Tool.h"

#include <cstring>

namespace {

using namespace wrt::emulator;

constexpr std::uint32_t kNotImplemented = 0x80004001;
constexpr std::uint32_t kInvalidArgument = 0x80070057;
constexpr int kCrashed = 120;

/// By the first word of the interface's identifier and the slot.
class WindowsRuntime {
public:
  explicit WindowsRuntime(Process &process)
      : machine_(process.machine()), objc_(process), object_(process) {
    object_.asked = [this](const Iid &iid, const HostCall &) { setInterface(iid.data()); };
    object_.called = [this](int slot, const HostCall &call) {
      const auto found = functions_.find({interface_, slot});
      return found == functions_.end() ? kNotImplemented : found->second(call);
    };
    machine_.define("WRTGetActivationFactory", [this](const HostCall &call) {
      setInterface(machine_.read(call[1], 16).data());
      return give(call[2]);
    });
    machine_.define("WRTActivateInstance", [this](const HostCall &) {
      ++object_.references;
      return object_.pointer();
    });
    addUri();
    addValues();
    addDocument();
  }

private:
  using Function = std::function<std::uint32_t(const HostCall &)>;

  void setInterface(const std::uint8_t *iid) { std::memcpy(&interface_, iid, sizeof interface_); }

  std::uint32_t give(Address place) {
    ++object_.references;
    machine_.writeWord(place, object_.pointer());
    return 0;
  }

  void add(std::uint32_t interface, int slot, Function function) {
    functions_[{interface, slot}] = std::move(function);
  }

  /// A property's getter.
  void addText(std::uint32_t interface, int slot, const std::u16string &text) {
    add(interface, slot, [this, handle = objc_.handle(text)](const HostCall &call) {
      machine_.writeWord(call[1], handle);
      return 0u;
    });
  }

  bool isPassed(const HostCall &call, const std::u16string &text) {
    return objc_.handleText(call[1]) == text;
  }

  void addUri() {
    const std::u16string address = u"http://www.example.com:8080/a/b.txt?c=d#e";
    add(0x44A9796F, 6, [=, this](const HostCall &call) { // IUriRuntimeClassFactory.CreateUri
      return isPassed(call, address) ? give(call[2]) : kInvalidArgument;
    });
    constexpr std::uint32_t kUri = 0x9E365E57; // IUriRuntimeClass
    addText(kUri, 9, u".txt");
    addText(kUri, 10, u"#e");
    addText(kUri, 11, u"www.example.com");
    addText(kUri, 13, u"/a/b.txt");
    addText(kUri, 14, u"?c=d");
    addText(kUri, 16, address);
    addText(kUri, 17, u"http");
    add(kUri, 19, [this](const HostCall &call) {
      machine_.writeWord(call[1], 8080);
      return 0u;
    });
    add(kUri, 20, [this](const HostCall &call) {
      machine_.write(call[1], "", 1); // false
      return 0u;
    });
    add(0xC1D432BA, 7,
        [this, handle = objc_.handle(u"a%20b")](const HostCall &call) { // IUriEscapeStatics
          machine_.writeWord(call[2], handle);
          return isPassed(call, u"a b") ? 0u : kInvalidArgument;
        });
  }

  void addValues() {
    constexpr std::uint32_t kStatics = 0x629BDBC8; // IPropertyValueStatics
    constexpr std::uint32_t kValue = 0x4BD682DD;   // IPropertyValue
    add(kStatics, 10, [this](const HostCall &call) {
      number_ = call[1];
      return give(call[2]);
    });
    add(kValue, 11, [this](const HostCall &call) {
      machine_.writeWord(call[1], number_);
      return 0u;
    });
    add(kStatics, 15, [this](const HostCall &call) { // the number is in d0
      std::ranges::copy_n(machine_.registers().single.begin(), 2, real_.begin());
      return give(call[1]);
    });
    add(kValue, 16, [this](const HostCall &call) {
      machine_.write(call[1], real_.data(), sizeof real_);
      return 0u;
    });
    add(kStatics, 18, [this](const HostCall &call) {
      return isPassed(call, u"text") ? give(call[2]) : kInvalidArgument;
    });
    addText(kValue, 19, u"text");
  }

  void addDocument() {
    add(0x6CD0E74E, 6, [this](const HostCall &call) { // IXmlDocumentIO.LoadXml
      return isPassed(call, u"<a>b</a>") ? 0u : kInvalidArgument;
    });
    addText(0x5CC5B382, 6, u"<a>b</a>"); // IXmlNodeSerializer
    addText(0x5CC5B382, 7, u"b");
  }

  Machine &machine_;
  ObjectiveC objc_;
  HostObject object_;
  std::map<std::pair<std::uint32_t, int>, Function> functions_;
  std::uint32_t interface_ = 0;
  std::uint32_t number_ = 0;
  std::array<std::uint32_t, 2> real_{};
};

int run(const std::string &program, const std::vector<std::string> &files) {
  Process process;
  process.hostImports = {"WRTGetActivationFactory", "WRTActivateInstance"};
  process.machine().define("RoInitialize", [](const HostCall &) { return 0u; });
  for (const std::string &file : files)
    if (!process.attach(process.load(file)))
      throw Fault(file + " refuses to be attached");
  WindowsRuntime runtime(process);
  const Module &module = process.load(program);
  process.machine().call(module.address(module.image.entryPoint()), {});
  throw Fault(program + " ends without ExitProcess");
}

} // namespace

int main(int argc, char **argv) {
  wrt::Tool tool(
      "armprogram",
      "Loads the DLLs in order into an emulated process and attaches them, then the program,\n"
      "and runs it with its console as the standard output. WinRT has what 'wrtsmoke.exe'\n"
      "asks for: one object, which answers to every identifier and whose functions refuse\n"
      "(E_INVALIDARG) what the program does not pass.",
      "the program's, 120 when it crashes, ends without one or cannot be loaded,\n"
      "2 for wrong usage.");
  tool.arguments({"PROGRAM", "DLL..."}, [](const wrt::Arguments &given) {
    try {
      return run(given["PROGRAM"], given.all("DLL"));
    } catch (const Exited &end) {
      return static_cast<int>(end.status);
    } catch (const std::exception &error) {
      std::cout << '\n' << std::flush;
      std::cerr << "armprogram: " << error.what() << '\n';
      return kCrashed;
    }
  });
  return tool.run(argc, argv);
}
