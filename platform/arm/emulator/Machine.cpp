#include "Machine.h"

#include <fmt/core.h>

#include <unicorn/unicorn.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace wrt::emulator {

namespace {

// Far from where modules are loaded.
constexpr Address kStubs = 0x70000000;
constexpr std::uint32_t kStubsSize = 0x10000;
constexpr Address kStack = 0x60000000;
constexpr std::uint32_t kStackSize = 0x100000;
/// Where calls return to: the first stub, which has no function.
constexpr Address kReturn = kStubs;
/// Basic blocks in one call: enough for everything that runs here, few enough to notice a program
/// that does not end. (The emulator's own time limit starts a thread for each call.)
constexpr std::uint64_t kBlockLimit = 500'000'000;

constexpr std::array kArgumentRegisters{UC_ARM_REG_R0, UC_ARM_REG_R1, UC_ARM_REG_R2, UC_ARM_REG_R3};

int coreRegister(std::size_t index) {
  switch (index) {
  case Registers::kStack:
    return UC_ARM_REG_SP;
  case Registers::kLink:
    return UC_ARM_REG_LR;
  case Registers::kProgram:
    return UC_ARM_REG_PC;
  default:
    return UC_ARM_REG_R0 + static_cast<int>(index);
  }
}

int singleRegister(std::size_t index) { return UC_ARM_REG_S0 + static_cast<int>(index); }

} // namespace

/// What the emulator calls.
struct MachineHooks {
  static void atStub(uc_engine *, std::uint64_t address, std::uint32_t, void *machine) {
    static_cast<Machine *>(machine)->atHostFunction(static_cast<Address>(address));
  }
  static void atBlock(uc_engine *engine, std::uint64_t, std::uint32_t, void *machine) {
    if (++static_cast<Machine *>(machine)->blocks_ > kBlockLimit)
      uc_emu_stop(engine);
  }
  static void atInstruction(uc_engine *, std::uint64_t, std::uint32_t, void *machine) {
    ++static_cast<Machine *>(machine)->instructions_;
  }
};

std::uint32_t HostCall::operator[](std::uint32_t index) const { return machine_.argument(index); }

void HostCall::continueIn(Address function, const std::vector<std::uint32_t> &arguments) const {
  machine_.next_ = function;
  for (std::size_t i = 0; i < arguments.size(); ++i)
    machine_.check(uc_reg_write(machine_.engine_, kArgumentRegisters.at(i), &arguments[i]),
                   "argument");
}

Machine::Machine() {
  check(uc_open(UC_ARCH_ARM, UC_MODE_THUMB, &engine_), "uc_open");
  // Floating point is off after a reset: allow access to coprocessors 10 and 11, then enable it.
  std::uint32_t access = readRegister(UC_ARM_REG_C1_C0_2) | 0xFu << 20;
  check(uc_reg_write(engine_, UC_ARM_REG_C1_C0_2, &access), "coprocessor access");
  std::uint32_t enable = 1u << 30;
  check(uc_reg_write(engine_, UC_ARM_REG_FPEXC, &enable), "floating point");

  map(kStubs, kStubsSize);
  const std::uint16_t kReturnAndPad[] = {0x4770, 0xBF00}; // bx lr; nop
  for (std::uint32_t offset = 0; offset < kStubsSize; offset += 4)
    write(kStubs + offset, kReturnAndPad, sizeof kReturnAndPad);
  protect(kStubs, kStubsSize, false, true);
  map(kStack, kStackSize);
  uc_hook hook = 0;
  check(uc_hook_add(engine_, &hook, UC_HOOK_CODE, reinterpret_cast<void *>(MachineHooks::atStub),
                    this, kStubs + 4, kStubs + kStubsSize - 1),
        "uc_hook_add");
  check(uc_hook_add(engine_, &hook, UC_HOOK_BLOCK, reinterpret_cast<void *>(MachineHooks::atBlock),
                    this, 1, 0),
        "uc_hook_add");
  describe = [](Address address) { return fmt::format("{:#x}", address); };
}

Machine::~Machine() { uc_close(engine_); }

void Machine::map(Address address, std::uint32_t size) {
  check(uc_mem_map(engine_, address, size, UC_PROT_READ | UC_PROT_WRITE), "uc_mem_map");
}

void Machine::protect(Address address, std::uint32_t size, bool write, bool execute) {
  const std::uint32_t protection =
      UC_PROT_READ | (write ? UC_PROT_WRITE : 0u) | (execute ? UC_PROT_EXEC : 0u);
  check(uc_mem_protect(engine_, address, size, protection), "uc_mem_protect");
}

std::vector<std::uint8_t> Machine::read(Address address, std::uint32_t size) const {
  std::vector<std::uint8_t> bytes(size);
  if (uc_mem_read(engine_, address, bytes.data(), size) != UC_ERR_OK)
    throw Fault("the host was told to read " + describe(address));
  return bytes;
}

void Machine::write(Address address, const void *bytes, std::uint32_t size) {
  if (uc_mem_write(engine_, address, bytes, size) != UC_ERR_OK)
    throw Fault("the host was told to write " + describe(address));
}

std::uint32_t Machine::readWord(Address address) const {
  std::uint32_t value = 0;
  std::memcpy(&value, read(address, sizeof value).data(), sizeof value);
  return value;
}

void Machine::writeWord(Address address, std::uint32_t value) {
  write(address, &value, sizeof value);
}

std::string Machine::readString(Address address) const {
  std::string text;
  while (const char c = static_cast<char>(read(address++, 1)[0]))
    text.push_back(c);
  return text;
}

std::u16string Machine::readWideString(Address address) const {
  std::u16string text;
  for (;; address += 2) {
    char16_t unit = 0;
    std::memcpy(&unit, read(address, sizeof unit).data(), sizeof unit);
    if (unit == 0)
      return text;
    text.push_back(unit);
  }
}

Address Machine::hostFunction(const std::string &name) {
  const auto [found, isNew] = stubs_.try_emplace(name, 0);
  if (isNew) {
    found->second = kStubs + 4 * static_cast<Address>(stubs_.size());
    if (found->second >= kStubs + kStubsSize)
      throw std::length_error("too many functions of the host");
    stubNames_[found->second] = name;
  }
  return found->second | 1;
}

void Machine::define(const std::string &name, HostFunction function) {
  functions_[name] = std::move(function);
}

std::uint32_t Machine::call(Address function, const std::vector<std::uint32_t> &arguments) {
  Arguments all;
  if (arguments.size() > all.core.size())
    throw std::invalid_argument("this form of call takes at most four arguments");
  std::ranges::copy(arguments, all.core.begin());
  return enter(function, all).core[0];
}

Registers Machine::enter(Address function, const Arguments &arguments) {
  // What must be preserved begins with a pattern of its own.
  for (std::size_t i = 4; i < Registers::kStack; ++i)
    entry_.core[i] = 0xC0DE0000 + static_cast<std::uint32_t>(i);
  for (std::size_t i = 16; i < entry_.single.size(); ++i)
    entry_.single[i] = 0xF1040000 + static_cast<std::uint32_t>(i);
  std::ranges::copy(arguments.core, entry_.core.begin());
  std::ranges::copy(arguments.single, entry_.single.begin());
  const auto words = static_cast<std::uint32_t>(arguments.stack.size());
  const Address stack = (kStack + kStackSize - 0x100 - 4 * words) & ~7u;
  for (std::uint32_t i = 0; i < words; ++i)
    writeWord(stack + 4 * i, arguments.stack[i]);
  entry_.core[Registers::kStack] = stack;
  entry_.core[Registers::kLink] = kReturn | 1;
  for (std::size_t i = 0; i < Registers::kProgram; ++i)
    check(uc_reg_write(engine_, coreRegister(i), &entry_.core[i]), "register");
  for (std::size_t i = 0; i < entry_.single.size(); ++i)
    check(uc_reg_write(engine_, singleRegister(i), &entry_.single[i]), "register");

  start(function);
  const Registers left = registers();
  for (std::size_t i = 4; i < Registers::kLink; ++i)
    if (i != 12 && left.core[i] != entry_.core[i])
      throw Fault(fmt::format("{} returns with r{} {:#x}, not {:#x}", describe(function & ~1u), i,
                              left.core[i], entry_.core[i]));
  for (std::size_t i = 16; i < left.single.size(); ++i)
    if (left.single[i] != entry_.single[i])
      throw Fault(fmt::format("{} returns with another s{}", describe(function & ~1u), i));
  return left;
}

void Machine::start(Address function) {
  failure_ = nullptr;
  blocks_ = 0;
  const uc_err error = uc_emu_start(engine_, function | 1, kReturn, 0, 0);
  if (failure_)
    std::rethrow_exception(failure_);
  const Address pc = readRegister(UC_ARM_REG_PC);
  if (error != UC_ERR_OK) {
    throw Fault(fmt::format("{} at {}, called from {}", uc_strerror(error), describe(pc),
                            describe(readRegister(UC_ARM_REG_LR) & ~1u)));
  }
  if ((pc & ~1u) != kReturn)
    throw Fault(fmt::format("still running at {} after too long a time", describe(pc)));
}

Registers Machine::registers() const {
  Registers all;
  for (std::size_t i = 0; i < all.core.size(); ++i)
    all.core[i] = readRegister(coreRegister(i));
  for (std::size_t i = 0; i < all.single.size(); ++i)
    all.single[i] = readRegister(singleRegister(i));
  return all;
}

void Machine::countInstructions(Address begin, std::uint32_t size) {
  uc_hook hook = 0;
  check(uc_hook_add(engine_, &hook, UC_HOOK_CODE,
                    reinterpret_cast<void *>(MachineHooks::atInstruction), this, begin,
                    begin + size - 1),
        "uc_hook_add");
}

std::uint32_t Machine::argument(std::uint32_t index) const {
  if (index < kArgumentRegisters.size())
    return readRegister(kArgumentRegisters[index]);
  return readWord(readRegister(UC_ARM_REG_SP) + 4 * (index - 4));
}

void Machine::atHostFunction(Address address) {
  // The hook sees both instructions of a stub; only the first is a call.
  const auto name = stubNames_.find(address);
  if (name == stubNames_.end() || failure_)
    return;
  try {
    const auto function = functions_.find(name->second);
    if (function == functions_.end()) {
      throw Fault(fmt::format("{} is called and there is no such function; called from {}",
                              name->second, describe(readRegister(UC_ARM_REG_LR) & ~1u)));
    }
    const std::uint32_t result = function->second(HostCall(*this));
    if (next_) {
      const Address next = std::exchange(next_, 0) | 1;
      check(uc_reg_write(engine_, UC_ARM_REG_PC, &next), "pc");
      return;
    }
    check(uc_reg_write(engine_, UC_ARM_REG_R0, &result), "result");
  } catch (...) {
    failure_ = std::current_exception();
    uc_emu_stop(engine_);
  }
}

std::uint32_t Machine::readRegister(int which) const {
  std::uint32_t value = 0;
  check(uc_reg_read(engine_, which, &value), "uc_reg_read");
  return value;
}

void Machine::check(int error, const char *what) const {
  if (error != UC_ERR_OK)
    throw std::runtime_error(fmt::format("{}: {}", what, uc_strerror(static_cast<uc_err>(error))));
}

} // namespace wrt::emulator
