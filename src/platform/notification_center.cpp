#include "platform/notification_center.h"

#include <utility>
#include <vector>

namespace tallyfold {

struct NotificationCenter::Observation::Registry {
  struct Entry {
    std::string name;
    Handler handler;
  };
  std::map<std::uint64_t, Entry> entries;
  std::uint64_t next_id = 1;
};

NotificationCenter::Observation& NotificationCenter::Observation::operator=(
    Observation&& other) noexcept {
  if (this != &other) {
    End();
    registry_ = std::move(other.registry_);
    id_ = other.id_;
  }
  return *this;
}

void NotificationCenter::Observation::End() noexcept {
  if (const auto registry = registry_.lock()) registry->entries.erase(id_);
  registry_.reset();
}

NotificationCenter::NotificationCenter() : registry_(std::make_shared<Observation::Registry>()) {}
NotificationCenter::~NotificationCenter() = default;

NotificationCenter::Observation NotificationCenter::Observe(std::string_view name,
                                                            Handler handler) {
  const std::uint64_t id = registry_->next_id++;
  registry_->entries.emplace(id,
                             Observation::Registry::Entry{std::string(name), std::move(handler)});
  return Observation(registry_, id);
}

void NotificationCenter::Post(std::string_view name, const void* object) {
  const auto registry = registry_;
  std::vector<std::uint64_t> ids;
  for (const auto& [id, entry] : registry->entries) {
    if (entry.name == name) ids.push_back(id);
  }
  for (const std::uint64_t id : ids) {
    const auto found = registry->entries.find(id);
    if (found == registry->entries.end()) continue;
    const Handler handler = found->second.handler;
    handler(object);
  }
}

}  // namespace tallyfold
