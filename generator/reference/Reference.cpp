#include "generator/reference/Reference.h"

#include "generator/output/Json.h"
#include "generator/reference/Pages.h"

namespace bridgegen {

OutputSet emitReference(const Input &input, const PlatformFacts &platform) {
  const Pages pages(input, platform);
  OutputSet outputs;
  std::set<std::string> nameSpaces;
  for (const auto &[name, type] : input.model.types()) {
    if (!Places::hasPage(*type))
      continue;
    const std::string nameSpace = Places::nameSpace(*type);
    if (nameSpaces.insert(nameSpace).second)
      outputs.add("content/api/" + nameSpace + "/_index.md",
                  json::object({{"title", json::string(nameSpace)}}) + "\n");
    outputs.add("content/api/" + nameSpace + "/" + Places::pageName(*type) + ".md",
                pages.page(*type));
  }
  outputs.add("static/search/names.js", emitSearchNames(input));
  return outputs;
}

} // namespace bridgegen
