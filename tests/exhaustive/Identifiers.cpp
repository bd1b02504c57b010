#include "tests/exhaustive/Identifiers.h"

#include "catalogue/reader/CatalogueTables.h"

namespace wrt::test {

// Three little-endian numbers, then bytes.
Iid parseIid(std::string text) {
  std::erase(text, '-');
  Iid iid{};
  constexpr std::uint8_t kOrder[] = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  for (std::size_t i = 0; i < iid.size(); ++i)
    iid.at(kOrder[i]) = static_cast<std::uint8_t>(std::stoul(text.substr(2 * i, 2), nullptr, 16));
  return iid;
}

Identifiers Identifiers::read(const std::string &file) {
  Identifiers result;
  // Written by hand, so not in the table.
  result.bridges["WRTIInspectableBridge"] = parseIid("AF86E2E0-B12D-4C6A-9C5A-D7AA65101E90");
  const catalogue::Identifiers table = catalogue::readIdentifiers(file);
  for (const catalogue::Interface &each : table.interfaces)
    result.interfaces[each.name] = result.bridges[each.bridge] = parseIid(each.identifier);
  for (const catalogue::RuntimeClass &each : table.classes) {
    result.classes[each.bridge] = {each.name.begin(), each.name.end()};
    if (!each.defaultInterface.empty())
      result.bridges[each.bridge] = result.interfaces.at(each.defaultInterface);
  }
  return result;
}

} // namespace wrt::test
