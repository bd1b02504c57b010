#include "generator/emit/Outputs.h"

#include <algorithm>
#include <string_view>

namespace bridgegen {

namespace {

// What includes an output of this folder is an application as well.
constexpr std::string_view kPublicFolder = "include/";

constexpr Output kOutputs[] = {
#include "generator/emit/Outputs.inc"
};

} // namespace

std::span<const Output> allOutputs() { return kOutputs; }

bool Output::isMadeFor(const Target &target) const {
  return madeFor == For::All || (madeFor == For::AddOn) == target.isAddOn();
}

std::string Output::pathOf(const Target &target, const std::string &unit) const {
  std::string text;
  for (const char *c = path; *c; ++c) {
    if (*c == '%')
      text += unit;
    else if (*c == '@')
      text += target.name;
    else
      text += *c;
  }
  return text;
}

std::string includeName(Output::OfUnit emitter, const Unit &unit) {
  const Output *output = std::ranges::find_if(kOutputs, [&](const Output &each) {
    const auto *ofUnit = std::get_if<Output::OfUnit>(&each.emit);
    return ofUnit && *ofUnit == emitter;
  });
  const std::string path = output->pathOf(unit.target, unit.name);
  return path.starts_with(kPublicFolder) ? "<" + path.substr(kPublicFolder.size()) + ">"
                                         : "\"" + path + "\"";
}

std::vector<std::string> outputPaths(const Target &target, const std::vector<std::string> &units) {
  std::vector<std::string> paths;
  for (const Output &output : kOutputs) {
    if (!output.isMadeFor(target))
      continue;
    if (!output.isOfUnit())
      paths.push_back(output.pathOf(target, ""));
    else
      std::ranges::transform(units, std::back_inserter(paths),
                             [&](const std::string &unit) { return output.pathOf(target, unit); });
  }
  return paths;
}

OutputSet emitAll(const Input &input) {
  OutputSet outputs;
  const Target &target = input.model.target();
  for (const Output &output : kOutputs) {
    if (!output.isMadeFor(target))
      continue;
    if (const auto *ofAll = std::get_if<Output::OfAll>(&output.emit)) {
      outputs.add(output.pathOf(target, ""), (*ofAll)(input));
      continue;
    }
    for (const Unit *unit : input.model.ownUnits())
      outputs.add(output.pathOf(target, unit->name),
                  std::get<Output::OfUnit>(output.emit)(*unit, input));
  }
  return outputs;
}

} // namespace bridgegen
