#pragma once

#include <cstdint>
#include <span>

namespace tallyfold {

// Sort short lists of numbers in place, ascending, by exchanging neighbours of which the later is
// strictly smaller: equal numbers keep their order, and what not-a-number does to a list is
// defined. The time grows with the square of the length.
// Part of the ledger's interface; the program itself sorts otherwise.
void BubbleSort_Long(std::span<std::int32_t> values) noexcept;
void BubbleSort_Float(std::span<float> values) noexcept;
void BubbleSort_Double(std::span<double> values) noexcept;

}  // namespace tallyfold
