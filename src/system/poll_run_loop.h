#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/run_loop.h"

namespace tallyfold {

// The run loop of a program without a toolkit: waits in poll for file descriptors and due calls.
class PollRunLoop final : public RunLoop {
 public:
  // Ends the watching of a file descriptor when destroyed; must not outlive the loop.
  class [[nodiscard]] Watch {
   public:
    Watch() = default;
    Watch(Watch&& other) noexcept;
    Watch& operator=(Watch&& other) noexcept;
    ~Watch() { End(); }
    void End() noexcept;

   private:
    friend class PollRunLoop;
    Watch(PollRunLoop& loop, std::uint64_t id) : loop_(&loop), id_(id) {}
    PollRunLoop* loop_ = nullptr;
    std::uint64_t id_ = 0;
  };

  PollRunLoop();
  PollRunLoop(const PollRunLoop&) = delete;
  PollRunLoop& operator=(const PollRunLoop&) = delete;

  // The time since the loop was made, and what SkipDelays has skipped.
  [[nodiscard]] std::chrono::milliseconds Now() const override;
  CallId CallAfter(std::chrono::milliseconds delay, Task task) override;
  void Cancel(CallId id) noexcept override;

  // Calls `ready` from Run whenever `descriptor` can be read or has come to its end; `ready` must
  // then read it or end the watch. The descriptor stays the caller's and must be open while
  // watched.
  [[nodiscard]] Watch WatchReadable(int descriptor, std::function<void()> ready);

  // Runs calls and watches as they fall due, until Stop is called.
  void Run();
  // Makes the innermost Run return after the present call; one called before Run is forgotten.
  void Stop() noexcept { stopped_ = true; }
  // Runs every call that falls due within `horizon` from now, also those made meanwhile, without
  // waiting for its time: the loop's time jumps ahead instead, and stands still while a call runs,
  // however long that takes. Watches are not served.
  void SkipDelays(std::chrono::milliseconds horizon);

 private:
  struct Watched {
    int descriptor;
    std::shared_ptr<std::function<void()>> ready;
  };
  using DueTime = std::pair<std::chrono::milliseconds, CallId>;

  // Runs the call that is due first if that is at `limit` or before.
  bool RunOneCall(std::chrono::milliseconds limit);
  // Waits for the next due call or readable descriptor, and tells the readable ones.
  void WaitAndServe();

  std::chrono::steady_clock::time_point start_;
  std::chrono::milliseconds skipped_{0};
  // The time while delays are skipped.
  std::optional<std::chrono::milliseconds> held_;
  // In the order in which they run; ids grow, so that calls due together run as they were made.
  std::map<DueTime, Task> calls_;
  std::map<CallId, std::chrono::milliseconds> due_times_;
  std::uint64_t last_id_ = 0;
  std::map<std::uint64_t, Watched> watches_;
  bool stopped_ = false;
};

}  // namespace tallyfold
