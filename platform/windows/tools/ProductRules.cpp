#include "ProductRules.h"

#include "UnwindData.h"

#include <fmt/core.h>

#include <algorithm>

namespace wrt::pe {

namespace {

// Microsoft PE and COFF Specification 11.0.
constexpr std::uint16_t kMachineArmThumb2 = 0x01C4;
constexpr std::uint16_t kIsDll = 0x2000;
constexpr std::uint16_t kRelocationsStripped = 0x0001;
constexpr std::uint16_t kDynamicBase = 0x0040;
constexpr std::uint16_t kNoExecute = 0x0100;
constexpr std::uint16_t kAppContainer = 0x1000;

/// Whether a Thumb instruction pushes lr: PUSH in 16 and 32 bits, STR with the stack pointer
/// written back.
bool savesLink(std::uint16_t first, std::uint16_t second) {
  return (first & 0xFF00) == 0xB500 || (first == 0xE92D && second & 0x4000) ||
         (first == 0xF84D && (second & 0xFF00) == 0xED00);
}

bool isWide(std::uint16_t first) { return first >= 0xE800; }

class Checker {
public:
  Checker(const Image &image, const Metadata &metadata) : image_(image), metadata_(metadata) {}

  std::vector<std::string> run(const ProductFacts &facts) {
    checkHeaders();
    checkSections();
    checkExports(facts.functions);
    checkImports(facts.imports);
    checkCode();
    checkUnwinding();
    return std::move(problems_);
  }

private:
  template <class... Values>
  void require(bool condition, fmt::format_string<const Values &...> problem,
               const Values &...values) {
    if (!condition)
      problems_.push_back(fmt::format(problem, values...));
  }

  void checkHeaders() {
    require(image_.machine() == kMachineArmThumb2, "the machine is {:#x}", image_.machine());
    require(image_.characteristics() & kIsDll, "not a DLL");
    require(!(image_.characteristics() & kRelocationsStripped), "relocations are stripped");
    require(image_.dllCharacteristics() & kDynamicBase, "no dynamic base");
    require(image_.dllCharacteristics() & kNoExecute, "not marked no-execute");
    require(image_.dllCharacteristics() & kAppContainer, "not marked for app containers");
    const Section *entry = image_.sectionAt(image_.entryPoint());
    require(entry && entry->isExecutable(), "the entry point is not in code");
    require(!image_.baseRelocations().empty(), "no base relocations");
  }

  void checkSections() {
    for (const std::string_view name : {"cfstring", ".idata"}) {
      const auto count = std::ranges::count(image_.sections(), name, &Section::name);
      require(count == 1, "{} sections are called {}", count, name);
    }
    for (const Section &section : image_.sections()) {
      require(!section.isWritable() || !section.isExecutable(), "{} is writable and executable",
              section.name);
    }
  }

  void checkExports(const std::set<std::string> &functions) {
    std::set<std::string> expected = functions;
    for (const auto &[name, _] : metadata_.classes) {
      expected.insert("OBJC_CLASS_$_" + name);
      expected.insert("OBJC_METACLASS_$_" + name);
    }
    for (const Export &each : image_.exports()) {
      require(expected.erase(each.name), "{} is exported without a reason", each.name);
      const Section *section = image_.sectionAt(each.rva);
      require(section && section->isExecutable() == (functions.count(each.name) > 0),
              "{} is exported at {}", each.name, image_.describe(each.rva));
    }
    for (const std::string &name : expected)
      require(false, "{} is not exported", name);
  }

  void checkImports(std::set<std::string> expected) {
    for (const Import &import : image_.imports())
      require(expected.erase(import.library + ' ' + import.name),
              "{} is imported from {} without a reason", import.name, import.library);
    for (const std::string &name : expected)
      require(false, "{} is not imported", name);
  }

  void checkUnwinding() {
    const std::vector<UnwindRecord> records = readUnwindRecords(image_);
    for (std::size_t i = 1; i < records.size(); ++i)
      require(records[i - 1].begin + records[i - 1].length <= records[i].begin,
              "the unwind record of {} is out of order", image_.describe(records[i].begin));
    const Section *code = image_.findSection(".text");
    if (!code)
      return;
    std::size_t functions = 0;
    for (Rva at = code->rva; at + 4 <= code->rva + code->virtualSize;) {
      const std::uint16_t first = image_.u16(at);
      if (savesLink(first, image_.u16(at + 2))) {
        ++functions;
        require(findRecord(records, at), "no unwind record for the function at {}",
                image_.describe(at));
      }
      at += isWide(first) ? 4 : 2;
    }
    require(functions > 0, "no function saves its return address");
  }

  void checkCode() {
    for (const auto &[name, each] : metadata_.classes) {
      for (const ObjCMethod &method : each.methods) {
        const Section *section = image_.sectionAt(method.implementation & ~1u);
        require((method.implementation & 1) && section && section->isExecutable(),
                "{} {} is implemented at {}", name, method.selector,
                image_.describe(method.implementation));
      }
    }
    for (const Section &section : image_.sections()) {
      if (section.name != "objclist")
        continue;
      for (Rva word = section.rva; word + 4 <= section.rva + section.virtualSize; word += 4) {
        require(image_.u32(word) == 0 || image_.hasBaseRelocation(word),
                "the address at {} is not relocated with the image", image_.describe(word));
      }
    }
  }

  const Image &image_;
  const Metadata &metadata_;
  std::vector<std::string> problems_;
};

} // namespace

std::vector<std::string> checkProduct(const Image &image, const Metadata &metadata,
                                      const ProductFacts &facts) {
  return Checker(image, metadata).run(facts);
}

} // namespace wrt::pe
