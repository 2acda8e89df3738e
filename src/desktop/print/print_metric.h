#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "printing/page.h"
#include "printing/text_metric.h"

namespace tallyfold::desktop {

// The fonts of printed pages and what texts take in them. Everything is measured in units of which
// a point has sixteen, fine as a printer's dots, and drawn in the same units, whatever the device:
// so that pages come out on a screen, on paper and in a file as they were laid out.
class PrintMetric final : public TextMetric {
 public:
  static constexpr int kUnitsPerPoint = 16;

  // Of that family; its size has no effect.
  explicit PrintMetric(const QFont& font);
  PrintMetric(const PrintMetric&) = delete;
  PrintMetric& operator=(const PrintMetric&) = delete;

  // In points.
  [[nodiscard]] double Width(std::string_view text, TextStyle style) const override;
  [[nodiscard]] double LineHeight(TextStyle style) const override;
  [[nodiscard]] double RuleHeight() const override;
  [[nodiscard]] double ColumnGap() const override;

  // As a text is drawn and measured: an amount has a minus in place of its hyphen. Digits keep
  // their own widths, where those differ too: set apart they would be read out of a file with
  // blanks in between.
  [[nodiscard]] static QString Shown(std::string_view text);
  [[nodiscard]] const QFont& FontOf(TextStyle style) const { return InkOf(style).font; }
  // From the top of a line to the baseline, in units.
  [[nodiscard]] double Baseline(TextStyle style) const;

 private:
  struct Ink {
    explicit Ink(const QFont& of) : font(of), metrics(of) {}

    QFont font;
    QFontMetricsF metrics;
    // Of single characters, which texts that are broken or shortened ask for one by one.
    mutable std::unordered_map<std::string, double> characters = {};
  };

  [[nodiscard]] const Ink& InkOf(TextStyle style) const {
    return inks_[static_cast<std::size_t>(style)];
  }

  std::vector<Ink> inks_;  // by style
};

}  // namespace tallyfold::desktop
