#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace tallyfold::benchmarks {

// The yardstick of what reads a file to be imported: looks for the line ends of the same bytes.
inline void ScanLineEnds(benchmark::State& state, std::string_view text) {
  for ([[maybe_unused]] auto _ : state) {
    std::size_t lines = 0;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data();
         (at = static_cast<const char*>(
              std::memchr(at, '\n', static_cast<std::size_t>(end - at)))) != nullptr;
         ++at) {
      ++lines;
    }
    benchmark::DoNotOptimize(lines);
  }
  state.counters["bytes"] = static_cast<double>(text.size());
}

}  // namespace tallyfold::benchmarks
