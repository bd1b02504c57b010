#include "Process.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstring>

namespace wrt::emulator {

namespace {

constexpr Address kFirstModule = 0x40000000;
constexpr std::uint32_t kModuleAlignment = 0x100000;
constexpr Address kHeap = 0x71000000;
constexpr std::uint32_t kHeapSize = 512 << 20;

// Windows 10 SDK 10.0.16299.0, winnt.h.
constexpr std::uint32_t kPageReadOnly = 0x02;
constexpr std::uint32_t kPageReadWrite = 0x04;
constexpr std::uint32_t kPageWriteCopy = 0x08;
constexpr std::uint32_t kPageExecuteRead = 0x20;
constexpr std::uint32_t kPageExecuteReadWrite = 0x40;

std::uint32_t wholePages(std::uint32_t size) {
  return (std::max(size, 1u) + Machine::kPageSize - 1) & ~(Machine::kPageSize - 1);
}

std::uint16_t halfword(const std::vector<std::uint8_t> &memory, pe::Rva at) {
  return static_cast<std::uint16_t>(memory[at] | memory[at + 1] << 8);
}

/// A MOVW or MOVT in memory: reads or replaces its immediate.
std::uint32_t moveImmediate(const std::vector<std::uint8_t> &memory, pe::Rva at) {
  const std::uint32_t first = halfword(memory, at);
  const std::uint32_t second = halfword(memory, at + 2);
  return (first & 0xF) << 12 | (first >> 10 & 1) << 11 | (second >> 12 & 7) << 8 | (second & 0xFF);
}

void setMoveImmediate(std::vector<std::uint8_t> &memory, pe::Rva at, std::uint32_t value) {
  const std::uint32_t first =
      (halfword(memory, at) & 0xFBF0u) | (value >> 12 & 0xF) | (value >> 11 & 1) << 10;
  const std::uint32_t second =
      (halfword(memory, at + 2) & 0x8F00u) | (value >> 8 & 7) << 12 | (value & 0xFF);
  for (int i = 0; i < 2; ++i) {
    memory[at + i] = static_cast<std::uint8_t>(first >> 8 * i);
    memory[at + 2 + i] = static_cast<std::uint8_t>(second >> 8 * i);
  }
}

void setWord(std::vector<std::uint8_t> &memory, pe::Rva at, std::uint32_t value) {
  std::memcpy(&memory.at(at), &value, sizeof value);
}

/// As Windows maps an image: its data is shared with other processes until it is written.
std::uint32_t protectionOf(const pe::Section &section) {
  if (section.isExecutable())
    return section.isWritable() ? kPageExecuteReadWrite : kPageExecuteRead;
  return section.isWritable() ? kPageWriteCopy : kPageReadOnly;
}

} // namespace

Address Module::find(const std::string &symbol) const {
  const auto &exports = image.exports();
  const auto found = std::ranges::find(exports, symbol, &pe::Export::name);
  return found == exports.end() ? 0 : base + found->rva;
}

Process::Process() : nextModule_(kFirstModule), nextBlock_(kHeap) {
  machine_.map(kHeap, kHeapSize);
  machine_.describe = [this](Address address) {
    const Module *module = moduleAt(address);
    return module ? module->name + ' ' + module->image.describe(address - module->base)
                  : fmt::format("{:#x}", address);
  };
  defineWindowsFunctions(*this);
}

Module &Process::load(const std::filesystem::path &file) {
  auto module = std::make_unique<Module>(
      Module{file.filename().string(), pe::Image::read(file), nextModule_});
  const pe::Image &image = module->image;
  if (image.preferredBase() == module->base)
    throw pe::FormatError(module->name + " would be loaded at its preferred base");
  const std::uint32_t size = wholePages(image.size());
  nextModule_ += (size + kModuleAlignment - 1) & ~(kModuleAlignment - 1);

  std::vector<std::uint8_t> memory = image.memory();
  relocate(*module, memory);
  for (const pe::Import &import : image.imports())
    setWord(memory, import.slot, resolve(import.library, import.name));
  machine_.map(module->base, size);
  machine_.write(module->base, memory.data(), static_cast<std::uint32_t>(memory.size()));
  setProtection(module->base, size, kPageReadOnly);
  for (const pe::Section &section : image.sections()) {
    setProtection(module->address(section.rva), wholePages(section.virtualSize),
                  protectionOf(section));
  }
  modules_.push_back(std::move(module));
  return *modules_.back();
}

bool Process::attach(Module &module) {
  return machine_.call(module.address(module.image.entryPoint()), {module.base, 1, 0}) != 0;
}

void Process::detach(Module &module) {
  machine_.call(module.address(module.image.entryPoint()), {module.base, 0, 0});
}

Module *Process::findModule(const std::string &name) {
  const auto found = std::ranges::find_if(
      modules_, [&](const std::unique_ptr<Module> &each) { return each->name == name; });
  return found == modules_.end() ? nullptr : found->get();
}

Address Process::find(const std::string &symbol) const {
  for (auto each = modules_.rbegin(); each != modules_.rend(); ++each)
    if (const Address address = (*each)->find(symbol))
      return address;
  throw Fault(symbol + " is exported by no module");
}

Module *Process::moduleAt(Address address) {
  const auto found = std::ranges::find_if(
      modules_, [=](const std::unique_ptr<Module> &each) { return each->contains(address); });
  return found == modules_.end() ? nullptr : found->get();
}

std::uint32_t Process::protection(Address address) const {
  const auto found = protections_.find(address & ~(Machine::kPageSize - 1));
  return found == protections_.end() ? 0 : found->second;
}

void Process::setProtection(Address address, std::uint32_t size, std::uint32_t protection) {
  const bool execute = protection == kPageExecuteRead || protection == kPageExecuteReadWrite;
  const bool write = protection == kPageReadWrite || protection == kPageWriteCopy ||
                     protection == kPageExecuteReadWrite;
  machine_.protect(address, size, write, execute);
  for (Address page = address; page < address + size; page += Machine::kPageSize)
    protections_[page] = protection;
}

Address Process::allocate(std::uint32_t size) {
  const Address block = nextBlock_;
  const std::uint32_t room = (size + 16 + 15) & ~15u; // never adjacent, never the same again
  if (!hasMemory || room > kHeap + kHeapSize - nextBlock_)
    return 0;
  nextBlock_ += room;
  const std::vector<std::uint8_t> garbage(size, 0xCD);
  machine_.write(block, garbage.data(), size);
  blocks_[block] = size;
  return block;
}

void Process::release(Address block) {
  if (block == 0)
    return;
  const auto found = blocks_.find(block);
  if (found == blocks_.end())
    throw Fault(fmt::format("free of {:#x}, which is no block of the heap", block));
  const std::vector<std::uint8_t> garbage(found->second, 0xDD);
  machine_.write(block, garbage.data(), found->second);
  blocks_.erase(found);
}

Address Process::resolve(const std::string &library, const std::string &name) {
  if (hostImports.count(name))
    return machine_.hostFunction(name);
  const bool isRuntime = library.starts_with("api-ms-win-crt-");
  if (Module *module = findModule(isRuntime ? "crt.dll" : library)) {
    if (const Address address = module->find(name))
      return address;
    if (!isRuntime)
      throw Fault(fmt::format("{} does not export {}", library, name));
  }
  return machine_.hostFunction(name);
}

void Process::relocate(const Module &module, std::vector<std::uint8_t> &memory) const {
  const std::uint32_t distance = module.base - module.image.preferredBase();
  for (const pe::BaseRelocation &relocation : module.image.baseRelocations()) {
    const pe::Rva at = relocation.rva;
    if (relocation.kind == pe::RelocationKind::kWord) {
      setWord(memory, at, module.image.u32(at) + distance);
      continue;
    }
    const std::uint32_t value =
        (moveImmediate(memory, at) | moveImmediate(memory, at + 4) << 16) + distance;
    setMoveImmediate(memory, at, value & 0xFFFF);
    setMoveImmediate(memory, at + 4, value >> 16);
  }
}

} // namespace wrt::emulator
