#include "generator/Generate.h"

#include "generator/emit/Outputs.h"
#include "generator/model/Builder.h"
#include "generator/model/Check.h"
#include "generator/model/Select.h"
#include "generator/project/CheckSelectors.h"
#include "generator/read/Parser.h"
#include "generator/reference/Reference.h"

namespace bridgegen {

std::optional<OutputSet> generate(const std::deque<Source> &sources, const Extras &extras,
                                  Diagnostics &diagnostics) {
  std::vector<syntax::Unit> units;
  units.reserve(sources.size());
  for (const Source &source : sources)
    units.push_back(parse(source, diagnostics));
  std::vector<HandWrittenClass> others;
  if (extras.handWritten)
    others = readHandWritten(*extras.handWritten, diagnostics);
  PlatformFacts platform;
  if (extras.platform)
    platform = PlatformFacts(*extras.platform, diagnostics);
  // What a half-read file would have declared is not worth reporting as missing, nor is what
  // follows from a half-built model.
  if (diagnostics.hasErrors())
    return std::nullopt;
  const std::unique_ptr<Model> model = buildModel(units, diagnostics, extras.target);
  if (diagnostics.hasErrors())
    return std::nullopt;
  check(*model, diagnostics);
  if (diagnostics.hasErrors())
    return std::nullopt;
  checkSelectors(*model, diagnostics);
  if (diagnostics.hasErrors())
    return std::nullopt;
  if (!extras.selection.empty()) {
    if (const std::optional<std::string> unknown = select(*model, extras.selection)) {
      diagnostics.error({&sources.front(), 1, 1},
                        "there is neither a type nor a namespace " + bridgegen::quoted(*unknown));
      return std::nullopt;
    }
  }
  const Input input{*model, others, extras.delegateHeader, extras.componentHeader};
  return extras.isReference ? emitReference(input, platform) : emitAll(input);
}

} // namespace bridgegen
