#include "app/shell/application.h"

#include <chrono>

#include "platform/ambient.h"

namespace tallyfold {

void LDGRApplication::sendEvent(EventType type) {
  if (type == EventType::LeftMouseDown) notifications_.Post(kMouseDownNotification, this);
  if (type <= EventType::KeyDown) notifications_.Post(kUserInputNotification, this);
  last_event_timestamp_ = SecondsSince1970();
}

double SecondsSince1970() {
  return std::chrono::duration<double>(CurrentClock().Now().time_since_epoch()).count();
}

}  // namespace tallyfold
