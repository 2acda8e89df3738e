#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <chrono>
#include <map>
#include <utility>

#include "platform/run_loop.h"

namespace tallyfold::desktop {

// The toolkit's event loop as the core sees it. Calls run one by one, so that a call that asks the
// user something does not hold up the others.
class QtRunLoop final : public RunLoop {
 public:
  QtRunLoop();
  QtRunLoop(const QtRunLoop&) = delete;
  QtRunLoop& operator=(const QtRunLoop&) = delete;

  [[nodiscard]] std::chrono::milliseconds Now() const override;
  CallId CallAfter(std::chrono::milliseconds delay, Task task) override;
  void Cancel(CallId id) noexcept override;

 private:
  using DueTime = std::pair<std::chrono::milliseconds, CallId>;

  void RunOneCall();
  void StartTimer();

  QElapsedTimer time_;
  QTimer timer_;
  // In the order in which they run; ids grow, so that calls due together run as they were made.
  std::map<DueTime, Task> calls_;
  std::map<CallId, std::chrono::milliseconds> due_times_;
  CallId last_id_ = 0;
};

}  // namespace tallyfold::desktop
