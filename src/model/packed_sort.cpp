#include "model/packed_sort.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace tallyfold {
namespace {

// Below this the passes cost more than comparing.
constexpr std::size_t kFewKeys = 256;

using Part = std::uint64_t PackedKey::*;
using Keys = std::span<PackedKey>;

// One pass of a radix sort: stably by one byte, from `keys` into `target`.
void SortByByte(Keys keys, Part part, unsigned shift, Keys target) {
  const auto byte_of = [part, shift](const PackedKey& key) {
    return static_cast<std::size_t>((key.*part) >> shift & 0xFFU);
  };
  std::array<std::uint32_t, 256> next{};
  for (const PackedKey& key : keys) ++next[byte_of(key)];
  std::uint32_t start = 0;
  for (std::uint32_t& count : next) start += std::exchange(count, start);
  for (const PackedKey& key : keys) target[next[byte_of(key)]++] = key;
}

// Each pass swaps `keys` and `scratch`.
void SortByPart(Keys& keys, Part part, Keys& scratch) {
  std::uint64_t differing = 0;
  for (const PackedKey& key : keys) differing |= key.*part ^ keys.front().*part;
  for (unsigned shift = 0; shift < 64; shift += 8) {
    if ((differing >> shift & 0xFFU) == 0) continue;
    SortByByte(keys, part, shift, scratch);
    std::swap(keys, scratch);
  }
}

}  // namespace

void SortPacked(Keys keys) {
  if (keys.size() < kFewKeys) {
    std::stable_sort(keys.begin(), keys.end(), [](const PackedKey& a, const PackedKey& b) {
      return a.high != b.high ? a.high < b.high : a.low < b.low;
    });
    return;
  }
  std::vector<PackedKey> other(keys.size());
  Keys sorted = keys;
  Keys scratch = other;
  SortByPart(sorted, &PackedKey::low, scratch);
  SortByPart(sorted, &PackedKey::high, scratch);
  if (sorted.data() != keys.data()) std::ranges::copy(sorted, keys.begin());
}

}  // namespace tallyfold
