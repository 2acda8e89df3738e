#include "model/packed_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace tallyfold {
namespace {

TEST(PackedSort, IsStableForFewAndManyKeys) {
  std::mt19937_64 random(1);
  for (const std::uint32_t count : {0U, 1U, 200U, 5000U}) {
    for (const std::uint64_t mask : {~std::uint64_t{0}, std::uint64_t{0x0F00'0000'00FF'0003}}) {
      std::vector<PackedKey> keys;
      for (std::uint32_t i = 0; i < count; ++i) keys.push_back({random() & 3U, random() & mask, i});
      std::vector<PackedKey> expected = keys;
      std::stable_sort(expected.begin(), expected.end(), [](const auto& a, const auto& b) {
        return std::pair(a.high, a.low) < std::pair(b.high, b.low);
      });
      SortPacked(keys);
      EXPECT_TRUE(std::ranges::equal(keys, expected, {}, &PackedKey::index, &PackedKey::index))
          << count;
    }
  }
}

TEST(PackedSort, PacksNumbersInTheirOrder) {
  using Limits = std::numeric_limits<double>;
  const std::vector<double> amounts = {Limits::quiet_NaN(),
                                       -Limits::infinity(),
                                       -1e300,
                                       -2.5,
                                       -Limits::denorm_min(),
                                       0.0,
                                       Limits::denorm_min(),
                                       2.5,
                                       Limits::infinity()};
  for (std::size_t i = 1; i < amounts.size(); ++i) {
    EXPECT_LT(InOrder(amounts[i - 1]), InOrder(amounts[i])) << i;
  }
  EXPECT_EQ(InOrder(-0.0), InOrder(0.0));
  const std::vector<std::int32_t> numbers = {std::numeric_limits<std::int32_t>::min(), -1, 0, 1,
                                             std::numeric_limits<std::int32_t>::max()};
  for (std::size_t i = 1; i < numbers.size(); ++i) {
    EXPECT_LT(InOrder(numbers[i - 1]), InOrder(numbers[i])) << i;
  }
}

}  // namespace
}  // namespace tallyfold
