#pragma once

#include <string_view>

#include "model/display_width.h"
#include "printing/text_metric.h"

namespace tallyfold {

// A proportional font from a table: narrow and broad letters, digits of two widths, bold and large
// styles, and letters that draw together.
class DrawnMetric final : public TextMetric {
 public:
  [[nodiscard]] double Width(std::string_view text, TextStyle style) const override {
    double width = 0.0;
    for (std::string_view rest = text; !rest.empty();) {
      const std::string_view character = TakeCharacter(rest);
      width += WidthOf(character);
      if (character == "f" && rest.starts_with('i')) width -= 0.5;
    }
    return width * Scale(style);
  }
  [[nodiscard]] double LineHeight(TextStyle style) const override {
    return style == TextStyle::Title ? 21.6 : 13.2;
  }
  [[nodiscard]] double RuleHeight() const override { return 3.5; }
  [[nodiscard]] double ColumnGap() const override { return 7.0; }

 private:
  static double WidthOf(std::string_view character) {
    constexpr std::string_view kNarrow = "1ijl.,;:' !|()-";
    constexpr std::string_view kBroad = "MWm@…";
    if (character.size() > 1 && DisplayWidth(character) == 2) return 10.0;
    if (kNarrow.find(character) != std::string_view::npos) return 2.8;
    if (kBroad.find(character) != std::string_view::npos) return 8.3;
    return 5.6;
  }
  static double Scale(TextStyle style) {
    return style == TextStyle::Title ? 1.6 : style == TextStyle::Strong ? 1.1 : 1.0;
  }
};

}  // namespace tallyfold
