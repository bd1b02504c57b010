#include "generator/emit/Emit.h"

#include "generator/output/Writer.h"
#include "generator/project/BridgeClass.h"

#include <numeric>
#include <set>

namespace bridgegen {

namespace {

/// FNV-1a, 64 bits: short, and good enough to notice a change in review.
class Hash {
public:
  void add(std::string_view text) {
    for (const char c : text)
      value_ = (value_ ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  }

  std::string text() const {
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4)
      digits += "0123456789abcdef"[value_ >> shift & 15];
    return digits;
  }

private:
  uint64_t value_ = 0xCBF29CE484222325;
};

template <class Visit>
void forEachBridge(const Model &model, Visit visit) {
  for (const Unit *unit : model.ownUnits()) {
    for (const BridgeClass &bridge : bridgeClassesOf(*unit))
      visit(bridge);
  }
}

const char *side(const Method &method) { return method.isClassMethod ? "+" : "-"; }

} // namespace

std::string emitCatalogue(const Input &input) {
  Writer writer;
  for (const HandWrittenClass &type : input.handWritten) {
    for (const std::string &method : type.methods)
      writer.write("%\n", method);
  }
  forEachBridge(input.model, [&](const BridgeClass &bridge) {
    for (const BridgeMethod &method : bridge.methods)
      writer.write("%\t%\t%\t%\t%\t%\t%\n", bridge.name, side(method.method),
                   method.method.selector, method.method.encoding(),
                   method.interface ? method.method.extendedEncoding() : "-",
                   method.interface ? method.interface->scopeName() : "-",
                   method.member ? std::to_string(method.member->slot) : "-");
  });
  return writer.text();
}

std::string emitIdentifiers(const Input &input) {
  std::set<std::string> lines;
  const auto add = [&](const InterfaceType &type) {
    lines.insert("interface\t" + type.scopeName() + "\t" + type.bridgeClass() + "\t" +
                 type.iid.lower() + "\n");
  };
  forEachBridge(input.model, [&](const BridgeClass &bridge) {
    for (const BridgeMethod &method : bridge.methods) {
      if (method.interface)
        add(*method.interface);
    }
    if (!bridge.type->isRuntimeClass()) {
      add(asInterface(*bridge.type));
      return;
    }
    const InterfaceType *standsFor = crossingInterface(*bridge.type);
    if (standsFor)
      add(*standsFor);
    lines.insert("class\t" + bridge.type->scopeName() + "\t" + bridge.name + "\t" +
                 bridge.type->name + "\t" + (standsFor ? standsFor->scopeName() : "-") + "\n");
  });
  return std::accumulate(lines.begin(), lines.end(), std::string());
}

std::string emitMembers(const Input &input) {
  std::set<std::string> lines;
  forEachBridge(input.model, [&](const BridgeClass &bridge) {
    for (const BridgeMethod &method : bridge.methods) {
      if (method.member)
        lines.insert(method.interface->bridgeName + "\t" + std::to_string(method.member->slot) +
                     "\t" + method.interface->name + "." + method.member->functionName() + "\n");
    }
  });
  return std::accumulate(lines.begin(), lines.end(), std::string());
}

std::string emitDigest(const Input &input) {
  Writer writer;
  for (const HandWrittenClass &type : input.handWritten) {
    Hash hash;
    for (const std::string &method : type.methods)
      hash.add(method + "\n");
    writer.write("% core % % %\n", type.name, type.superclass, type.methods.size(), hash.text());
  }
  forEachBridge(input.model, [&](const BridgeClass &bridge) {
    Hash hash;
    for (const InterfaceType *protocol : bridge.protocols)
      hash.add(protocol->bridgeClass() + "\n");
    for (const BridgeMethod &method : bridge.methods) {
      hash.add(side(method.method) + method.method.selector + " " + method.method.encoding() + " " +
               method.method.extendedEncoding());
      // What a call reaches is part of the surface as well.
      if (method.interface)
        hash.add(" " + method.interface->iid.lower());
      if (method.member)
        hash.add(" " + std::to_string(method.member->slot));
      hash.add("\n");
    }
    writer.write("% % % % %\n", bridge.name, bridge.kind, bridge.superclass, bridge.methods.size(),
                 hash.text());
  });
  return writer.text();
}

} // namespace bridgegen
