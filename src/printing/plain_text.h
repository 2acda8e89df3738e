#pragma once

#include <cstddef>
#include <string>

#include "printing/page.h"
#include "printing/paper.h"
#include "printing/text_metric.h"

namespace tallyfold {

// Pages in fixed pitch: a point is one character wide and one line high. Rules take a line.
class FixedPitchMetric final : public TextMetric {
 public:
  [[nodiscard]] double Width(std::string_view text, TextStyle style) const override;
  [[nodiscard]] double LineHeight(TextStyle style) const override;
  [[nodiscard]] double RuleHeight() const override;
  [[nodiscard]] double ColumnGap() const override;
};

// Letter paper at ten characters and six lines an inch, without margins: 80 by 60, or 105 by 45.
[[nodiscard]] Paper PlainTextPaper() noexcept;

// A page that was made with that metric: its lines, each with a line feed, without blanks at their
// ends. Rules are rows of "-", heavy ones of "=", hair rules nothing, bars of "#", as far as they
// are half a character wide. What does not fit beside what stands to its left moves to the right.
[[nodiscard]] std::string PageAsText(const Page& page);

}  // namespace tallyfold
