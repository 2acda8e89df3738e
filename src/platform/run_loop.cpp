#include "platform/run_loop.h"

#include <utility>

namespace tallyfold {

void DelayedCall::Start(std::chrono::milliseconds delay, RunLoop::Task task) {
  Cancel();
  id_ = loop_.CallAfter(delay, [this, task = std::move(task)] {
    id_ = 0;
    // The task may start this call anew or destroy its owner, so it runs from a copy.
    const RunLoop::Task running = task;
    running();
  });
}

void DelayedCall::Cancel() noexcept {
  if (id_ != 0) loop_.Cancel(std::exchange(id_, 0));
}

void RepeatingTimer::Start(std::chrono::milliseconds interval, RunLoop::Task task) {
  firing_ = false;
  interval_ = interval;
  task_ = std::move(task);
  next_ = loop_.Now() + interval_;
  Schedule();
}

void RepeatingTimer::Stop() noexcept {
  firing_ = false;
  call_.Cancel();
}

std::optional<std::chrono::milliseconds> RepeatingTimer::NextFiring() const {
  if (!IsValid()) return std::nullopt;
  return next_;
}

void RepeatingTimer::SetNextFiring(std::chrono::milliseconds time) {
  if (!IsValid()) return;
  next_ = time;
  if (!firing_) Schedule();
}

void RepeatingTimer::Schedule() {
  call_.Start(next_ - loop_.Now(), [this] { Fire(); });
}

void RepeatingTimer::Fire() {
  firing_ = true;
  next_ = loop_.Now() + interval_;
  const RunLoop::Task running = task_;
  running();
  // Stopped or started anew by its own task: nothing more to do.
  if (!firing_) return;
  firing_ = false;
  Schedule();
}

}  // namespace tallyfold
