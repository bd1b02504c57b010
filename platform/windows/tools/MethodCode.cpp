#include "MethodCode.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <regex>
#include <sstream>

namespace wrt::pe {

namespace {

std::uint32_t number(const std::string &text) {
  return static_cast<std::uint32_t>(std::stoul(text, nullptr, 16));
}

/// The name of a shape without its parameters' types, which repeat the shape; others as they are.
std::string shorten(const std::string &symbol) {
  const std::size_t begin = symbol.find("wrt::call<");
  const std::size_t end = symbol.rfind("(objc_object*, wrt::Member<");
  return begin == std::string::npos || end == std::string::npos ? symbol
                                                                : symbol.substr(begin, end - begin);
}

std::string runObjdump(const std::filesystem::path &image, std::uint32_t begin, std::uint32_t end) {
  const std::string command =
      fmt::format("llvm-objdump-19 -d --no-show-raw-insn --start-address={} --stop-address={} '{}'",
                  begin, end, image.string());
  const std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  char buffer[4096];
  while (pipe && fgets(buffer, sizeof buffer, pipe.get()))
    output += buffer;
  return output;
}

/// The immediate of the MOVW or MOVT at the address.
std::uint32_t moveImmediate(const Image &image, Rva at) {
  const std::uint32_t first = image.u16(at);
  const std::uint32_t second = image.u16(at + 2);
  return (first & 0xF) << 12 | (first >> 10 & 1) << 11 | (second >> 12 & 7) << 8 | (second & 0xFF);
}

} // namespace

MethodCode::MethodCode(const std::filesystem::path &image, const std::filesystem::path &map)
    : file_(image), image_(Image::read(image)), map_(LinkMap::read(map)) {}

std::vector<std::string> MethodCode::disassemble(const std::string &function) const {
  const Chunk *chunk = map_.find(function);
  if (!chunk)
    throw FormatError("the map has no " + function);
  std::vector<Instruction> instructions = decode(*chunk);
  nameMoves(instructions);
  std::vector<std::string> lines;
  for (Instruction &each : instructions) {
    nameTarget(*chunk, each);
    lines.push_back(
        fmt::format("  {:2x}  {:7} {}", each.rva - chunk->rva, each.mnemonic, each.operands));
  }
  if (lines.empty())
    throw FormatError("llvm-objdump-19 shows no code of " + function);
  return lines;
}

std::vector<MethodCode::Instruction> MethodCode::decode(const Chunk &chunk) const {
  static const std::regex kLine(R"(^\s*([0-9a-f]+):\s+(\S+)(?:\s+(.*))?$)");
  static const std::regex kComment(R"(\s*(@ imm|<).*$)");
  const std::uint32_t begin = image_.preferredBase() + chunk.rva;
  std::istringstream output(runObjdump(file_, begin, begin + chunk.size));
  std::vector<Instruction> result;
  std::smatch match;
  for (std::string line; std::getline(output, line);) {
    if (std::regex_match(line, match, kLine)) {
      result.push_back({static_cast<Rva>(number(match[1]) - image_.preferredBase()), match[2],
                        std::regex_replace(match[3].str(), kComment, "")});
    }
  }
  return result;
}

/// Puts names into the pairs of moves that load addresses.
void MethodCode::nameMoves(std::vector<Instruction> &instructions) const {
  static const std::regex kMove(R"(^(\w+), #0x([0-9a-f]+)$)");
  for (std::size_t i = 0; i + 1 < instructions.size(); ++i) {
    Instruction &low = instructions[i];
    Instruction &high = instructions[i + 1];
    std::smatch lowMatch;
    std::smatch highMatch;
    if (low.mnemonic != "movw" || high.mnemonic != "movt" ||
        !std::regex_match(low.operands, lowMatch, kMove) ||
        !std::regex_match(high.operands, highMatch, kMove) || lowMatch[1] != highMatch[1])
      continue;
    const Rva address = (number(highMatch[2]) << 16 | number(lowMatch[2])) - image_.preferredBase();
    const std::string target = lowMatch[1].str();
    const std::string name = nameOf(address);
    low.operands = target + ", :lower16:" + name;
    high.operands = target + ", :upper16:" + name;
  }
}

/// Puts a name, or the offset within the function, in the place of a branch's target.
void MethodCode::nameTarget(const Chunk &chunk, Instruction &instruction) const {
  static const std::regex kTarget(R"(^(.*?)0x([0-9a-f]+)$)");
  std::smatch match;
  const bool isBranch = instruction.mnemonic[0] == 'b' || instruction.mnemonic[0] == 'c';
  if (!isBranch || !std::regex_match(instruction.operands, match, kTarget) ||
      match[1].str().ends_with("#"))
    return;
  const Rva target = number(match[2]) - image_.preferredBase();
  const std::string before = match[1];
  instruction.operands = target - chunk.rva < chunk.size
                             ? fmt::format("{}{:#x}", before, target - chunk.rva)
                             : before + nameOf(target);
}

std::string MethodCode::nameOf(Rva address) const {
  const Section *section = image_.sectionAt(address);
  if (section && section->isExecutable())
    address &= ~1u; // what is called through a register has the Thumb bit
  if (const Import *import = image_.importAt(address))
    return "import " + import->name;
  if (const auto symbol = map_.symbols.find(address); symbol != map_.symbols.end())
    return shorten(symbol->second);
  if (!section)
    return fmt::format("{:#x}", address);
  if (section->name == "objclist" || section->name == ".data") {
    // A selector or class reference: the word holds the address of its name.
    const Rva named = image_.pointer(address);
    const Section *place = image_.sectionAt(named);
    if (place && place->name == ".rdata")
      return fmt::format("\"{}\"", image_.string(named));
  }
  if (const std::string import = thunkTarget(address); !import.empty())
    return import;
  return "in " + section->name;
}

/// The import that the linker's thunk at the address jumps to (MOVW, MOVT, LDR.W PC), or "".
std::string MethodCode::thunkTarget(Rva address) const {
  const Section *section = image_.sectionAt(address);
  if (!section->isExecutable() || (image_.u16(address) & 0xFBF0) != 0xF240 ||
      (image_.u16(address + 4) & 0xFBF0) != 0xF2C0)
    return "";
  const Rva slot = (moveImmediate(image_, address + 4) << 16 | moveImmediate(image_, address)) -
                   image_.preferredBase();
  const Import *import = image_.importAt(slot);
  return import ? import->name : "";
}

} // namespace wrt::pe
