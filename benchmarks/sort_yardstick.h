#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace tallyfold::benchmarks {

inline constexpr std::size_t kSortedKeys = 100'000;

using Seconds = std::chrono::duration<double>;

template <typename Work>
[[nodiscard]] double SecondsFor(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return Seconds(std::chrono::steady_clock::now() - start).count();
}

struct Key {
  std::uint64_t value;
  std::uint32_t index;
};

// What sorting rows costs at least where everything is prepared and nothing is in order.
[[nodiscard]] inline double SortReadyKeys() {
  static const std::vector<Key> ready = [] {
    std::mt19937_64 random(3);
    std::vector<Key> keys(kSortedKeys);
    for (std::uint32_t i = 0; i < kSortedKeys; ++i) keys[i] = {random(), i};
    return keys;
  }();
  std::vector<Key> keys = ready;
  return SecondsFor([&keys] {
    std::stable_sort(keys.begin(), keys.end(),
                     [](const Key& a, const Key& b) { return a.value < b.value; });
    benchmark::DoNotOptimize(keys.data());
  });
}

}  // namespace tallyfold::benchmarks
