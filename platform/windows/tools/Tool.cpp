#include "Tool.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <utility>

namespace wrt {

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr std::string_view kRepeated = "...";

/// Lists commands with their arguments, which have no list of their own.
class Formatter : public CLI::Formatter {
public:
  std::string make_positionals(const CLI::App *) const override { return ""; }

  std::string make_subcommand(const CLI::App *command) const override {
    std::string text = "  " + command->get_name();
    for (const CLI::Option *each : command->get_options())
      if (each->get_positional())
        text += ' ' + make_option_usage(each);
    text += "\n      ";
    for (const char c : command->get_description())
      text += c == '\n' ? "\n      " : std::string(1, c);
    return text + '\n';
  }
};

/// What is wrong with the command line; of a command in words of our own, since CLI11's do not name
/// it.
std::string problem(const CLI::App &app, const CLI::ParseError &error, int argc, char **argv) {
  if (app.get_require_subcommand_min() == 0 || !app.get_subcommands().empty())
    return error.what();
  return argc < 2 ? "a command is missing" : "there is no command '" + std::string(argv[1]) + '\'';
}

} // namespace

Tool::Tool(std::string name, std::string description, std::string exitStatus)
    : name_(std::move(name)), description_(std::move(description)),
      exitStatus_(std::move(exitStatus)) {}

void Tool::command(std::string name, std::vector<std::string> arguments, std::string description,
                   Action action) {
  commands_.push_back(
      {std::move(name), std::move(arguments), std::move(description), std::move(action)});
}

void Tool::arguments(std::vector<std::string> arguments, Action action) {
  command("", std::move(arguments), "", std::move(action));
}

int Tool::run(int argc, char **argv) const {
  CLI::App app(description_, name_);
  try {
    app.formatter(std::make_shared<Formatter>());
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.footer("Exit status: " + exitStatus_);
    Arguments given;
    for (const Command &command : commands_) {
      CLI::App *place = &app;
      if (!command.name.empty()) {
        place = app.add_subcommand(command.name, command.description)->group("Commands");
        app.require_subcommand(1);
      }
      for (std::string name : command.arguments) {
        const bool isRepeated = name.ends_with(kRepeated);
        if (isRepeated)
          name.resize(name.size() - kRepeated.size());
        CLI::Option *option = place->add_option(name, given.values_[name])->required();
        if (!isRepeated)
          option->expected(1)->allow_extra_args(false);
      }
    }
    app.parse(argc, argv);
    for (const Command &command : commands_)
      if (command.name.empty() || app.got_subcommand(command.name))
        return command.action(given);
    return kWrongUsage;
  } catch (const CLI::CallForHelp &) {
    std::cout << app.help();
    return 0;
  } catch (const CLI::ParseError &error) {
    std::cerr << name_ << ": " << problem(app, error, argc, argv) << "; '" << name_
              << " --help' tells more\n";
    return kWrongUsage;
  } catch (const std::exception &error) {
    std::cerr << name_ << ": " << error.what() << '\n';
    return kFailed;
  }
}

} // namespace wrt
