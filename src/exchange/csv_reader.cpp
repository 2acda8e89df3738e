#include "exchange/csv_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/csv_amounts.h"
#include "exchange/csv_currencies.h"
#include "exchange/csv_days.h"
#include "exchange/csv_layout.h"
#include "exchange/statement_texts.h"
#include "exchange/table_reader.h"
#include "platform/progress.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

// Cheap, and true for every text that NamesBalance() in a row with a day: by how it begins.
bool MayNameBalance(std::string_view text) noexcept {
  // By the first letter a bit for each second one.
  static constexpr auto kSeconds = [] {
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
        table_{TableBody(text), DelimiterOf(text, choices)},
        account_(file.accounts.emplace_back()),
        rows_(account_.rows) {
    const TableRows first = FirstRows(table_.text, table_.delimiter, kLayoutRows);
    heading_ = HeadingRow(first, choices);
    fields_ = ColumnsOf(first, heading_, choices, file.questions);
    columns_ = CsvNumberColumns(fields_);
    TellLayout(first);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      const CsvField field = fields_[i];
      if (IsText(field)) text_columns_.push_back(i);
      if (field == CsvField::Payee || field == CsvField::Purpose) named_columns_.push_back(i);
      if (field == CsvField::Currency) foreign_wins_ = true;
      if (field == CsvField::Status) foreign_wins_ = false;
    }
    const auto currency = std::find(fields_.begin(), fields_.end(), CsvField::Currency);
    if (currency != fields_.end()) {
      currency_column_ = static_cast<std::size_t>(currency - fields_.begin());
    }
  }

  CsvReading Run() {
    reading_.lacks_days = !columns_.day && !columns_.value_day;
    reading_.lacks_amounts = !columns_.HasAmount();
    LongOperation operation(LongWork::Parsing, table_.text.size());
    ReadRows();
    if (!reading_.lacks_days && !reading_.lacks_amounts) Judge();
    operation.Finish();
    return std::move(reading_);
  }

 private:
  void TellLayout(const TableRows& first) {
    reading_.choices.delimiter = table_.delimiter;
    reading_.choices.has_heading = heading_.has_value();
    reading_.choices.columns = fields_;
    if (heading_) reading_.heading_line = first[*heading_].Line();
    for (std::size_t i = 0; heading_ && i < first[*heading_].size(); ++i) {
      reading_.headings.emplace_back(first[*heading_].Cell(i));
    }
    reading_.digest = HeadingDigest(reading_.headings, fields_.size());
  }

  // --- Row by row -------------------------------------------------------------------------------

  void ReadRows() {
    const bool can_read = !reading_.lacks_days && !reading_.lacks_amounts;
    TableScanner scanner(table_.text, table_.delimiter);
    TableRow row;
    std::size_t behind_heading = 0;
    for (std::size_t place = 0; scanner.Next(row); ++place) {
      LongOperation::Reached(LongWork::Parsing, row.Place());
      if (heading_ && place == *heading_) continue;
      const bool is_before = heading_ && place < *heading_;
      if (!is_before) ++behind_heading;
      if (!can_read) {
        ++reading_.other_lines;
        if (!is_before) TakeFirstRow(row);
      } else if (is_before) {
        LeaveOut(row, LeftOutLine::Reason::Before);
      } else {
        TakeRow(row);
      }
    }
    for (StatementQuestion& each : file_.questions) {
      if (each.kind == StatementQuestion::Kind::AmountColumn) each.rows = behind_heading;
    }
    PlaceLeftOut();
  }

  // Makes as much room as there will be need of if the rows go on as they began.
  void MakeRoom(const TableRow& row) {
    constexpr std::size_t kRowsMeasured = 64;
    constexpr std::size_t kMostReserved = 1'000'000;
    if (rows_.size() != kRowsMeasured) return;
    const std::size_t expected = kRowsMeasured * (table_.text.size() / row.Place() + 1);
    rows_.reserve(std::min(expected, kMostReserved));
    numbers_.reserve(std::min(expected, kMostReserved) + 1);
  }

  // Tells an entry from all that is none.
  void TakeRow(const TableRow& row) {
    MakeRoom(row);
    CsvNumbers& numbers = numbers_.emplace_back();
    ReadCsvNumbers(row, columns_, numbers);
    const bool is_dated = numbers.day.is_day;
    const bool has_amount = numbers.amount.is_amount || numbers.credit.is_amount;
    const bool is_entry = is_dated || has_amount;
    if (is_entry && !NamesBalanceIn(row, is_dated)) {
      TakeEntry(row, numbers);
      goes_on_ = true;
      return;
    }
    const bool is_unread = IsUnread(numbers.amount) || IsUnread(numbers.credit) ||
                           (!is_dated && !numbers.day.is_blank);
    const bool has_no_day = numbers.day.is_blank;
    numbers_.pop_back();
    if (is_entry || NamesBalanceIn(row, false)) {
      LeaveOut(row, LeftOutLine::Reason::Balance);
    } else if (goes_on_ && has_no_day && HasTexts(row)) {
      LeaveOut(row, LeftOutLine::Reason::Continued);
      TakeTexts(row, numbers_.back(), rows_.back());
      return;
    } else {
      LeaveOut(row, is_unread ? LeftOutLine::Reason::Unread : LeftOutLine::Reason::Bare);
    }
    goes_on_ = false;
  }

  void TakeEntry(const TableRow& row, CsvNumbers& numbers) {
    counts_.Add(numbers);
    if (!choices_.day_order) days_.Add(numbers.day, numbers.place);
    StatementRow& made = rows_.emplace_back();
    made.line = row.Line();
    TakeTexts(row, numbers, made);
    if (currency_column_) currencies_.Count(row.Cell(*currency_column_));
    TakeFirstRow(row);
  }

  [[nodiscard]] bool NamesBalanceIn(const TableRow& row, bool is_dated) const {
    // Of a row with a day, the kind of payment or a column that is not read tell nothing.
    if (is_dated) {
      return std::any_of(named_columns_.begin(), named_columns_.end(), [&row](std::size_t column) {
        const std::string_view cell = row.Cell(column);
        return MayNameBalance(cell) && NamesBalance(cell, true);
      });
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (NamesBalance(row.Cell(i), false)) return true;
    }
    return false;
  }

  [[nodiscard]] bool HasTexts(const TableRow& row) const {
    return std::any_of(named_columns_.begin(), named_columns_.end(),
                       [&row](std::size_t column) { return !row.Cell(column).empty(); });
  }

  void TakeTexts(const TableRow& from, CsvNumbers& numbers, StatementRow& row) {
    for (const std::size_t i : text_columns_) {
      const std::string_view cell = from.Cell(i);
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
          numbers.currency = currencies_.With(numbers.currency, cell);
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

  void TakeFirstRow(const TableRow& row) {
    if (!reading_.first_row.empty()) return;
    for (std::size_t i = 0; i < row.size(); ++i) reading_.first_row.emplace_back(row.Cell(i));
  }

  // --- Lines that are no entries ----------------------------------------------------------------

  void LeaveOut(const TableRow& row, LeftOutLine::Reason reason) {
    if (reason == LeftOutLine::Reason::Balance) {
      ++reading_.balance_lines;
    } else if (reason == LeftOutLine::Reason::Continued) {
      ++reading_.continuation_lines;
    } else {
      ++reading_.other_lines;
    }
    if (reading_.left_out.size() == CsvReading::kMostLeftOut) return;
    constexpr std::size_t kLongest = 200;
    LeftOutLine& line = reading_.left_out.emplace_back();
    line.reason = reason;
    line.line = row.Line();
    for (std::size_t i = 0; i < row.size() && line.text.size() < kLongest; ++i) {
      if (!line.text.empty() && !row.Cell(i).empty()) line.text += " |";
      AddText(line.text, row.Cell(i).substr(0, kLongest));
    }
    line.text.resize(plist::ValidUtf8Prefix(line.text));
  }

  // What stands before and behind all entries is that, whatever it holds.
  void PlaceLeftOut() {
    for (LeftOutLine& each : reading_.left_out) {
      if (each.reason != LeftOutLine::Reason::Bare && each.reason != LeftOutLine::Reason::Unread) {
        continue;
      }
      if (rows_.empty()) continue;
      if (each.line < rows_.front().line) each.reason = LeftOutLine::Reason::Before;
      if (each.line > rows_.back().line) each.reason = LeftOutLine::Reason::Behind;
    }
  }

  // --- All of them together ---------------------------------------------------------------------

  void Judge() {
    const DayOrder order = JudgeDays();
    const CsvAmountReading amounts =
        JudgeAmounts(numbers_, counts_, columns_, table_, choices_, file_.questions);
    reading_.choices.day_order = order;
    reading_.choices.decimal_separator = amounts.rule.decimal_separator;
    reading_.choices.fees_come_off = amounts.rule.fees_come_off;
    reading_.choices.spending_is_positive = amounts.rule.spending_is_positive;
    reading_.balance_order = amounts.balance_order;
    account_.proof = amounts.proof;
    if (account_.proof.kind == StatementProof::Kind::Disagree) {
      account_.proof.first_disagreeing_line = rows_[amounts.proof.disagreeing.front()].line;
    }
    FillRows(order, amounts);
    TakeClosingBalance(amounts);
  }

  [[nodiscard]] DayOrder JudgeDays() {
    if (choices_.day_order) return *choices_.day_order;
    if (days_.IsOpen()) {
      const std::size_t column = columns_.day.value_or(columns_.value_day.value_or(0));
      file_.questions.push_back(days_.Question(table_.Cell(days_.PlaceOfFirst(), column)));
    }
    return days_.Best();
  }

  // What is known of each row only now.
  void FillRows(DayOrder order, const CsvAmountReading& amounts) {
    const std::uint8_t currency = currencies_.Main();
    account_.currency = currencies_.Name(currency);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      const CsvNumbers& numbers = numbers_[i];
      StatementRow& row = rows_[i];
      if (const DateNumber day = numbers.day.In(order); day != 0) {
        row.day = day;
      } else {
        row.doubts.Add(numbers.day.is_blank ? ImportDoubtKind::MissingDate
                                            : ImportDoubtKind::UnreadableDate);
      }
      TakeAmount(numbers, amounts, row);
      const bool is_foreign =
          numbers.currency != CsvCurrencies::kNone && numbers.currency != currency;
      if (is_foreign && (foreign_wins_ || row.unmarked == UnmarkedReason::None)) {
        row.unmarked = UnmarkedReason::ForeignCurrency;
      }
    }
  }

  void TakeAmount(const CsvNumbers& numbers, const CsvAmountReading& amounts,
                  StatementRow& row) const {
    if (!amounts.rule.HasAmount(numbers)) {
      const bool is_blank = numbers.amount.is_blank && numbers.credit.is_blank;
      row.doubts.Add(is_blank ? ImportDoubtKind::MissingAmount : ImportDoubtKind::UnreadAmount);
      return;
    }
    row.amount = amounts.rule.AmountOf(numbers);
    // An amount beside one that cannot be read is not all there is.
    if (amounts.rule.has_debits && (IsUnread(numbers.amount) || IsUnread(numbers.credit))) {
      row.doubts.Add(ImportDoubtKind::UnreadAmount);
    }
    const bool is_other_debit = amounts.has_open_debits && numbers.amount.digits != 0 &&
                                numbers.amount.is_negative != amounts.rule.debits_are_negative;
    if (is_other_debit) row.doubts.Add(ImportDoubtKind::DebitSign);
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

  // After the newest row, where the balances are proven.
  void TakeClosingBalance(const CsvAmountReading& amounts) {
    if (!amounts.balance_order || numbers_.empty()) return;
    const bool is_first = amounts.balance_order->is_newest_first;
    const CsvNumbers& newest = is_first ? numbers_.front() : numbers_.back();
    const StatementRow& row = is_first ? rows_.front() : rows_.back();
    auto balance = newest.balance.Value(amounts.rule.decimal_separator);
    if (!balance) return;
    if (amounts.balance_order->is_before) *balance += row.amount.value_or(0.0);
    account_.closing = StatementBalance{*balance, row.day};
  }

  const CsvChoices& choices_;
  StatementFile& file_;
  CsvText table_;
  StatementAccount& account_;
  std::vector<StatementRow>& rows_;
  std::optional<std::size_t> heading_;
  std::vector<CsvField> fields_;
  CsvNumberColumns columns_;
  std::vector<std::size_t> text_columns_;       // those that TakeTexts() reads
  std::vector<std::size_t> named_columns_;      // with payees and purposes
  std::optional<std::size_t> currency_column_;  // the first of them
  // Of two reasons to leave a row unmarked, the column further to the right decides.
  bool foreign_wins_ = false;
  CsvReading reading_;
  std::vector<CsvNumbers> numbers_;  // of the entries, as the rows
  bool goes_on_ = false;             // the row above is an entry
  CsvAmountCounts counts_;
  DayOrderJudge days_;
  CsvCurrencies currencies_;
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
