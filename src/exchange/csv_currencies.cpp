#include "exchange/csv_currencies.h"

#include <algorithm>

namespace tallyfold {

std::uint8_t CsvCurrencies::NumberOf(std::string_view currency) {
  constexpr std::size_t kMostTold = 64;
  for (std::size_t i = 0; i < known_.size(); ++i) {
    if (known_[i].first == currency) return static_cast<std::uint8_t>(i + 1);
  }
  if (known_.size() == kMostTold) return kSeveral;
  known_.emplace_back(currency, 0);
  return static_cast<std::uint8_t>(known_.size());
}

std::uint8_t CsvCurrencies::With(std::uint8_t before, std::string_view currency) {
  const std::uint8_t number = NumberOf(currency);
  return before == kNone || before == number ? number : kSeveral;
}

void CsvCurrencies::Count(std::string_view currency) {
  if (currency.empty()) return;
  const std::uint8_t number = NumberOf(currency);
  if (number != kSeveral) ++known_[number - std::size_t{1}].second;
}

std::uint8_t CsvCurrencies::Main() const noexcept {
  const auto most =
      std::max_element(known_.begin(), known_.end(),
                       [](const auto& a, const auto& b) { return a.second < b.second; });
  if (most == known_.end() || most->second == 0) return kNone;
  return static_cast<std::uint8_t>(most - known_.begin() + 1);
}

std::string_view CsvCurrencies::Name(std::uint8_t number) const noexcept {
  if (number == kNone || number > known_.size()) return {};
  return known_[number - std::size_t{1}].first;
}

}  // namespace tallyfold
