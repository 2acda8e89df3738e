#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/notification_center.h"
#include "platform/run_loop.h"

namespace tallyfold {

// Posted by the application when a left mouse button goes down, and when a user-input event passes.
inline constexpr std::string_view kMouseDownNotification = "LDGRMouseDownNotification";
inline constexpr std::string_view kUserInputNotification = "LDGRUserInputNotification";

enum class EventType : std::uint8_t {
  LeftMouseDown,
  LeftMouseUp,
  RightMouseDown,
  RightMouseUp,
  OtherMouseDown,
  OtherMouseUp,
  LeftMouseDragged,
  RightMouseDragged,
  OtherMouseDragged,
  KeyDown,
  // These and all below count as activity but not as input.
  MouseMoved,
  KeyUp,
  ModifierChange,
  ScrollWheel,
  Other,
};

// Sees every event of the windows before it is handled.
class LDGRApplication {
 public:
  // Both must outlive the application.
  LDGRApplication(NotificationCenter& notifications, const RunLoop& loop) noexcept
      : notifications_(notifications), loop_(loop) {}
  LDGRApplication(const LDGRApplication&) = delete;
  LDGRApplication& operator=(const LDGRApplication&) = delete;

  // Looks at an event, which the caller then handles as it would have without.
  void sendEvent(EventType type);
  // When the last event of any kind passed, in seconds since 1970-01-01 00:00 UTC; 0 before the
  // first.
  [[nodiscard]] double lastEventTimestamp() const noexcept { return last_event_timestamp_; }
  // How long ago that is, whatever became of the wall clock meanwhile; none before the first event.
  [[nodiscard]] std::optional<std::chrono::milliseconds> TimeSinceLastEvent() const;

 private:
  NotificationCenter& notifications_;
  const RunLoop& loop_;
  std::optional<std::chrono::milliseconds> last_event_;  // on the loop's time
  double last_event_timestamp_ = 0.0;
};

}  // namespace tallyfold
