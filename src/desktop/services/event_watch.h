#pragma once

#include <QObject>
#include <functional>
#include <optional>

#include "app/shell/application.h"

namespace tallyfold::desktop {

// Shows every input event of the windows to the application before it is handled.
class EventWatch final : public QObject {
 public:
  // From here on. `application` must outlive the watch.
  explicit EventWatch(LDGRApplication& application);

  // Whether the user has a menu or a list open or holds a button down, as while dragging a header:
  // nothing may change under the pointer then.
  [[nodiscard]] static bool UserIsTracking();

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  LDGRApplication& application_;
};

// What the event is to the application; none where it is no input.
[[nodiscard]] std::optional<EventType> TypeOf(const QEvent& event);

}  // namespace tallyfold::desktop
