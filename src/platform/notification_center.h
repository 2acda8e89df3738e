#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tallyfold {

// Posts named notifications to whoever observes them, synchronously and in order of observing.
class NotificationCenter {
 public:
  // `object` is the poster, or null.
  using Handler = std::function<void(const void* object)>;

  // Ends the observation when destroyed; may outlive the center.
  class [[nodiscard]] Observation {
   public:
    Observation() = default;
    Observation(Observation&&) noexcept = default;
    Observation& operator=(Observation&& other) noexcept;
    ~Observation() { End(); }
    void End() noexcept;

   private:
    friend class NotificationCenter;
    struct Registry;
    Observation(std::weak_ptr<Registry> registry, std::uint64_t id)
        : registry_(std::move(registry)), id_(id) {}
    std::weak_ptr<Registry> registry_;
    std::uint64_t id_ = 0;
  };

  NotificationCenter();
  NotificationCenter(const NotificationCenter&) = delete;
  NotificationCenter& operator=(const NotificationCenter&) = delete;
  ~NotificationCenter();

  [[nodiscard]] Observation Observe(std::string_view name, Handler handler);
  // Handlers that are added during a post do not hear it; handlers that end before their turn
  // are not called.
  void Post(std::string_view name, const void* object = nullptr);

 private:
  std::shared_ptr<Observation::Registry> registry_;
};

}  // namespace tallyfold
