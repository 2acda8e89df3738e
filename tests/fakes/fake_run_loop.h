#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <utility>

#include "fakes/fake_clock.h"
#include "platform/run_loop.h"

namespace tallyfold {

// A run loop whose time a test moves. A clock given to it moves along.
class FakeRunLoop final : public RunLoop {
 public:
  explicit FakeRunLoop(FakeClock* clock = nullptr) : clock_(clock) {}

  [[nodiscard]] std::chrono::milliseconds Now() const override { return now_; }
  CallId CallAfter(std::chrono::milliseconds delay, Task task) override;
  void Cancel(CallId id) noexcept override;

  // Runs what falls due up to `duration` from now, each call at its own time, then stands there.
  void AdvanceBy(std::chrono::milliseconds duration);
  // Runs what is due now, as at the end of an event.
  void FinishEvent() { AdvanceBy(std::chrono::milliseconds{0}); }
  [[nodiscard]] std::size_t PendingCalls() const { return calls_.size(); }

 private:
  void MoveTo(std::chrono::milliseconds time);

  FakeClock* clock_;
  std::chrono::milliseconds now_{0};
  std::map<std::pair<std::chrono::milliseconds, CallId>, Task> calls_;
  CallId last_id_ = 0;
};

}  // namespace tallyfold
