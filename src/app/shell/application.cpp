#include "app/shell/application.h"

#include "platform/ambient.h"

namespace tallyfold {

void LDGRApplication::sendEvent(EventType type) {
  if (type == EventType::LeftMouseDown) notifications_.Post(kMouseDownNotification, this);
  if (type <= EventType::KeyDown) notifications_.Post(kUserInputNotification, this);
  last_event_timestamp_ =
      std::chrono::duration<double>(CurrentClock().Now().time_since_epoch()).count();
  last_event_ = loop_.Now();
}

std::optional<std::chrono::milliseconds> LDGRApplication::TimeSinceLastEvent() const {
  if (!last_event_) return std::nullopt;
  return loop_.Now() - *last_event_;
}

}  // namespace tallyfold
