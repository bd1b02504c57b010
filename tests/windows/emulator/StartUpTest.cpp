// startuptests IMAGE MAP DLL...: start-up as ARM code, in an image that the DLLs are loaded before.
#include "FixupTable.h"
#include "LinkMap.h"
#include "Metadata.h"
#include "Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace wrt::emulator {
namespace {

std::filesystem::path imageFile;
std::filesystem::path mapFile;
std::vector<std::filesystem::path> siblingFiles;

/// The address of a symbol that the linker's map shows under the given name, or 0.
pe::Rva findInMap(const std::string &symbol) {
  static const pe::LinkMap map = pe::LinkMap::read(mapFile);
  const auto found =
      std::ranges::find(map.symbols, symbol, &std::pair<const pe::Rva, std::string>::second);
  return found == map.symbols.end() ? 0 : found->first;
}

class StartUp : public testing::Test {
protected:
  StartUp() {
    for (const auto &file : siblingFiles)
      EXPECT_TRUE(process.attach(process.load(file)));
    module = &process.load(imageFile);
    table = pe::FixupTable::read(module->image).present;
    protections = process.protections();
    process.calls.clear();
  }

  Machine &machine() { return process.machine(); }

  std::uint32_t wordAt(pe::Rva rva) { return machine().readWord(module->address(rva)); }

  pe::Rva section(const char *name) { return module->image.findSection(name)->rva; }

  /// The place of record `index` of the fixup table in memory.
  Address record(std::size_t index) {
    return module->address(section("wrtfixup") + 16 + 16 * static_cast<pe::Rva>(index));
  }

  bool isPatched(const pe::FixupRecord &each) {
    return wordAt(each.target) == each.addend + wordAt(each.slot);
  }

  std::size_t patchedCount() {
    std::size_t count = 0;
    for (const pe::FixupRecord &each : table)
      count += isPatched(each);
    return count;
  }

  int registeredImages() {
    Module *runtime = process.findModule("zorvex.dll");
    return static_cast<int>(machine().call(runtime->find("testRegisteredImages"), {}));
  }

  /// The reason for which the process ended itself during attach.
  std::string endOfAttach() {
    try {
      process.attach(*module);
    } catch (const Ended &end) {
      return end.what();
    }
    return "";
  }

  Process process;
  Module *module = nullptr;
  std::vector<pe::FixupRecord> table;
  std::map<Address, std::uint32_t> protections;
};

TEST_F(StartUp, PatchesTheImageAndRegistersIt) {
  ASSERT_FALSE(table.empty());
  EXPECT_EQ(patchedCount(), 0u);
  const int images = registeredImages();
  const std::size_t blocks = process.liveBlocks();
  ASSERT_TRUE(process.attach(*module));

  EXPECT_EQ(patchedCount(), table.size());
  const pe::Section &strings = *module->image.findSection("cfstring");
  ASSERT_GE(strings.virtualSize, 16u);
  const Address stringClass =
      process.findModule("zorvex.dll")->find("__CFConstantStringClassReference");
  for (pe::Rva at = strings.rva; at < strings.rva + strings.virtualSize; at += 16)
    EXPECT_EQ(wordAt(at), stringClass) << at;
  EXPECT_EQ(registeredImages(), images + 1);
  EXPECT_EQ(process.liveBlocks(), blocks);
  EXPECT_EQ(process.protections(), protections);

  const std::vector<std::string> begin = {"GetModuleHandleExW",   "GetModuleHandleExW",
                                          "GetProcAddress",       "GetCurrentProcess",
                                          "GetModuleInformation", "malloc"};
  ASSERT_GT(process.calls.size(), begin.size());
  EXPECT_TRUE(std::equal(begin.begin(), begin.end(), process.calls.begin()));
  EXPECT_EQ(std::count(process.calls.begin(), process.calls.end(), "GetNativeSystemInfo"), 1);
  const std::vector<std::string> end(process.calls.end() - 3, process.calls.end());
  EXPECT_EQ(end,
            (std::vector<std::string>{"free", "GetModuleHandleW zorvex.dll", "GetProcAddress"}));
}

/// Writable data of an image is copied when it is written: all of it has to be opened first.
TEST_F(StartUp, OpensEveryPageThatItWritesAndClosesIt) {
  ASSERT_TRUE(process.attach(*module));
  ASSERT_FALSE(process.protectCalls.empty());
  ASSERT_EQ(process.protectCalls.size() % 2, 0u);
  std::set<Address> opened;
  for (std::size_t i = 0; i < process.protectCalls.size(); i += 2) {
    const Process::ProtectCall &open = process.protectCalls[i];
    const Process::ProtectCall &close = process.protectCalls[i + 1];
    EXPECT_EQ(open.protection, 0x40u); // PAGE_EXECUTE_READWRITE
    EXPECT_EQ(close.protection, protections.at(open.address));
    EXPECT_EQ(std::pair(close.address, close.size), std::pair(open.address, open.size));
    for (Address page = open.address; page < open.address + open.size; page += Machine::kPageSize)
      opened.insert(page);
  }
  for (const pe::FixupRecord &each : table)
    EXPECT_TRUE(opened.count(module->address(each.target) & ~(Machine::kPageSize - 1)));
}

/// The runtime is told of every list that the compiler wrote and of the module's base, when all is
/// in place; the table is applied before the strings get their class.
TEST_F(StartUp, HandsEverythingToTheRuntimeInOrder) {
  const pe::Section &lists = *module->image.findSection("objclist");
  const pe::Rva strings = section("cfstring");
  const Address stringClass =
      process.findModule("zorvex.dll")->find("__CFConstantStringClassReference");
  machine().define("free", [&](const HostCall &) -> std::uint32_t {
    EXPECT_EQ(patchedCount(), table.size());
    EXPECT_NE(wordAt(strings), stringClass);
    return 0;
  });
  std::vector<std::set<Address>> handed;
  machine().define("load", [&](const HostCall &call) -> std::uint32_t {
    EXPECT_EQ(wordAt(strings), stringClass);
    EXPECT_EQ(call[0], module->address(section("objcinfo")));
    EXPECT_EQ(call[1], module->base);
    EXPECT_EQ(machine().readWord(call[0]) | machine().readWord(call[0] + 4), 0u);
    std::size_t words = 0;
    for (Address field = call[0] + 8; field < call[0] + 72; field += 8) {
      const Address end = machine().readWord(field + 4);
      handed.emplace_back();
      for (Address entry = machine().readWord(field); entry < end; entry += 4) {
        EXPECT_TRUE(lists.contains(entry - module->base));
        if (const Address word = machine().readWord(entry))
          handed.back().insert(word), ++words;
      }
    }
    // No word of the lists is left out or told twice.
    for (pe::Rva at = lists.rva; at < lists.rva + lists.virtualSize; at += 4)
      words -= wordAt(at) != 0;
    EXPECT_EQ(words, 0u);
    return 0;
  });
  process.replacedExports["__objc_image_load"] = machine().hostFunction("load");
  ASSERT_TRUE(process.attach(*module));
  ASSERT_EQ(handed.size(), 8u);

  // Each list has what it is for.
  const auto &classes = handed[0], &eager = handed[1], &categories = handed[2],
             &protocols = handed[3], &classUses = handed[4], &superUses = handed[5],
             &selectors = handed[6], &protocolUses = handed[7];
  std::set<Address> exported;
  std::set<Address> elsewhere;
  for (const pe::Export &each : module->image.exports())
    if (each.name.starts_with("OBJC_CLASS_$_"))
      exported.insert(module->address(each.rva));
  for (const pe::Import &each : module->image.imports())
    if (each.name.starts_with("OBJC_CLASS_$_"))
      elsewhere.insert(wordAt(each.slot));
  EXPECT_EQ(classes, exported);
  // Two lists are empty: they can be told apart by their places alone.
  EXPECT_TRUE(eager.empty() && categories.empty());
  const pe::Rva info = section("objcinfo");
  for (const auto &[field, name] : {std::pair{16u, "nonLazyClasses"}, {24u, "categories"}}) {
    const auto bound = "wrt::startup::(anonymous namespace)::" + std::string(name);
    EXPECT_EQ(wordAt(info + field), module->address(findInMap(bound + "Begin")) + 4) << name;
    EXPECT_EQ(wordAt(info + field + 4), module->address(findInMap(bound + "End"))) << name;
  }
  const pe::Metadata metadata = pe::Metadata::read(module->image);
  std::set<std::string> names;
  for (const Address each : protocols)
    names.insert(machine().readString(machine().readWord(each + 4)));
  EXPECT_EQ(names.size(), metadata.protocols.size());
  EXPECT_TRUE(names.count("WRTIUnknownBridge") && names.count("WRTTestInterfaceBridge"));
  EXPECT_TRUE(std::ranges::includes(protocols, protocolUses));
  EXPECT_FALSE(superUses.empty());
  EXPECT_TRUE(std::ranges::includes(classes, superUses));
  EXPECT_FALSE(classUses.empty());
  for (const Address each : classUses)
    EXPECT_TRUE(classes.count(each) || elsewhere.count(each));
  names.clear();
  for (const Address each : selectors)
    names.insert(machine().readString(each));
  EXPECT_TRUE(names.count("bridgeTransfer:") && names.count("queryInterfaceWithGUID:error:"));
}

TEST_F(StartUp, RunsOnce) {
  ASSERT_TRUE(process.attach(*module));
  const int images = registeredImages();
  machine().writeWord(module->address(table[0].target), 0x12345678);
  ASSERT_TRUE(process.attach(*module));
  EXPECT_EQ(wordAt(table[0].target), 0x12345678u);
  EXPECT_EQ(registeredImages(), images);
}

TEST_F(StartUp, UnregistersThroughTheMainProgram) {
  ASSERT_TRUE(process.attach(*module));
  process.detach(*module); // nothing to call
  std::vector<std::uint32_t> told;
  machine().define("__objc_image_unload", [&](const HostCall &call) -> std::uint32_t {
    told.push_back(call[0]);
    return 0;
  });
  process.programExports["__objc_image_unload"] = machine().hostFunction("__objc_image_unload");
  process.detach(*module);
  EXPECT_EQ(told, std::vector<std::uint32_t>{module->address(section("objcinfo"))});
}

/// What the process lacks, and whether the image is patched all the same. Without patches there are
/// no classes that a runtime could take.
class Lacking : public StartUp,
                public testing::WithParamInterface<std::pair<bool Process::*, bool>> {};

TEST_P(Lacking, PatchesWhatItCanAndClosesEveryPage) {
  process.hiddenModules = {"zorvex.dll"};
  process.*GetParam().first = false;
  ASSERT_TRUE(process.attach(*module));
  EXPECT_EQ(patchedCount(), GetParam().second ? table.size() : 0u);
  EXPECT_EQ(process.protections(), protections);
}

INSTANTIATE_TEST_SUITE_P(StartUp, Lacking,
                         testing::Values(std::pair(&Process::hasMemory, true),
                                         std::pair(&Process::allowsProtect, false),
                                         std::pair(&Process::hasGetModuleInformation, false),
                                         std::pair(&Process::hasKernel, false)));

TEST_F(StartUp, EndsForAnUnknownKindAndOtherSignatures) {
  machine().writeWord(record(0) + 12, 0x20);
  EXPECT_EQ(endOfAttach(), "abort");
  machine().writeWord(record(0) + 12, table[0].kindWord);
  process.setProtection(module->base, Machine::kPageSize, 0x04);
  const Address nt = module->base + machine().readWord(module->base + 0x3C);
  machine().writeWord(nt, 0x00004550 ^ 1);
  EXPECT_EQ(endOfAttach(), "assertion failed: pNTHeaders->Signature == IMAGE_NT_SIGNATURE && "
                           "\"expected a NT signature\"");
  machine().writeWord(module->base, machine().readWord(module->base) ^ 1);
  EXPECT_EQ(endOfAttach(), "assertion failed: pDOSHeader->e_magic == IMAGE_DOS_SIGNATURE && "
                           "\"expected a DOS signature\"");
}

TEST_F(StartUp, DoesNothingForThreads) {
  const Address entry = module->address(module->image.entryPoint());
  for (const std::uint32_t reason : {2u, 3u}) // a thread begins, a thread ends
    EXPECT_EQ(machine().call(entry, {module->base, reason, 0}), 1u);
  EXPECT_TRUE(process.calls.empty());
}

TEST_F(StartUp, InitializesTheWindowsRuntimeWhenAsked) {
  const auto function = findInMap("wrt::startup::initializeWindowsRuntime()");
  const auto flag = findInMap("wrt::startup::(anonymous namespace)::initializesWindowsRuntime");
  ASSERT_NE(function, 0u);
  ASSERT_NE(flag, 0u);
  std::vector<std::uint32_t> kinds;
  std::uint32_t status = 0;
  machine().define("RoInitialize", [&](const HostCall &call) {
    kinds.push_back(call[0]);
    return status;
  });
  const auto initialize = [&] { return machine().call(module->address(function & ~1u), {}); };
  EXPECT_EQ(initialize(), 0u);
  status = 1; // S_FALSE: initialized before
  EXPECT_EQ(initialize(), 0u);
  status = 0x80010106; // RPC_E_CHANGED_MODE
  EXPECT_EQ(initialize(), 0x80010106u);
  EXPECT_EQ(kinds, (std::vector<std::uint32_t>{1, 1, 1}));
  machine().writeWord(module->address(flag), 0);
  EXPECT_EQ(initialize(), 0u);
  EXPECT_EQ(kinds.size(), 3u);
}

} // namespace
} // namespace wrt::emulator

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc < 3) {
    std::cerr << "usage: startuptests IMAGE MAP DLL...\n";
    return 2;
  }
  wrt::emulator::imageFile = argv[1];
  wrt::emulator::mapFile = argv[2];
  wrt::emulator::siblingFiles.assign(argv + 3, argv + argc);
  return RUN_ALL_TESTS();
}
