#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "printing/text_metric.h"

namespace tallyfold {

// Texts of records made to fit a place on paper.

// The text on one line: line ends, tabs and other control characters become blanks, bytes that are
// no UTF-8 become U+FFFD.
[[nodiscard]] std::string OnOneLine(std::string_view text);

// A text without line ends as it is where it is at most `width` points wide, else as many whole
// characters of its beginning as fit before an ellipsis. Where not even that fits, "".
[[nodiscard]] std::string Shortened(std::string_view text, double width, TextStyle style,
                                    const TextMetric& metric);

// The text in lines of at most `width` points, broken at its line ends and between words, within a
// word only where it does not fit on a line of its own. Nothing is lost but blanks where a line
// breaks, and empty lines at the end. A line has at least one character.
[[nodiscard]] std::vector<std::string> Wrapped(std::string_view text, double width, TextStyle style,
                                               const TextMetric& metric);

// The greatest width of the texts with the widest digit in place of each of their digits: no other
// text of their shapes is wider.
[[nodiscard]] double WidestWidth(const std::vector<std::string>& texts, TextStyle style,
                                 const TextMetric& metric);

}  // namespace tallyfold
