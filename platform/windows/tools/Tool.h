#ifndef WRT_TOOLS_TOOL_H
#define WRT_TOOLS_TOOL_H

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace wrt {

/// What a tool, or a command of it, was given: each argument by the name that its help has for it.
class Arguments {
public:
  /// The argument of that name, the first where there are several.
  const std::string &operator[](const std::string &name) const { return values_.at(name).front(); }
  /// What was given for `name...`, at least one.
  const std::vector<std::string> &all(const std::string &name) const { return values_.at(name); }

private:
  friend class Tool;
  std::map<std::string, std::vector<std::string>> values_;
};

/// A program with commands, each of which takes some arguments; or one that has no commands and
/// takes arguments itself.
class Tool {
public:
  /// Returns the program's exit status.
  using Action = std::function<int(const Arguments &)>;

  /// `description` and `exitStatus` are for its help, in lines.
  explicit Tool(std::string name, std::string description,
                std::string exitStatus = "0 when all is well, 1 when something is wrong or cannot\n"
                                         "be read or written, 2 for wrong usage.");

  /// All arguments have to be given. The last one may end with "...", which is left out of its name
  /// in `Arguments`: then it is given once or more.
  void command(std::string name, std::vector<std::string> arguments, std::string description,
               Action action);
  /// The same for a tool without commands.
  void arguments(std::vector<std::string> arguments, Action action);

  /// Does what the arguments ask for and returns the exit status: that of the action; 1 after an
  /// exception, whose text is printed behind the tool's name; 2 for wrong usage, after a line that
  /// says what is wrong.
  int run(int argc, char **argv) const;

private:
  struct Command {
    std::string name; ///< empty for the tool itself
    std::vector<std::string> arguments;
    std::string description;
    Action action;
  };

  std::string name_;
  std::string description_;
  std::string exitStatus_;
  std::vector<Command> commands_;
};

} // namespace wrt

#endif
