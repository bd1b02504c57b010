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

std::string Output::pathOf(const std::string &unit) const {
  std::string text = path;
  if (isOfUnit())
    text.replace(text.find('%'), 1, unit);
  return text;
}

std::string includeName(Output::OfUnit emitter, const std::string &unit) {
  const Output *output = std::ranges::find_if(kOutputs, [&](const Output &each) {
    const auto *ofUnit = std::get_if<Output::OfUnit>(&each.emit);
    return ofUnit && *ofUnit == emitter;
  });
  const std::string path = output->pathOf(unit);
  return path.starts_with(kPublicFolder) ? "<" + path.substr(kPublicFolder.size()) + ">"
                                         : "\"" + path + "\"";
}

std::vector<std::string> outputPaths(const std::vector<std::string> &units) {
  std::vector<std::string> paths;
  for (const Output &output : kOutputs) {
    if (!output.isOfUnit())
      paths.emplace_back(output.path);
    else
      std::ranges::transform(units, std::back_inserter(paths),
                             [&](const std::string &unit) { return output.pathOf(unit); });
  }
  return paths;
}

OutputSet emitAll(const Input &input) {
  OutputSet outputs;
  for (const Output &output : kOutputs) {
    if (const auto *ofAll = std::get_if<Output::OfAll>(&output.emit)) {
      outputs.add(output.path, (*ofAll)(input));
      continue;
    }
    for (const auto &unit : input.model.units())
      outputs.add(output.pathOf(unit->name), std::get<Output::OfUnit>(output.emit)(*unit, input));
  }
  return outputs;
}

} // namespace bridgegen
