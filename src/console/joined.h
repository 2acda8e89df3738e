#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace tallyfold::console {

// A file may name thousands of things; the first ones tell enough.
inline constexpr std::size_t kMostNames = 20;

// "a, b, c and 7 more": what `text` makes of the elements of a list, its first ones alone where it
// is long.
template <typename List, typename Text>
[[nodiscard]] std::string Joined(const List& list, Text text) {
  std::string joined;
  const std::size_t shown = std::min(list.size(), kMostNames);
  for (std::size_t i = 0; i < shown; ++i) {
    joined += (i == 0 ? "" : ", ") + std::string(text(list[i]));
  }
  const std::size_t left = list.size() - shown;
  return left == 0 ? joined : joined + " and " + std::to_string(left) + " more";
}

}  // namespace tallyfold::console
