#include "platform/progress.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tallyfold {
namespace {

constexpr std::uint64_t kMostReports = 100;
constexpr std::uint64_t kNoReport = std::numeric_limits<std::uint64_t>::max();

}  // namespace

ScopedProgress::ScopedProgress(Progress& progress) noexcept
    : former_(std::exchange(in_force_, &progress)) {}

ScopedProgress::~ScopedProgress() {
  in_force_ = former_;
}

LongOperation::LongOperation(LongWork work, std::uint64_t total) noexcept
    : work_(work), total_(total) {
  if (ScopedProgress::in_force_ == nullptr || under_way_ != nullptr) return;
  under_way_ = this;
  Tell();
}

LongOperation::~LongOperation() {
  if (under_way_ != this) return;
  under_way_ = nullptr;
  try {
    if (ScopedProgress::in_force_ != nullptr) ScopedProgress::in_force_->Ended();
  } catch (...) {
    // Whoever cannot show progress does not keep anything from being done.
  }
}

void LongOperation::Finish() noexcept {
  if (under_way_ != this || next_ == kNoReport) return;
  done_ = total_;
  Tell();
}

void LongOperation::Tell() noexcept {
  done_ = std::min(done_, total_);
  // What has been told whole is not told again.
  next_ = done_ == total_ ? kNoReport : std::min(done_ + total_ / kMostReports + 1, total_);
  try {
    if (ScopedProgress::in_force_ != nullptr)
      ScopedProgress::in_force_->Report(work_, done_, total_);
  } catch (...) {
    // As above.
  }
}

}  // namespace tallyfold
