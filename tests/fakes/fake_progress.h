#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/progress.h"

namespace tallyfold {

// Notes what it is told, and is in force as long as it lives.
class FakeProgress final : public Progress {
 public:
  struct Operation {
    LongWork work;
    std::vector<std::uint64_t> done;
    std::uint64_t total;
    bool is_over = false;
    // Every figure is greater than the one before, the first 0 and the last the total.
    [[nodiscard]] bool IsWhole() const {
      for (std::size_t i = 1; i < done.size(); ++i) {
        if (done[i] <= done[i - 1]) return false;
      }
      return is_over && done.front() == 0 && done.back() == total;
    }
  };

  void Report(LongWork work, std::uint64_t done, std::uint64_t total) override {
    if (operations.empty() || operations.back().is_over) operations.push_back({work, {}, total});
    operations.back().done.push_back(done);
    // Of another operation or total than before it would belong to none.
    if (operations.back().work != work || operations.back().total != total) operations.clear();
    if (when_told) when_told();
  }
  void Ended() override {
    operations.back().is_over = true;
    if (when_told) when_told();
  }

  std::vector<Operation> operations;
  std::function<void()> when_told;

 private:
  ScopedProgress in_force_{*this};
};

}  // namespace tallyfold
