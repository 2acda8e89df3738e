#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>

class QSessionManager;

namespace tallyfold::desktop {

// Whether there is a display to open a window on; the toolkit itself aborts without one.
[[nodiscard]] bool HasDisplay();

// Hears of the ends that nobody can be asked about: a signal, and the end of the desktop's session.
class ProcessEnd final : public QObject {
 public:
  // `descriptor` is readable once a signal has come; `by_signal` then takes it.
  ProcessEnd(int descriptor, std::function<void()> by_signal, std::function<void()> by_session_end);

 private:
  QSocketNotifier notifier_;
};

// Saves when the process exits on the way past everything else, as it does when the display is
// gone. Only one at a time.
class ExitGuard {
 public:
  // `save` must do for a program whose event loop has gone.
  explicit ExitGuard(std::function<void()> save);
  ~ExitGuard();
  ExitGuard(const ExitGuard&) = delete;
  ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace tallyfold::desktop
