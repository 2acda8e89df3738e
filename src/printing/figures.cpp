#include "printing/figures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "model/date_format.h"
#include "registers/register_look.h"

namespace tallyfold {

PrintedFigures::PrintedFigures(const LDGRPreferences& preferences)
    : date_format_(RegisterDateFormat(preferences)) {
  preferences_.SetAmountFormat(preferences.GetAmountFormat());
  preferences_.SetShowCurrencySymbol(preferences.GetShowCurrencySymbol());
  preferences_.SetItalicizeFutureEntries(preferences.GetItalicizeFutureEntries());
}

std::string PrintedFigures::Date(DateNumber day) const {
  return FormatDate(DateNumberToNSCalendarDate(day), date_format_);
}

std::string PrintedFigures::Amount(double amount) const {
  return RegisterAmountText(amount, preferences_);
}

void AmountShapes::Add(double amount) noexcept {
  if (!std::isfinite(amount)) {
    are_finite_ = false;
    return;
  }
  least_ = std::min(least_, amount);
  greatest_ = std::max(greatest_, amount);
}

std::vector<std::string> AmountShapes::Samples(const PrintedFigures& figures) const {
  std::vector<std::string> samples = {figures.Amount(least_), figures.Amount(greatest_)};
  if (!are_finite_) samples.push_back(figures.Amount(-std::numeric_limits<double>::infinity()));
  return samples;
}

void DateShapes::Add(DateNumber day) noexcept {
  first_ = std::min(first_, day);
  last_ = std::max(last_, day);
}

// Names of months and weekdays differ in width, so that there is a day for each pair of them.
std::vector<std::string> DateShapes::Samples(const PrintedFigures& figures) const {
  constexpr DateNumber kYear = 20000000;
  TextShapes shapes;
  shapes.Add(figures.Date(first_));
  shapes.Add(figures.Date(last_));
  for (DateNumber month = 100; month <= 1200; month += 100) {
    for (DateNumber day = 20; day < 27; ++day) shapes.Add(figures.Date(kYear + month + day));
  }
  return shapes.Samples();
}

void TextShapes::Add(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c >= '0' && c <= '9'; }, '0');
  shapes_.insert(std::move(text));
}

}  // namespace tallyfold
