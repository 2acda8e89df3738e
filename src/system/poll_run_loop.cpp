#include "system/poll_run_loop.h"

#include <errno.h>
#include <poll.h>

#include <algorithm>
#include <limits>
#include <system_error>
#include <utility>

namespace tallyfold {

using std::chrono::milliseconds;

PollRunLoop::Watch::Watch(Watch&& other) noexcept
    : loop_(std::exchange(other.loop_, nullptr)), id_(other.id_) {}

PollRunLoop::Watch& PollRunLoop::Watch::operator=(Watch&& other) noexcept {
  if (this != &other) {
    End();
    loop_ = std::exchange(other.loop_, nullptr);
    id_ = other.id_;
  }
  return *this;
}

void PollRunLoop::Watch::End() noexcept {
  if (loop_ != nullptr) std::exchange(loop_, nullptr)->watches_.erase(id_);
}

PollRunLoop::PollRunLoop() : start_(std::chrono::steady_clock::now()) {}

milliseconds PollRunLoop::Now() const {
  if (held_) return *held_;
  return skipped_ + std::chrono::floor<milliseconds>(std::chrono::steady_clock::now() - start_);
}

RunLoop::CallId PollRunLoop::CallAfter(milliseconds delay, Task task) {
  const milliseconds due = Now() + std::max(delay, milliseconds{0});
  const CallId id = ++last_id_;
  calls_.emplace(DueTime{due, id}, std::move(task));
  due_times_.emplace(id, due);
  return id;
}

void PollRunLoop::Cancel(CallId id) noexcept {
  const auto found = due_times_.find(id);
  if (found == due_times_.end()) return;
  calls_.erase(DueTime{found->second, id});
  due_times_.erase(found);
}

PollRunLoop::Watch PollRunLoop::WatchReadable(int descriptor, std::function<void()> ready) {
  const std::uint64_t id = ++last_id_;
  watches_.emplace(id,
                   Watched{descriptor, std::make_shared<std::function<void()>>(std::move(ready))});
  return Watch(*this, id);
}

void PollRunLoop::Run() {
  stopped_ = false;
  // A call whose delay was skipped may wait itself, for an answer that takes its time.
  held_.reset();
  while (!stopped_) {
    // Calls made by calls wait for the next turn, so that none can starve the descriptors.
    const CallId newest = last_id_;
    const milliseconds now = Now();
    while (!stopped_ && !calls_.empty() && calls_.begin()->first.second <= newest &&
           RunOneCall(now)) {
    }
    if (!stopped_) WaitAndServe();
  }
  stopped_ = false;
}

void PollRunLoop::SkipDelays(milliseconds horizon) {
  const milliseconds limit = Now() + horizon;
  const std::optional<milliseconds> outer = std::exchange(held_, Now());
  struct Release {
    std::optional<milliseconds>& held;
    bool is_outermost;
    ~Release() {
      if (is_outermost) held.reset();
    }
  } const release{held_, !outer};
  while (RunOneCall(limit)) {
  }
}

bool PollRunLoop::RunOneCall(milliseconds limit) {
  if (calls_.empty() || calls_.begin()->first.first > limit) return false;
  auto call = calls_.extract(calls_.begin());
  due_times_.erase(call.key().second);
  const milliseconds ahead = std::max(call.key().first - Now(), milliseconds{0});
  skipped_ += ahead;
  if (held_) *held_ += ahead;
  call.mapped()();
  return true;
}

void PollRunLoop::WaitAndServe() {
  std::vector<pollfd> polled;
  std::vector<std::uint64_t> ids;
  for (const auto& [id, watched] : watches_) {
    polled.push_back({watched.descriptor, POLLIN, 0});
    ids.push_back(id);
  }
  int timeout = -1;
  if (!calls_.empty()) {
    const auto wait = std::max(calls_.begin()->first.first - Now(), milliseconds{0}).count();
    timeout = static_cast<int>(std::min<decltype(wait)>(wait, std::numeric_limits<int>::max()));
  }
  if (::poll(polled.data(), polled.size(), timeout) < 0) {
    if (errno == EINTR) return;
    throw std::system_error(errno, std::generic_category(), "poll");
  }
  for (std::size_t i = 0; i < polled.size() && !stopped_; ++i) {
    if (polled[i].revents == 0) continue;
    // One that was ready before may have ended this one's watch.
    const auto found = watches_.find(ids[i]);
    if (found == watches_.end()) continue;
    const auto ready = found->second.ready;
    (*ready)();
  }
}

}  // namespace tallyfold
