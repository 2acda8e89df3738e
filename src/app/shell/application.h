#pragma once

#include <cstdint>
#include <string_view>

#include "platform/notification_center.h"

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
  // The center must outlive the application.
  explicit LDGRApplication(NotificationCenter& notifications) noexcept
      : notifications_(notifications) {}
  LDGRApplication(const LDGRApplication&) = delete;
  LDGRApplication& operator=(const LDGRApplication&) = delete;

  // Looks at an event, which the caller then handles as it would have without.
  void sendEvent(EventType type);
  // When the last event of any kind passed, in seconds since 1970-01-01 00:00 UTC; 0 before the
  // first.
  [[nodiscard]] double lastEventTimestamp() const noexcept { return last_event_timestamp_; }

 private:
  NotificationCenter& notifications_;
  double last_event_timestamp_ = 0.0;
};

// The moment of the clock in force, in the unit of lastEventTimestamp().
[[nodiscard]] double SecondsSince1970();

}  // namespace tallyfold
