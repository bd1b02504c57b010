#include "platform/linux/activation/ActivationRegistry.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <utility>
#include <vector>

namespace wrt::activation {
namespace {

/// One registration; its address in the registry's stack tells it from others of the same name.
struct Entry {
  const Registration *owner;
  std::shared_ptr<const FactoryMaker> maker;
};

class Registry {
public:
  void add(std::u16string_view name, const Registration *owner, FactoryMaker maker) {
    auto shared = std::make_shared<const FactoryMaker>(std::move(maker));
    std::lock_guard lock(mutex_);
    classes_[std::u16string(name)].push_back({owner, std::move(shared)});
  }

  void remove(const std::u16string &name, const Registration *owner) {
    // The maker is destroyed after the lock is free, as it may own anything.
    std::shared_ptr<const FactoryMaker> removed;
    std::lock_guard lock(mutex_);
    const auto found = classes_.find(name);
    std::vector<Entry> &entries = found->second;
    const auto entry = std::ranges::find(entries, owner, &Entry::owner);
    removed = std::move(entry->maker);
    entries.erase(entry);
    if (entries.empty())
      classes_.erase(found);
  }

  std::shared_ptr<const FactoryMaker> find(std::u16string_view name) const {
    std::shared_lock lock(mutex_);
    const auto found = classes_.find(name);
    return found == classes_.end() ? nullptr : found->second.back().maker;
  }

private:
  mutable std::shared_mutex mutex_;
  std::map<std::u16string, std::vector<Entry>, std::less<>> classes_;
};

/// Never destroyed: registrations in static storage of other libraries may end after this one's.
Registry &registry() {
  static Registry &instance = *new Registry;
  return instance;
}

} // namespace

Registration::Registration(std::u16string_view className, FactoryMaker maker)
    : className_(className) {
  registry().add(className_, this, std::move(maker));
}

Registration::~Registration() { registry().remove(className_, this); }

implement::ComPtr<abi::IActivationFactory> findFactory(std::u16string_view className) {
  const auto maker = registry().find(className);
  return maker == nullptr ? nullptr : (*maker)();
}

} // namespace wrt::activation
