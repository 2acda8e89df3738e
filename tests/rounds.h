#pragma once

namespace tallyfold {

// How many of so many random rounds a test plays. Under sanitizers, where each takes five times as
// long, it is a quarter of them: the sanitizers look at the same code in each, and the build
// without them plays all.
[[nodiscard]] constexpr int Rounds(int all) noexcept {
#ifdef TALLYFOLD_SANITIZED
  return (all + 3) / 4;
#else
  return all;
#endif
}

}  // namespace tallyfold
