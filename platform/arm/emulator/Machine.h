#ifndef WRT_ARM_MACHINE_H
#define WRT_ARM_MACHINE_H

#include <array>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

struct uc_struct;

namespace wrt::emulator {

using Address = std::uint32_t;

/// The program did what no program may: touched memory that it must not, or ran an instruction that
/// there is not.
struct Fault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Machine;

/// The processor's registers: r0 to r15, and the floating-point registers as single ones.
struct Registers {
  static constexpr std::size_t kStack = 13;
  static constexpr std::size_t kLink = 14;
  static constexpr std::size_t kProgram = 15;

  std::array<std::uint32_t, 16> core{};
  std::array<std::uint32_t, 32> single{};
};

/// What a function is called with: the registers that pass arguments, and the stack's words.
struct Arguments {
  std::array<std::uint32_t, 4> core{};
  std::array<std::uint32_t, 16> single{};
  std::vector<std::uint32_t> stack;
};

/// A call of a function of the host: its arguments, as the procedure call standard passes integers.
class HostCall {
public:
  explicit HostCall(Machine &machine) : machine_(machine) {}

  /// Argument `index`, from registers or from the stack.
  std::uint32_t operator[](std::uint32_t index) const;
  /// Goes on in a function of the program, which returns to the caller in this one's place.
  void continueIn(Address function, const std::vector<std::uint32_t> &arguments) const;
  Machine &machine() const { return machine_; }

private:
  Machine &machine_;
};

/// What the emulated program gets in r0. Exceptions end the emulated call and come out of `call`.
using HostFunction = std::function<std::uint32_t(const HostCall &)>;

/// An ARM processor in Thumb state with memory, a stack and functions of the host.
class Machine {
public:
  static constexpr std::uint32_t kPageSize = 4096;

  Machine();
  Machine(const Machine &) = delete;
  Machine &operator=(const Machine &) = delete;
  ~Machine();

  /// Maps zeroed memory of whole pages.
  void map(Address address, std::uint32_t size);
  void protect(Address address, std::uint32_t size, bool write, bool execute);

  std::vector<std::uint8_t> read(Address address, std::uint32_t size) const;
  void write(Address address, const void *bytes, std::uint32_t size);
  std::uint32_t readWord(Address address) const;
  void writeWord(Address address, std::uint32_t value);
  std::string readString(Address address) const;
  std::u16string readWideString(Address address) const;

  /// The address of a function of the host, the Thumb bit set; the same for the same name.
  Address hostFunction(const std::string &name);
  /// What it does. A function that is called without having been defined is a fault.
  void define(const std::string &name, HostFunction function);
  bool isDefined(const std::string &name) const { return functions_.count(name) > 0; }

  /// Calls a function with up to four arguments and returns what it leaves in r0.
  std::uint32_t call(Address function, const std::vector<std::uint32_t> &arguments);
  /// Calls a function and returns all registers as it leaves them. Those that a function has to
  /// preserve begin with values of their own; it is a fault to return with others.
  Registers enter(Address function, const Arguments &arguments);

  std::uint32_t argument(std::uint32_t index) const;
  Registers registers() const;
  /// The registers with which a function is entered: what an unwinder has to come to.
  const Registers &entry() const { return entry_; }

  /// Counts the instructions that run in a range from now on.
  void countInstructions(Address begin, std::uint32_t size);
  std::uint64_t instructions() const { return instructions_; }
  /// Says of an address in which module it lies; for the messages of faults.
  std::function<std::string(Address)> describe;

private:
  void start(Address function);
  void atHostFunction(Address address);
  std::uint32_t readRegister(int which) const;
  void check(int error, const char *what) const;

  friend class HostCall;
  friend struct MachineHooks;

  uc_struct *engine_ = nullptr;
  std::map<std::string, Address> stubs_;
  std::map<Address, std::string> stubNames_;
  std::map<std::string, HostFunction> functions_;
  std::exception_ptr failure_;
  Registers entry_;
  std::uint64_t blocks_ = 0;
  std::uint64_t instructions_ = 0;
  /// Set by a function of the host that goes on elsewhere.
  Address next_ = 0;
};

} // namespace wrt::emulator

#endif
