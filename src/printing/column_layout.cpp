#include "printing/column_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "printing/text_fitting.h"

namespace tallyfold {
namespace {

// Sums of parts miss the whole by rounding errors.
constexpr double kTolerance = 1e-6;

// How many times what a column wants it counts at most when width is dealt out.
constexpr double kMostShare = 2.0;

// A letter of middling width stands for any.
double WidthOfCharacters(std::size_t count, const TextMetric& metric) {
  return static_cast<double>(count) * metric.Width("n", TextStyle::Body);
}

// Totals are strong, entries to come italic: a column must take each.
double WidestSample(const std::vector<std::string>& samples, const TextMetric& metric) {
  double width = 0.0;
  for (const TextStyle style : {TextStyle::Body, TextStyle::Strong, TextStyle::Italic}) {
    width = std::max(width, WidestWidth(samples, style, metric));
  }
  return std::ceil(width);
}

}  // namespace

ColumnLayout::ColumnLayout(const std::vector<PrintColumn>& columns, const TextMetric& metric)
    : gap_(metric.ColumnGap()) {
  for (const PrintColumn& column : columns) {
    const double title = std::ceil(metric.Width(OnOneLine(column.title), TextStyle::ColumnTitle));
    const double natural = std::max(title, WidestSample(column.samples, metric));
    Needs needs{0.0, natural, natural, natural, column.takes_rest};
    if (column.is_elastic) {
      const double wanted = std::ceil(WidthOfCharacters(column.wanted, metric));
      const double least = std::ceil(WidthOfCharacters(column.least, metric));
      if (column.samples.empty()) needs.most = std::numeric_limits<double>::infinity();
      needs.least = std::max(title, std::min(needs.most, least));
      needs.wanted = std::max(needs.least, std::min(needs.most, wanted));
      // One very long text does not take the room of all others.
      needs.share =
          column.samples.empty() ? needs.wanted : std::min(needs.most, kMostShare * needs.wanted);
      needs.share = std::max(needs.share, 1.0);
    }
    const double gap = columns_.empty() ? 0.0 : gap_;
    least_ += gap + needs.least;
    wanted_ += gap + needs.wanted;
    columns_.push_back(needs);
  }
}

// Deals the width out by shares, within what each column needs and can use. Columns that come to a
// limit are settled there, and the rest is dealt out anew: first those below their least width or
// those above their most, whichever weighs more. Whole points; what is over goes to the column that
// takes the rest.
std::vector<double> ColumnLayout::Widths(double width) const {
  std::vector<double> widths;
  std::vector<std::size_t> open;
  double left = width - gap_ * static_cast<double>(columns_.empty() ? 0 : columns_.size() - 1);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    widths.push_back(columns_[i].least);
    if (columns_[i].share > 0.0) {
      open.push_back(i);
    } else {
      left -= columns_[i].least;
    }
  }
  while (!open.empty()) {
    double shares = 0.0;
    for (const std::size_t i : open) shares += columns_[i].share;
    const auto part = [&](std::size_t i) { return left * columns_[i].share / shares; };
    double surplus = 0.0;
    for (const std::size_t i : open) {
      widths[i] = std::clamp(part(i), columns_[i].least, columns_[i].most);
      surplus += widths[i] - part(i);
    }
    std::vector<std::size_t> unsettled;
    double settled = 0.0;
    for (const std::size_t i : open) {
      const double excess = widths[i] - part(i);
      if (surplus > 0.0 ? excess > 0.0 : surplus < 0.0 ? excess < 0.0 : true) {
        settled += widths[i];
      } else {
        unsettled.push_back(i);
      }
    }
    left -= settled;
    open = std::move(unsettled);
  }
  double over = left;
  for (double& column : widths) {
    over += column - std::floor(column);
    column = std::floor(column);
  }
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (!columns_[i].takes_rest) continue;
    widths[i] += std::floor(over + kTolerance);
    break;
  }
  return widths;
}

std::vector<PlacedColumn> ColumnLayout::Placed(double width) const {
  std::vector<PlacedColumn> placed;
  double x = 0.0;
  for (const double column : Widths(width)) {
    placed.push_back({x, column});
    x += column + gap_;
  }
  return placed;
}

}  // namespace tallyfold
