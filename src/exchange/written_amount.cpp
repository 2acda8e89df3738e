#include "exchange/written_amount.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "exchange/ascii.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

constexpr std::size_t kMostDigits = 18;

constexpr std::string_view kGroupBlanks[] = {" ",      "\t", "\u00A0", "\u2009",
                                             "\u202F", "'",  "\u2019"};
constexpr std::string_view kMinusSigns[] = {"-", "\u2212", "\u2010", "\u2011", "\u2012", "\u2013"};

// Goes over the text once.
class AmountScan {
 public:
  explicit AmountScan(std::string_view text) noexcept : rest_(text) {}

  WrittenAmount Run() noexcept {
    while (!rest_.empty() && fits_) Step();
    if (count_ == 0) {
      written_.is_blank = fits_ && letters_ == 0 && foreign_ == 0 && written_.last_separator == 0;
      return written_;
    }
    if (is_grouped_ && written_.last_separator == 0 && !IsWholeGroup()) fits_ = false;
    CloseNumber();
    written_.is_blank = false;
    written_.is_amount = fits_ && count_ <= kMostDigits;
    return written_;
  }

 private:
  template <std::size_t size>
  bool TakeAnyOf(const std::string_view (&marks)[size]) noexcept {
    for (const std::string_view mark : marks) {
      if (!rest_.starts_with(mark)) continue;
      rest_.remove_prefix(mark.size());
      return true;
    }
    return false;
  }

  void Step() noexcept {
    const char first = rest_.front();
    if (IsAsciiDigit(first)) return TakeDigit(first);
    if (first == '.' || first == ',') return TakeSeparator(first);
    if (TakeAnyOf(kGroupBlanks)) {
      has_gap_ = true;
      return;
    }
    if (TakeAnyOf(kMinusSigns)) return TakeSign(true);
    if (first == '+') {
      rest_.remove_prefix(1);
      return TakeSign(false);
    }
    if (first == '(' || first == ')') {
      rest_.remove_prefix(1);
      if (first == '(') TakeSign(true);
      return;
    }
    if (IsAsciiLetter(first)) return TakeLetters();
    TakeOther();
  }

  void TakeDigit(char digit) noexcept {
    rest_.remove_prefix(1);
    // Digits behind a word or a sign are another number.
    if (is_over_) fits_ = false;
    if (has_gap_ && count_ > 0) {
      // Groups of thousands stand before the cents.
      if (written_.last_separator != 0 || !IsWholeGroup()) fits_ = false;
      is_grouped_ = true;
      group_ = 0;
    }
    ++group_;
    has_gap_ = false;
    if (++count_ > kMostDigits) {
      fits_ = false;
      return;
    }
    if (count_ == 1) begins_with_zero_ = digit == '0';
    written_.digits = written_.digits * 10 + (digit - '0');
    if (written_.last_separator != 0) {
      ++written_.behind_separator;
    } else {
      ++before_;
    }
  }

  void TakeSeparator(char separator) noexcept {
    rest_.remove_prefix(1);
    // The point of "Fr." and "kr." is none.
    if (letters_ > 0 && (count_ == 0 || is_over_)) return;
    if (is_over_ || (is_grouped_ && separators_ == 0 && !IsWholeGroup())) {
      fits_ = false;
      return;
    }
    if (separators_ > 0 && written_.last_separator != separator) {
      // "1.234,567.8": no number.
      if (is_mixed_) fits_ = false;
      is_mixed_ = true;
      if (written_.behind_separator != 3) fits_ = false;
    } else if (separators_ > 0) {
      is_repeated_ = true;
      if (is_mixed_ || written_.behind_separator != 3) fits_ = false;
    }
    ++separators_;
    written_.last_separator = separator;
    written_.behind_separator = 0;
    has_gap_ = false;
  }

  void TakeSign(bool is_minus) noexcept {
    if (count_ > 0) is_over_ = true;
    // "12-50" and "--" before a number are nothing that an amount is written as.
    if (written_.has_sign) {
      if (count_ > 0) fits_ = false;
      return;
    }
    written_.has_sign = true;
    written_.is_negative = is_minus;
  }

  // A currency, or a mark of debit or credit behind the number.
  void TakeLetters() noexcept {
    constexpr std::size_t kMost = 4;
    std::size_t size = 0;
    while (size < rest_.size() && IsAsciiLetter(rest_[size])) ++size;
    const std::string_view word = rest_.substr(0, size);
    rest_.remove_prefix(size);
    letters_ += size;
    if (size > kMost) fits_ = false;
    if (count_ == 0) return;
    is_over_ = true;
    const auto is = [word](std::string_view upper, std::string_view lower) {
      return word == upper || word == lower;
    };
    if (written_.has_sign) return;
    if (is("DR", "dr") || is("D", "d")) TakeSign(true);
    if (is("CR", "cr") || is("C", "c")) TakeSign(false);
  }

  // "€", "$", "zł" and the like.
  void TakeOther() noexcept {
    constexpr std::size_t kMost = 8;
    const char first = rest_.front();
    rest_.remove_prefix(1);
    if (first != '$' && static_cast<unsigned char>(first) < 0x80) fits_ = false;
    if (++foreign_ > kMost) fits_ = false;
    if (count_ > 0) is_over_ = true;
  }

  // Of digits that a blank or an apostrophe sets apart.
  [[nodiscard]] bool IsWholeGroup() const noexcept {
    return is_grouped_ ? group_ == 3 : group_ >= 1 && group_ <= 3;
  }

  void CloseNumber() noexcept {
    const std::size_t behind = written_.behind_separator;
    const auto of = [](char separator) {
      return separator == '.' ? WrittenAmount::Decimal::Point : WrittenAmount::Decimal::Comma;
    };
    if (separators_ == 0) return;
    const char last = written_.last_separator;
    const char other = last == '.' ? ',' : '.';
    if (is_mixed_) {
      written_.decimal = of(last);
    } else if (is_repeated_) {
      if (behind != 3) fits_ = false;
      written_.decimal = of(other);
    } else if (behind == 3 && before_ >= 1 && before_ <= 3 && !begins_with_zero_ && !is_grouped_) {
      written_.decimal = WrittenAmount::Decimal::Undecided;
    } else {
      written_.decimal = of(last);
    }
  }

  std::string_view rest_;
  WrittenAmount written_;
  std::size_t count_ = 0;   // digits
  std::size_t group_ = 0;   // of them since the last gap
  std::size_t before_ = 0;  // of them before any separator
  std::size_t separators_ = 0;
  std::size_t letters_ = 0;
  std::size_t foreign_ = 0;
  bool begins_with_zero_ = false;
  bool has_gap_ = false;
  bool is_grouped_ = false;
  bool is_mixed_ = false;
  bool is_repeated_ = false;
  bool is_over_ = false;  // the number has ended
  bool fits_ = true;
};

// "-1234,50": digits with a sign and two decimals, or none, as most are written.
bool ReadPlain(std::string_view text, WrittenAmount& written) noexcept {
  constexpr std::size_t kMost = 15;
  std::size_t place = 0;
  const bool has_sign = !text.empty() && (text[0] == '-' || text[0] == '+');
  if (has_sign) ++place;
  if (place == text.size() || text.size() > kMost || !IsAsciiDigit(text[place])) return false;
  std::int64_t digits = 0;
  for (; place < text.size() && IsAsciiDigit(text[place]); ++place) {
    digits = digits * 10 + (text[place] - '0');
  }
  if (place < text.size()) {
    const char separator = text[place];
    const bool is_short = text.size() - place == 3 && IsAsciiDigit(text[place + 1]);
    if (!is_short || !IsAsciiDigit(text[place + 2]) || (separator != '.' && separator != ',')) {
      return false;
    }
    digits = digits * 100 + (text[place + 1] - '0') * 10 + (text[place + 2] - '0');
    written.behind_separator = 2;
    written.last_separator = separator;
    written.decimal =
        separator == '.' ? WrittenAmount::Decimal::Point : WrittenAmount::Decimal::Comma;
  }
  written.digits = digits;
  written.is_amount = true;
  written.is_blank = false;
  written.has_sign = has_sign;
  written.is_negative = has_sign && text[0] == '-';
  return true;
}

}  // namespace

WrittenAmount ReadWrittenAmount(std::string_view text) noexcept {
  WrittenAmount written;
  ReadWrittenAmount(text, written);
  return written;
}

void ReadWrittenAmount(std::string_view text, WrittenAmount& written) noexcept {
  constexpr std::size_t kLongest = 100;
  if (text.size() > kLongest) {
    written.is_blank = false;
  } else if (!text.empty() && !ReadPlain(text, written)) {
    written = AmountScan(text).Run();
  }
}

void NoteLargeAmount(double amount, ImportDoubtSet& doubts) noexcept {
  if (!IsAmount(amount)) doubts.Add(ImportDoubtKind::LargeAmount);
}

std::optional<double> ReadPlainAmount(std::string_view text, ImportDoubtSet& doubts) noexcept {
  const WrittenAmount written = ReadWrittenAmount(text);
  if (written.is_blank) {
    doubts.Add(ImportDoubtKind::MissingAmount);
    return std::nullopt;
  }
  const auto value = written.Value(written.last_separator);
  if (!value) {
    doubts.Add(ImportDoubtKind::UnreadAmount);
    return std::nullopt;
  }
  if (written.decimal == WrittenAmount::Decimal::Undecided) {
    doubts.Add(ImportDoubtKind::AmountSeparators);
  }
  NoteLargeAmount(*value, doubts);
  return value;
}

}  // namespace tallyfold
