#include "fakes/fake_run_loop.h"

#include <algorithm>

namespace tallyfold {

using std::chrono::milliseconds;

RunLoop::CallId FakeRunLoop::CallAfter(milliseconds delay, Task task) {
  const CallId id = ++last_id_;
  calls_.emplace(std::pair{now_ + std::max(delay, milliseconds{0}), id}, std::move(task));
  return id;
}

void FakeRunLoop::Cancel(CallId id) noexcept {
  std::erase_if(calls_, [id](const auto& call) { return call.first.second == id; });
}

void FakeRunLoop::AdvanceBy(milliseconds duration) {
  const milliseconds end = now_ + duration;
  while (!calls_.empty() && calls_.begin()->first.first <= end) {
    auto call = calls_.extract(calls_.begin());
    MoveTo(call.key().first);
    call.mapped()();
  }
  MoveTo(end);
}

void FakeRunLoop::MoveTo(milliseconds time) {
  if (clock_ != nullptr) clock_->Advance(time - now_);
  now_ = time;
}

}  // namespace tallyfold
