#include "tests/fuzz/DocumentObjects.h"

#include <algorithm>
#include <memory>

namespace wrt::test {
namespace {

enum Kind { kElement, kText, kComment, kDocument };

/// A node of the model. Nodes live as long as the model, in a tree or not.
struct Model {
  Kind kind;
  std::u16string content; ///< an element's name; a text
  Model *parent = nullptr;
  std::vector<Model *> children;
  std::vector<std::pair<std::u16string, std::u16string>> attributes;

  bool isWithin(const Model *ancestor) const {
    return this == ancestor || (parent != nullptr && parent->isWithin(ancestor));
  }
  void unlink() {
    if (parent != nullptr)
      std::erase(parent->children, this);
    parent = nullptr;
  }
  void setAttribute(const std::u16string &key, const std::u16string &text) {
    const auto place = std::ranges::find(attributes, key, [](auto &pair) { return pair.first; });
    if (place == attributes.end())
      attributes.emplace_back(key, text);
    else
      place->second = text;
  }

  static std::u16string escaped(const std::u16string &text) {
    std::u16string result;
    for (const char16_t c : text)
      c == u'<' ? result += u"&lt;" : result += c;
    return result;
  }
  std::u16string xml() const {
    if (kind == kText)
      return escaped(content);
    if (kind == kComment)
      return u"<!--" + content + u"-->";
    std::u16string inside;
    for (const Model *child : children)
      inside += child->xml();
    if (kind == kDocument)
      return inside;
    std::u16string tag = u"<" + content;
    for (const auto &[key, text] : attributes)
      tag += u" " + key + u"=\"" + escaped(text) + u"\"";
    return children.empty() ? tag + u"/>" : tag + u">" + inside + u"</" + content + u">";
  }
};

/// A document beside its model; each slot is a node and the model of it.
class Comparison {
public:
  explicit Comparison(Choices &choices) : choices_(choices) {
    slots_.push_back({document_.as<abi::IXmlNode>(), add(kDocument)});
  }

  void run() {
    while (choices_.hasMore())
      step();
    for (const auto &[node, model] : slots_) {
      if (xmlOf(node) != model->xml())
        fail("the markup differs from the model's");
    }
  }

private:
  struct Slot {
    Node node;
    Model *model = nullptr;
  };

  Model *add(Kind kind, std::u16string_view content = {}) {
    models_.push_back(std::make_unique<Model>(Model{kind, std::u16string(content), {}, {}, {}}));
    return models_.back().get();
  }
  Slot &slot() { return choices_.of(slots_); }

  static void expect(HRESULT status, bool allowed, const char *operation) {
    if ((status >= 0) != allowed)
      fail(std::string(operation) + (allowed ? " was refused" : " should be refused"));
  }

  void step() {
    static constexpr std::u16string_view kNames[] = {u"a", u"b", u"c"};
    static constexpr std::u16string_view kTexts[] = {u"", u"x", u"1<2", u"y z"};
    const StringHolder name(choices_.of(kNames)), text(choices_.of(kTexts));
    const auto make = [&](auto member, Kind kind, const StringHolder &content) {
      ComPtr<abi::IUnknown> made;
      (document_.get()->*member)(content.get(), Answer{made});
      slots_.push_back({made.as<abi::IXmlNode>(), add(kind, content.view())});
    };
    using Document = abi::IXmlDocument;
    const Operation insertion = [&] {
      Slot &parent = slot(), &child = slot();
      const Slot before = choices_.below(2) == 0 ? Slot() : slot();
      Node added;
      insert(parent.model, child.model, before.model, false,
             parent.node->InsertBefore(child.node.get(), before.node.get(), added.put()));
    };
    const Operation operations[] = {
        [&] { make(&Document::CreateElement, kElement, name); },
        [&] { make(&Document::CreateTextNode, kText, text); },
        [&] { make(&Document::CreateComment, kComment, text); },
        [&] {
          const Slot &target = slot();
          if (const auto element = target.node.as<abi::IXmlElement>()) {
            expect(element->SetAttribute(name.get(), text.get()), true, "SetAttribute");
            target.model->setAttribute(std::u16string(name.view()), std::u16string(text.view()));
          }
        },
        [&] {
          const Slot &target = slot();
          if (const auto element = target.node.as<abi::IXmlElement>()) {
            expect(element->RemoveAttribute(name.get()), true, "RemoveAttribute");
            std::erase_if(target.model->attributes,
                          [&](const auto &pair) { return pair.first == name.view(); });
          }
        },
        [&] {
          const Slot &target = slot();
          target.node->Normalize();
          normalize(target.model);
        },
        [&] {
          const Slot &target = slot();
          Node copy;
          if (models_.size() > 1000)
            return; // copies of copies grow
          expect(target.node->CloneNode(1, copy.put()), target.model->kind != kDocument,
                 "CloneNode");
          if (copy)
            slots_.push_back({copy, clone(target.model)});
        },
        [&] {
          const Slot &parent = slot(), &child = slot();
          Node removed;
          const bool allowed = child.model->parent == parent.model;
          expect(parent.node->RemoveChild(child.node.get(), removed.put()), allowed, "RemoveChild");
          if (allowed)
            child.model->unlink();
        },
        insertion,
        insertion,
        [&] {
          const Slot &parent = slot(), &child = slot(), &old = slot();
          Node replaced;
          insert(parent.model, child.model, old.model, true,
                 parent.node->ReplaceChild(child.node.get(), old.node.get(), replaced.put()));
        },
    };
    choices_.of(operations)();
  }

  void insert(Model *parent, Model *child, Model *before, bool replaces, HRESULT status) {
    bool allowed = parent->kind == kElement || parent->kind == kDocument;
    allowed = allowed && child->kind != kDocument && !parent->isWithin(child) &&
              (before == nullptr || before->parent == parent);
    if (parent->kind == kDocument && child->kind == kElement)
      allowed =
          allowed && std::ranges::all_of(parent->children, [&](const Model *present) {
            return present->kind != kElement || present == child || (replaces && present == before);
          });
    if (parent->kind == kDocument && child->kind == kText)
      allowed = false;
    expect(status, allowed, replaces ? "ReplaceChild" : "InsertBefore");
    if (!allowed || child == before)
      return;
    child->unlink();
    child->parent = parent;
    parent->children.insert(std::ranges::find(parent->children, before), child);
    if (replaces)
      before->unlink();
  }

  void normalize(Model *model) {
    Model *previous = nullptr;
    for (Model *child : std::vector(model->children)) {
      if (child->kind == kText && (previous != nullptr || child->content.empty())) {
        if (previous != nullptr)
          previous->content += child->content;
        child->unlink();
        continue;
      }
      previous = child->kind == kText ? child : nullptr;
      normalize(child);
    }
  }

  Model *clone(const Model *original) {
    Model *copy = add(original->kind, original->content);
    copy->attributes = original->attributes;
    for (const Model *child : original->children) {
      copy->children.push_back(clone(child));
      copy->children.back()->parent = copy;
    }
    return copy;
  }

  Choices &choices_;
  const ComPtr<abi::IXmlDocument> document_ = newDocument({});
  std::vector<std::unique_ptr<Model>> models_;
  std::vector<Slot> slots_;
};

} // namespace

void compareWithModel(Choices &choices) { Comparison(choices).run(); }

} // namespace wrt::test
