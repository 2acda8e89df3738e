#include "platform/progress.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tallyfold {
namespace {

constexpr std::uint64_t kReports = 100;
constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

Progress*& InForce() noexcept {
  static Progress* progress = nullptr;
  return progress;
}

}  // namespace

ScopedProgress::ScopedProgress(Progress& progress) noexcept
    : former_(std::exchange(InForce(), &progress)) {}

ScopedProgress::~ScopedProgress() {
  InForce() = former_;
}

LongOperation::LongOperation(LongWork work, std::uint64_t total) noexcept
    : work_(work), total_(total) {
  if (InForce() == nullptr || under_way_ != nullptr) return;
  under_way_ = this;
  Tell();
}

LongOperation::~LongOperation() {
  if (under_way_ != this) return;
  under_way_ = nullptr;
  try {
    if (InForce() != nullptr) InForce()->Ended();
  } catch (...) {
    // Whoever cannot show progress does not keep anything from being done.
  }
}

void LongOperation::Finish() noexcept {
  if (under_way_ != this || next_ == kNever) return;
  done_ = total_;
  Tell();
}

void LongOperation::Tell() noexcept {
  done_ = std::min(done_, total_);
  // What has been told whole is not told again.
  next_ = done_ == total_ ? kNever : std::min(done_ + total_ / kReports + 1, total_);
  try {
    if (InForce() != nullptr) InForce()->Report(work_, done_, total_);
  } catch (...) {
    // As above.
  }
}

}  // namespace tallyfold
