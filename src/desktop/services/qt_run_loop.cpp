#include "desktop/services/qt_run_loop.h"

#include <algorithm>

namespace tallyfold::desktop {
namespace {

using std::chrono::milliseconds;

// The toolkit takes intervals of an int; a longer wait is made of several.
constexpr milliseconds kLongestWait = std::chrono::hours(24);

}  // namespace

QtRunLoop::QtRunLoop() {
  time_.start();
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { RunOneCall(); });
}

milliseconds QtRunLoop::Now() const {
  return milliseconds(time_.elapsed());
}

RunLoop::CallId QtRunLoop::CallAfter(milliseconds delay, Task task) {
  const CallId id = ++last_id_;
  const milliseconds due = Now() + std::max(delay, milliseconds(0));
  calls_.emplace(DueTime(due, id), std::move(task));
  due_times_.emplace(id, due);
  StartTimer();
  return id;
}

void QtRunLoop::Cancel(CallId id) noexcept {
  const auto found = due_times_.find(id);
  if (found == due_times_.end()) return;
  calls_.erase(DueTime(found->second, id));
  due_times_.erase(found);
}

void QtRunLoop::RunOneCall() {
  if (calls_.empty()) return;
  if (calls_.begin()->first.first > Now()) return StartTimer();
  const Task task = std::move(calls_.begin()->second);
  due_times_.erase(calls_.begin()->first.second);
  calls_.erase(calls_.begin());
  // Before the task, which may run a loop of its own.
  StartTimer();
  task();
}

void QtRunLoop::StartTimer() {
  if (calls_.empty()) return timer_.stop();
  timer_.start(std::clamp(calls_.begin()->first.first - Now(), milliseconds(0), kLongestWait));
}

}  // namespace tallyfold::desktop
