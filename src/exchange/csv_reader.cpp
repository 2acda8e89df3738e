#include "exchange/csv_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/csv_amounts.h"
#include "exchange/csv_layout.h"
#include "exchange/statement_texts.h"
#include "exchange/table_reader.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

constexpr std::size_t kNoRow = SIZE_MAX;

// Cheap, and true for every text that NamesBalance() in a row with a day: by how it begins.
bool MayNameBalance(std::string_view text) noexcept {
  // By the first letter a bit for each second one.
  constexpr auto kSeconds = [] {
    constexpr std::string_view kStarts = "baopclbeenkosaanalnenoubsoeita";
    std::array<std::uint32_t, 26> seconds{};
    for (std::size_t i = 0; i < kStarts.size(); i += 2) {
      seconds[static_cast<std::size_t>(kStarts[i] - 'a')] |= 1U << (kStarts[i + 1] - 'a');
    }
    return seconds;
  }();
  if (text.size() < 2) return false;
  if (text.front() == '\xC3') return true;  // an umlaut
  const auto letter = [](char each) { return (static_cast<unsigned char>(each) | 0x20U) - 'a'; };
  const std::size_t first = letter(text[0]);
  const std::size_t second = letter(text[1]);
  return first < kSeconds.size() && second < 26 && ((kSeconds[first] >> second) & 1U) != 0;
}

// Whether the cells are read as they stand, and not as days or amounts.
bool IsText(CsvField field) noexcept {
  return field >= CsvField::Payee;
}

class CsvReader {
 public:
  CsvReader(std::string_view text, const CsvChoices& choices, StatementFile& file)
      : choices_(choices),
        file_(file),
        delimiter_(DelimiterOf(text, choices)),
        rows_(TableBody(text), delimiter_),
        heading_(HeadingRow(rows_, choices)),
        fields_(ColumnsOf(rows_, heading_, choices, file.questions)),
        columns_(fields_) {
    reading_.choices.delimiter = delimiter_;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (IsText(fields_[i])) text_columns_.push_back(i);
    }
  }

  CsvReading Run() {
    TellLayout();
    reading_.lacks_days = !columns_.day && !columns_.value_day;
    reading_.lacks_amounts = !columns_.HasAmount();
    account_ = &file_.accounts.emplace_back();
    if (reading_.lacks_days || reading_.lacks_amounts) {
      reading_.other_lines = rows_.size() - (heading_ ? 1 : 0);
      const std::size_t first = heading_ ? *heading_ + 1 : 0;
      const std::size_t end = std::min(rows_.size(), first + CsvReading::kMostFirstRows);
      for (std::size_t row = first; row < end; ++row) TakeFirstRow(row);
      return std::move(reading_);
    }
    LongOperation operation(LongWork::Parsing, rows_.size() * 2);
    SortOut();
    const DayOrder order = JudgeDays(numbers_, columns_, rows_, choices_, file_.questions);
    const CsvAmountReading amounts =
        JudgeAmounts(numbers_, columns_, rows_, choices_, file_.questions);
    reading_.choices.day_order = order;
    reading_.choices.decimal_separator = amounts.rule.decimal_separator;
    reading_.choices.fees_come_off = amounts.rule.fees_come_off;
    reading_.choices.spending_is_positive = amounts.rule.spending_is_positive;
    reading_.balance_order = amounts.balance_order;
    account_->proof = amounts.proof;
    MakeRows(order, amounts);
    TakeClosingBalance(amounts);
    operation.Finish();
    return std::move(reading_);
  }

 private:
  void TellLayout() {
    reading_.choices.has_heading = heading_.has_value();
    reading_.choices.columns = fields_;
    for (std::size_t i = 0; heading_ && i < rows_.CellCount(*heading_); ++i) {
      reading_.headings.emplace_back(rows_.Cell(*heading_, i));
    }
    reading_.digest = HeadingDigest(reading_.headings, fields_.size());
    reading_.other_lines = heading_.value_or(0);
  }

  // Tells entries from all that is none.
  void SortOut() {
    numbers_.reserve(rows_.size());
    std::size_t last_entry = kNoRow;  // that a line may go on from
    for (std::size_t row = heading_ ? *heading_ + 1 : 0; row < rows_.size(); ++row) {
      LongOperation::Count(LongWork::Parsing);
      CsvNumbers& numbers = numbers_.emplace_back();
      ReadCsvNumbers(rows_, row, columns_, numbers);
      const bool has_amount = numbers.amount.is_amount || numbers.credit.is_amount;
      if (!numbers.day.is_day && !has_amount) {
        const bool goes_on = last_entry != kNoRow && numbers.day.is_blank;
        numbers_.pop_back();
        if (NamesBalanceIn(row, false)) {
          ++reading_.balance_lines;
        } else if (goes_on && HasTexts(row)) {
          ++reading_.continuation_lines;
          continuations_.push_back({numbers_.size() - 1, row});
          continue;
        } else {
          ++reading_.other_lines;
        }
        last_entry = kNoRow;
        continue;
      }
      if (NamesBalanceIn(row, numbers.day.is_day)) {
        numbers_.pop_back();
        ++reading_.balance_lines;
        last_entry = kNoRow;
        continue;
      }
      last_entry = row;
    }
  }

  [[nodiscard]] bool NamesBalanceIn(std::size_t row, bool is_dated) const {
    for (std::size_t i = 0; i < rows_.CellCount(row); ++i) {
      const CsvField field = i < fields_.size() ? fields_[i] : CsvField::None;
      // Of a row with a day, the kind of payment or a column that is not read tell nothing.
      if (is_dated && field != CsvField::Payee && field != CsvField::Purpose) continue;
      const std::string_view cell = rows_.Cell(row, i);
      if ((!is_dated || MayNameBalance(cell)) && NamesBalance(cell, is_dated)) return true;
    }
    return false;
  }

  [[nodiscard]] bool HasTexts(std::size_t row) const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      const bool is_text = fields_[i] == CsvField::Payee || fields_[i] == CsvField::Purpose;
      if (is_text && !rows_.Cell(row, i).empty()) return true;
    }
    return false;
  }

  void MakeRows(DayOrder order, const CsvAmountReading& amounts) {
    const std::string_view currency = MainCurrency();
    account_->currency = currency;
    account_->rows.reserve(numbers_.size());
    for (const CsvNumbers& numbers : numbers_) {
      StatementRow& row = account_->rows.emplace_back();
      row.line = rows_.Line(numbers.row);
      TakeDay(numbers.day.In(order), numbers.day.is_blank ? "" : "?", row);
      TakeAmount(numbers, amounts, row);
      TakeTexts(numbers.row, currency, row);
      if (reading_.first_rows.size() < CsvReading::kMostFirstRows) TakeFirstRow(numbers.row);
      LongOperation::Count(LongWork::Parsing);
    }
    for (const auto& [entry, row] : continuations_) {
      TakeTexts(row, currency, account_->rows[entry]);
    }
  }

  void TakeAmount(const CsvNumbers& numbers, const CsvAmountReading& amounts,
                  StatementRow& row) const {
    row.amount = amounts.rule.AmountOf(numbers);
    if (!row.amount) {
      const bool is_blank = numbers.amount.is_blank && numbers.credit.is_blank;
      row.doubts.Add(is_blank ? ImportDoubtKind::MissingAmount : ImportDoubtKind::UnreadAmount);
      return;
    }
    // An amount beside one that cannot be read is not all there is.
    if (amounts.rule.has_debits && (IsUnread(numbers.amount) || IsUnread(numbers.credit))) {
      row.doubts.Add(ImportDoubtKind::UnreadAmount);
    }
    const bool is_open = numbers.amount.decimal == WrittenAmount::Decimal::Undecided ||
                         numbers.credit.decimal == WrittenAmount::Decimal::Undecided;
    if (is_open && amounts.has_open_separator) row.doubts.Add(ImportDoubtKind::AmountSeparators);
    const bool lacks_mark = columns_.mark && numbers.mark == MarkMeaning::None;
    if (lacks_mark && !numbers.amount.has_sign) row.doubts.Add(ImportDoubtKind::AmountSign);
    NoteLargeAmount(*row.amount, row.doubts);
  }

  [[nodiscard]] static bool IsUnread(const WrittenAmount& written) noexcept {
    return !written.is_amount && !written.is_blank;
  }

  void TakeTexts(std::size_t from, std::string_view currency, StatementRow& row) const {
    for (const std::size_t i : text_columns_) {
      const std::string_view cell = rows_.Cell(from, i);
      if (cell.empty()) continue;
      switch (fields_[i]) {
        case CsvField::Payee:
          AddText(row.to_from, cell);
          break;
        case CsvField::Purpose:
          AddText(row.description, cell);
          break;
        case CsvField::Reference:
          AddText(row.notes, cell);
          break;
        case CsvField::CheckNumber:
          TakeCheckNumber(cell, row);
          break;
        case CsvField::Type:
          AddText(row.type, cell);
          break;
        case CsvField::Currency:
          if (cell != currency) row.unmarked = UnmarkedReason::ForeignCurrency;
          break;
        case CsvField::Status:
          if (SaysPending(cell)) {
            row.unmarked = UnmarkedReason::Pending;
            row.is_cleared = false;
          }
          break;
        default:
          break;
      }
    }
  }

  // That of the most rows; "" without a column of currencies.
  [[nodiscard]] std::string_view MainCurrency() const {
    const auto found = std::find(fields_.begin(), fields_.end(), CsvField::Currency);
    if (found == fields_.end()) return {};
    const auto column = static_cast<std::size_t>(found - fields_.begin());
    constexpr std::size_t kMostCurrencies = 64;
    std::vector<std::pair<std::string_view, std::size_t>> counts;
    for (const CsvNumbers& each : numbers_) {
      const std::string_view currency = rows_.Cell(each.row, column);
      if (currency.empty()) continue;
      const auto known = std::find_if(counts.begin(), counts.end(), [currency](const auto& count) {
        return count.first == currency;
      });
      if (known != counts.end()) {
        ++known->second;
      } else if (counts.size() < kMostCurrencies) {
        counts.emplace_back(currency, 1);
      }
    }
    const auto most =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return most == counts.end() ? std::string_view() : most->first;
  }

  void TakeFirstRow(std::size_t row) {
    auto& cells = reading_.first_rows.emplace_back();
    for (std::size_t i = 0; i < rows_.CellCount(row); ++i) cells.emplace_back(rows_.Cell(row, i));
  }

  // After the newest row, where the balances are proven.
  void TakeClosingBalance(const CsvAmountReading& amounts) {
    if (!amounts.balance_order || numbers_.empty()) return;
    const bool is_first = amounts.balance_order->is_newest_first;
    const CsvNumbers& newest = is_first ? numbers_.front() : numbers_.back();
    const StatementRow& row = is_first ? account_->rows.front() : account_->rows.back();
    auto balance = newest.balance.Value(amounts.rule.decimal_separator);
    if (!balance) return;
    if (amounts.balance_order->is_before) *balance += row.amount.value_or(0.0);
    account_->closing = StatementBalance{*balance, row.day};
  }

  const CsvChoices& choices_;
  StatementFile& file_;
  char delimiter_;
  TableRows rows_;
  std::optional<std::size_t> heading_;
  std::vector<CsvField> fields_;
  CsvNumberColumns columns_;
  std::vector<std::size_t> text_columns_;  // those that TakeTexts() reads
  CsvReading reading_;
  StatementAccount* account_ = nullptr;
  std::vector<CsvNumbers> numbers_;  // of the entries
  struct Continuation {
    std::size_t entry = 0;
    std::size_t row = 0;
  };
  std::vector<Continuation> continuations_;
};

}  // namespace

CsvReading ReadCsv(std::string_view text, const CsvChoices& choices, StatementFile& file) {
  return CsvReader(text, choices, file).Run();
}

std::string HeadingDigest(const std::vector<std::string>& headings, std::size_t columns) {
  std::uint64_t sum = 0xCBF29CE484222325U;
  const auto add = [&sum](std::string_view text) {
    for (const char byte : text) {
      sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    sum = (sum ^ 0x1FU) * 0x100000001B3U;
  };
  for (const std::string& each : headings) add(PlainHeading(each));
  if (headings.empty()) add(std::to_string(columns));
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string digest(16, '0');
  for (std::size_t i = digest.size(); i > 0; --i, sum >>= 4U) digest[i - 1] = kDigits[sum & 15U];
  return digest;
}

std::string ImportIdentifier(const CsvReading& reading) {
  return "import " + reading.digest;
}

}  // namespace tallyfold
