#ifndef WRT_ARM_ROWS_H
#define WRT_ARM_ROWS_H

#include "HostObject.h"
#include "ObjectiveC.h"

namespace wrt::emulator {

/// One operation, called by messages as an application calls it.
struct Row {
  /// As in the benchmark's table.
  std::string name;
  std::function<void()> call;
};

/// What the test object got in a row's last call: `slot 19: "text"`.
using Crossed = std::vector<std::string>;

/// The benchmark's operations, as far as they run in the emulated machine. The doubles and the
/// product are loaded and attached.
class Rows {
public:
  explicit Rows(Process &process);

  const std::vector<Row> &rows() const { return rows_; }
  /// Calls a row; how many of the product's own instructions that takes.
  std::uint64_t run(const Row &row);
  const Crossed &crossed() const { return crossed_; }

private:
  void addNumbers();
  void addStringsAndObjects();
  void addArrays();
  void addOthers();
  void addFamilies();
  void add(const std::string &name, int slot, Address receiver, const std::string &selector,
           const std::function<std::string(const HostCall &)> &body, std::uint32_t first = 0,
           std::uint32_t second = 0, std::uint32_t status = 0);
  Address bridge(const std::string &type, const HostObject &object);
  void giveOut(Address place);

  Process &process_;
  Machine &machine_ = process_.machine();
  ObjectiveC objc_{process_};
  HostObject object_{process_};
  HostObject child_{process_};
  Address text_;
  Address textHandle_;
  Address test_;
  std::vector<Row> rows_;
  Crossed crossed_;
};

} // namespace wrt::emulator

#endif
