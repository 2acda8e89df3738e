#pragma once

#include <string_view>

#include "printing/page.h"

namespace tallyfold {

// How much room texts take, in points. The answers must not change while pages are made.
class TextMetric {
 public:
  virtual ~TextMetric() = default;
  // `text` is UTF-8 without line ends, set on one line.
  [[nodiscard]] virtual double Width(std::string_view text, TextStyle style) const = 0;
  // From line to line. Above 0.
  [[nodiscard]] virtual double LineHeight(TextStyle style) const = 0;
  // Of the band in whose middle a rule is drawn.
  [[nodiscard]] virtual double RuleHeight() const = 0;
  // Between two columns.
  [[nodiscard]] virtual double ColumnGap() const = 0;
};

}  // namespace tallyfold
