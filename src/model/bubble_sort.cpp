#include "model/bubble_sort.h"

#include <cstddef>
#include <utility>

namespace tallyfold {
namespace {

template <typename Number>
void BubbleSort(std::span<Number> values) noexcept {
  for (std::size_t unsorted = values.size(); unsorted > 1; --unsorted) {
    for (std::size_t i = 0; i + 1 < unsorted; ++i) {
      if (values[i + 1] < values[i]) std::swap(values[i], values[i + 1]);
    }
  }
}

}  // namespace

void BubbleSort_Long(std::span<std::int32_t> values) noexcept {
  BubbleSort(values);
}

void BubbleSort_Float(std::span<float> values) noexcept {
  BubbleSort(values);
}

void BubbleSort_Double(std::span<double> values) noexcept {
  BubbleSort(values);
}

}  // namespace tallyfold
