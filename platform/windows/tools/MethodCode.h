#ifndef WRT_TOOLS_METHOD_CODE_H
#define WRT_TOOLS_METHOD_CODE_H

#include "LinkMap.h"

#include <filesystem>
#include <string>
#include <vector>

namespace wrt::pe {

/// Disassembles functions of an image so that the text stays the same wherever the linker puts
/// things: addresses become the names of what is there.
class MethodCode {
public:
  MethodCode(const std::filesystem::path &image, const std::filesystem::path &map);

  /// The instructions of the function that the map has under this name, one line each: offset from
  /// the function's beginning, mnemonic, operands. Throws `FormatError` when there is no such
  /// function or `llvm-objdump-19` cannot be run.
  std::vector<std::string> disassemble(const std::string &function) const;

private:
  struct Instruction {
    Rva rva;
    std::string mnemonic;
    std::string operands;
  };

  std::vector<Instruction> decode(const Chunk &chunk) const;
  void nameMoves(std::vector<Instruction> &instructions) const;
  void nameTarget(const Chunk &chunk, Instruction &instruction) const;
  std::string nameOf(Rva address) const;
  std::string thunkTarget(Rva address) const;

  std::filesystem::path file_;
  Image image_;
  LinkMap map_;
};

} // namespace wrt::pe

#endif
