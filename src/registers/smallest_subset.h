#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tallyfold {

// The indexes, ascending, of the fewest amounts that together make `total`: at least two and at
// most `most` of them. None when there are none, when as few amounts make it in another way too,
// and when that cannot be told within a bounded number of steps, which take some tens of
// milliseconds. Up to 32 amounts are searched to the end; of more, sets of two always, of three up
// to some thousand amounts, of four up to some hundred.
//
// Sums must stay within 64 bits.
[[nodiscard]] std::optional<std::vector<std::size_t>> SmallestSubset(
    std::span<const std::int64_t> amounts, std::int64_t total, std::size_t most);

}  // namespace tallyfold
