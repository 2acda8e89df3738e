#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace tallyfold {

// The main thread's event loop, as far as the core needs it. Everything runs on one thread.
class RunLoop {
 public:
  using Task = std::function<void()>;
  // Never 0 for a pending call.
  using CallId = std::uint64_t;

  virtual ~RunLoop() = default;

  // Time that only moves forward; calls that are due at the same time run in order of scheduling.
  [[nodiscard]] virtual std::chrono::milliseconds Now() const = 0;
  // Calls `task` once after `delay` (0 or negative: after the current event). The owner of what
  // `task` refers to must cancel before it dies; DelayedCall does that.
  virtual CallId CallAfter(std::chrono::milliseconds delay, Task task) = 0;
  // A call that has run, runs now or was never made is ignored.
  virtual void Cancel(CallId id) noexcept = 0;
};

// One pending call as a member object: starting replaces the pending one, destroying cancels it.
class DelayedCall {
 public:
  explicit DelayedCall(RunLoop& loop) noexcept : loop_(loop) {}
  ~DelayedCall() { Cancel(); }
  DelayedCall(const DelayedCall&) = delete;
  DelayedCall& operator=(const DelayedCall&) = delete;

  void Start(std::chrono::milliseconds delay, RunLoop::Task task);
  void Cancel() noexcept;
  [[nodiscard]] bool IsPending() const noexcept { return id_ != 0; }

 private:
  RunLoop& loop_;
  RunLoop::CallId id_ = 0;
};

// A repeating timer as a member object. Its next firing can be read and moved; after a moved
// firing it goes on with its interval. Its task may stop it or start it anew, not destroy it.
class RepeatingTimer {
 public:
  explicit RepeatingTimer(RunLoop& loop) noexcept : loop_(loop), call_(loop) {}
  RepeatingTimer(const RepeatingTimer&) = delete;
  RepeatingTimer& operator=(const RepeatingTimer&) = delete;

  // `interval` must be positive. Replaces a running timer.
  void Start(std::chrono::milliseconds interval, RunLoop::Task task);
  void Stop() noexcept;
  [[nodiscard]] bool IsValid() const noexcept { return call_.IsPending() || firing_; }
  // On the run loop's time; none when the timer is not running.
  [[nodiscard]] std::optional<std::chrono::milliseconds> NextFiring() const;
  // Does nothing when the timer is not running.
  void SetNextFiring(std::chrono::milliseconds time);

 private:
  void Schedule();
  void Fire();

  RunLoop& loop_;
  DelayedCall call_;
  std::chrono::milliseconds interval_{0};
  std::chrono::milliseconds next_{0};
  RunLoop::Task task_;
  bool firing_ = false;
};

}  // namespace tallyfold
