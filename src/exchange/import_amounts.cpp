#include "exchange/import_amounts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace tallyfold {
namespace {

// Marks between groups of digits that reading drops, whatever the separators.
constexpr std::string_view kGroupMarks[] = {" ", "\t", "\u00A0", "\u2009", "\u202F", "'", "\u2019"};
// Signs that reading drops: hyphens and dashes, the minus of mathematics, parentheses.
constexpr std::string_view kDroppedSigns[] = {"\u2010", "\u2011", "\u2012", "\u2013", "\u2014",
                                              "\u2015", "\u2212", "(",      ")"};

bool IsDigit(char character) noexcept {
  return character >= '0' && character <= '9';
}

bool IsLetter(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// Goes over an amount once, from its front.
class AmountWalk {
 public:
  AmountWalk(std::string_view text, const ImportSeparators& separators) noexcept
      : rest_(text), separators_(separators) {}

  void Run(ImportDoubtSet& doubts) noexcept {
    while (!rest_.empty()) Step();
    CloseNumber();
    if (has_other_separators_) doubts.Add(ImportDoubtKind::AmountSeparators);
    if (has_dropped_sign_) doubts.Add(ImportDoubtKind::AmountSign);
  }

 private:
  bool Take(std::string_view mark) noexcept {
    if (mark.empty() || !rest_.starts_with(mark)) return false;
    rest_.remove_prefix(mark.size());
    return true;
  }

  template <std::size_t size>
  bool TakeAnyOf(const std::string_view (&marks)[size]) noexcept {
    return std::any_of(std::begin(marks), std::end(marks),
                       [this](std::string_view mark) { return Take(mark); });
  }

  // In the order in which an amount is cleaned.
  void Step() noexcept {
    const char first = rest_.front();
    if (Take(separators_.thousands)) return TakeThousands();
    // A point is one whatever the separator.
    if (Take(separators_.decimal) || Take(".")) return TakeDecimal();
    if (IsDigit(first)) {
      rest_.remove_prefix(1);
      return TakeDigit(first);
    }
    if (first == '-') {
      rest_.remove_prefix(1);
      if (HasDigits()) has_dropped_sign_ = true;
      return;
    }
    if (TakeAnyOf(kGroupMarks)) {
      if (HasDigits()) has_gap_ = true;
      return;
    }
    if (TakeAnyOf(kDroppedSigns)) {
      has_dropped_sign_ = true;
      return;
    }
    rest_.remove_prefix(1);
    follows_letter_ = IsLetter(first);
    if (HasDigits()) is_over_ = true;
  }

  void TakeDigit(char digit) noexcept {
    if (is_over_) has_other_separators_ = true;
    if (has_gap_) {
      has_gap_ = false;
      if (has_decimal_) {
        has_other_separators_ = true;
      } else {
        CloseGroup();
      }
    }
    if (!has_decimal_) {
      if (whole_digits_ == 0) begins_with_zero_ = digit == '0';
      ++whole_digits_;
      ++group_digits_;
      return;
    }
    ++decimals_;
    if (decimals_ > 2 && digit != '0') has_other_separators_ = true;
  }

  void TakeThousands() noexcept {
    if (!HasDigits() || has_decimal_) {
      has_other_separators_ = true;
    } else {
      CloseGroup();
    }
  }

  void TakeDecimal() noexcept {
    // The point of an abbreviated currency, as in "Rs. 50", counts as the decimal one.
    const bool is_bare = !HasDigits() && (follows_letter_ || rest_.empty() || !IsDigit(rest_[0]));
    if (has_decimal_ || is_over_ || is_bare) has_other_separators_ = true;
    has_decimal_ = true;
  }

  // The digits before a separator of thousands are complete.
  void CloseGroup() noexcept {
    const bool fits = is_grouped_ ? group_digits_ == 3 : group_digits_ >= 1 && group_digits_ <= 3;
    if (!fits) has_other_separators_ = true;
    is_grouped_ = true;
    group_digits_ = 0;
  }

  void CloseNumber() noexcept {
    if (is_grouped_ && group_digits_ != 3) has_other_separators_ = true;
    const bool may_be_thousands = decimals_ == 3 && !is_grouped_ && whole_digits_ >= 1 &&
                                  whole_digits_ <= 3 && !begins_with_zero_;
    if (may_be_thousands) has_other_separators_ = true;
  }

  [[nodiscard]] bool HasDigits() const noexcept { return whole_digits_ + decimals_ > 0; }

  std::string_view rest_;
  const ImportSeparators& separators_;
  std::size_t whole_digits_ = 0;
  std::size_t group_digits_ = 0;
  std::size_t decimals_ = 0;
  bool begins_with_zero_ = false;
  bool is_grouped_ = false;
  bool has_decimal_ = false;
  bool has_gap_ = false;
  bool is_over_ = false;  // something else stood behind the digits
  bool follows_letter_ = false;
  bool has_other_separators_ = false;
  bool has_dropped_sign_ = false;
};

}  // namespace

void LookAtAmount(std::string_view text, const ImportSeparators& separators,
                  ImportDoubtSet& doubts) noexcept {
  AmountWalk(text, separators).Run(doubts);
}

}  // namespace tallyfold
