#pragma once

#include <cstddef>
#include <functional>

namespace tallyfold::benchmarks {

struct Cost {
  double seconds = 0.0;        // processor time, user and system
  std::size_t peak_bytes = 0;  // the most resident memory beyond what there was at the start
};

// The work to be measured; false when it went wrong. What it makes it leaves to the process's end:
// freeing is not measured unless it is part of the work.
using Work = std::function<bool()>;

// Calls `prepare` in a new process and measures there the work that it returns, so that every run
// starts with the same fresh memory. Ends the program when the work went wrong.
[[nodiscard]] Cost MeasuredRun(const std::function<Work()>& prepare);

}  // namespace tallyfold::benchmarks
