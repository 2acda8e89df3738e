#include "exchange/csv_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "exchange/written_amount.h"

namespace tallyfold {
namespace {

// Behind the heading.
constexpr std::size_t kSampleRows = 120;
constexpr std::size_t kSampleBytes = 256 * 1024;
constexpr std::size_t kMostHeadingRow = 60;
static_assert(kMostHeadingRow + kSampleRows <= kLayoutRows);

bool IsDay(std::string_view cell) {
  const WrittenDay written = ReadWrittenDay(cell);
  return std::any_of(kDayOrders.begin(), kDayOrders.end(),
                     [&written](DayOrder order) { return written.In(order) != 0; });
}

// With cents or a sign, unlike numbers of accounts and customers.
bool IsMoney(const WrittenAmount& written) noexcept {
  return written.is_amount && (written.last_separator != '\0' || written.has_sign);
}

std::size_t KnownHeadings(const TableRows& rows, std::size_t row) {
  std::size_t known = 0;
  for (std::size_t i = 0; i < rows[row].size(); ++i) {
    if (FieldOfHeading(rows[row].Cell(i)) != CsvField::None) ++known;
  }
  return known;
}

// What the cells of a column are, of the rows looked at.
struct ColumnSample {
  std::size_t filled = 0;
  std::size_t days = 0;
  std::size_t amounts = 0;
  std::size_t money = 0;
  std::size_t characters = 0;
};

std::vector<ColumnSample> SampleColumns(const TableRows& rows, std::size_t first_row,
                                        std::size_t columns) {
  std::vector<ColumnSample> samples(columns);
  const std::size_t end = std::min(rows.size(), first_row + kSampleRows);
  for (std::size_t row = first_row; row < end; ++row) {
    for (std::size_t i = 0; i < std::min(columns, rows[row].size()); ++i) {
      const std::string_view cell = rows[row].Cell(i);
      if (cell.empty()) continue;
      ColumnSample& sample = samples[i];
      ++sample.filled;
      sample.characters += cell.size();
      if (IsDay(cell)) ++sample.days;
      const WrittenAmount written = ReadWrittenAmount(cell);
      if (written.is_amount) ++sample.amounts;
      if (IsMoney(written)) ++sample.money;
    }
  }
  return samples;
}

bool IsMost(std::size_t part, std::size_t whole) noexcept {
  return part > 0 && part * 5 >= whole * 3;
}

bool Has(const std::vector<CsvField>& columns, CsvField field) noexcept {
  return std::find(columns.begin(), columns.end(), field) != columns.end();
}

bool HasAmounts(const std::vector<CsvField>& columns) noexcept {
  return Has(columns, CsvField::Amount) || Has(columns, CsvField::Debit) ||
         Has(columns, CsvField::Credit) || Has(columns, CsvField::Net);
}

// Whether the balances in one column follow from the amounts in another, in some order.
bool BearOut(const TableRows& rows, std::size_t first_row, std::size_t amounts,
             std::size_t balances) {
  std::array<std::size_t, 4> agreeing{};
  std::size_t pairs = 0;
  std::optional<std::array<double, 2>> before;
  const std::size_t end = std::min(rows.size(), first_row + kSampleRows);
  for (std::size_t row = first_row; row < end; ++row) {
    const auto read = [&](std::size_t column) {
      const WrittenAmount written = ReadWrittenAmount(rows[row].Cell(column));
      return written.Value(written.last_separator);
    };
    const auto amount = read(amounts);
    const auto balance = read(balances);
    if (!amount || !balance) continue;
    if (before) {
      const auto [last_amount, last_balance] = *before;
      const double step = *balance - last_balance;
      const auto agrees = [step](double by) { return std::abs(step - by) < 0.005; };
      ++pairs;
      if (agrees(*amount)) ++agreeing[0];
      if (agrees(-last_amount)) ++agreeing[1];
      if (agrees(last_amount)) ++agreeing[2];
      if (agrees(-*amount)) ++agreeing[3];
    }
    before = {*amount, *balance};
  }
  return pairs >= 2 && *std::max_element(agreeing.begin(), agreeing.end()) == pairs;
}

void GuessAmounts(const TableRows& rows, std::size_t first_row,
                  const std::vector<ColumnSample>& samples, std::vector<CsvField>& columns,
                  std::vector<StatementQuestion>& questions) {
  constexpr std::size_t kMostCandidates = 8;
  std::vector<std::size_t> candidates;
  for (const bool needs_cents : {true, false}) {
    for (std::size_t i = 0; i < columns.size() && candidates.size() < kMostCandidates; ++i) {
      if (columns[i] != CsvField::None || IsMost(samples[i].days, samples[i].filled)) continue;
      if (IsMost(needs_cents ? samples[i].money : samples[i].amounts, samples[i].filled)) {
        candidates.push_back(i);
      }
    }
    if (!candidates.empty()) break;
  }
  if (candidates.empty()) return;
  const auto balance = std::find(columns.begin(), columns.end(), CsvField::Balance);
  for (const std::size_t amounts : candidates) {
    for (const std::size_t balances : candidates) {
      const bool is_known = balance != columns.end();
      const std::size_t compared =
          is_known ? static_cast<std::size_t>(balance - columns.begin()) : balances;
      if (compared == amounts || !BearOut(rows, first_row, amounts, compared)) continue;
      columns[amounts] = CsvField::Amount;
      columns[compared] = CsvField::Balance;
      return;
    }
  }
  columns[candidates.front()] = CsvField::Amount;
  if (candidates.size() == 1) return;
  StatementQuestion question;
  question.kind = StatementQuestion::Kind::AmountColumn;
  for (const std::size_t i : candidates) {
    question.candidates.push_back(
        {static_cast<std::int64_t>(i), std::string(rows[first_row].Cell(i))});
  }
  questions.push_back(std::move(question));
}

void GuessTexts(const std::vector<ColumnSample>& samples, std::vector<CsvField>& columns) {
  std::vector<std::size_t> texts;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool is_number = IsMost(samples[i].amounts, samples[i].filled);
    if (columns[i] == CsvField::None && samples[i].filled > 0 && !is_number) texts.push_back(i);
  }
  for (const std::size_t i : texts) {
    const bool is_first = i == texts.front() && texts.size() > 1;
    columns[i] = is_first ? CsvField::Payee : CsvField::Purpose;
  }
}

// Of days and of each kind of amount one column is read; a second day may stand in for it.
void LeaveFirst(std::vector<CsvField>& columns) {
  for (auto each = columns.begin(); each != columns.end(); ++each) {
    const bool is_number = *each != CsvField::None && *each < CsvField::Payee;
    if (!is_number || std::find(columns.begin(), each, *each) == each) continue;
    const bool stands_in = *each == CsvField::Day && !Has(columns, CsvField::ValueDay);
    *each = stands_in ? CsvField::ValueDay : CsvField::None;
  }
}

}  // namespace

std::string_view TableBody(std::string_view text) noexcept {
  if (NamedDelimiter(text) == '\0') return text;
  return text.substr(std::min(text.find_first_of("\r\n"), text.size()));
}

char DelimiterOf(std::string_view text, const CsvChoices& choices) {
  if (choices.delimiter) return *choices.delimiter;
  if (const char named = NamedDelimiter(text); named != '\0') return named;
  constexpr std::string_view kDelimiters = ";,\t|";
  constexpr std::size_t kHeadingWeight = 20;
  char best = ';';
  std::size_t best_score = 0;
  for (const char delimiter : kDelimiters) {
    const TableRows rows = FirstRows(text.substr(0, kSampleBytes), delimiter, kSampleRows);
    std::size_t score = 0;
    std::size_t headings = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (rows[row].size() < 2) continue;
      ++score;
      for (std::size_t i = 0; i < rows[row].size(); ++i) {
        const std::string_view cell = rows[row].Cell(i);
        constexpr std::size_t kLongest = 40;
        if (cell.empty() || cell.size() > kLongest) continue;
        if (IsMoney(ReadWrittenAmount(cell)) || IsDay(cell)) ++score;
      }
      if (row < kMostHeadingRow) headings = std::max(headings, KnownHeadings(rows, row));
    }
    score += headings * kHeadingWeight;
    if (score > best_score) {
      best_score = score;
      best = delimiter;
    }
  }
  return best;
}

namespace {

// The row above the first one with a day and an amount, where it has as many cells, most of them
// filled and none a value: a heading in words that are not known.
std::optional<std::size_t> HeadingAboveValues(const TableRows& rows) {
  constexpr std::size_t kFewestCells = 3;
  for (std::size_t row = 0; row < std::min(rows.size(), kMostHeadingRow); ++row) {
    bool has_day = false;
    bool has_money = false;
    for (std::size_t i = 0; i < rows[row].size(); ++i) {
      const std::string_view cell = rows[row].Cell(i);
      const bool is_day = IsDay(cell);
      has_day = has_day || is_day;
      has_money = has_money || (!is_day && IsMoney(ReadWrittenAmount(cell)));
    }
    if (!has_day || !has_money) continue;
    const std::size_t cells = rows[row].size();
    if (row == 0 || cells < kFewestCells || rows[row - 1].size() != cells) return std::nullopt;
    std::size_t filled = 0;
    for (std::size_t i = 0; i < cells; ++i) {
      const std::string_view cell = rows[row - 1].Cell(i);
      if (!cell.empty()) ++filled;
      if (IsDay(cell) || ReadWrittenAmount(cell).is_amount) return std::nullopt;
    }
    return filled * 3 >= cells * 2 ? std::optional(row - 1) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> HeadingRow(const TableRows& rows, const CsvChoices& choices) {
  if (choices.has_heading == false) return std::nullopt;
  std::optional<std::size_t> best;
  std::size_t best_known = 1;
  std::size_t widest = 0;
  std::size_t widest_row = 0;
  for (std::size_t row = 0; row < std::min(rows.size(), kMostHeadingRow); ++row) {
    bool has_values = false;
    for (std::size_t i = 0; i < rows[row].size() && !has_values; ++i) {
      has_values = IsDay(rows[row].Cell(i)) || IsMoney(ReadWrittenAmount(rows[row].Cell(i)));
    }
    if (has_values) continue;
    const std::size_t known = KnownHeadings(rows, row);
    if (known > best_known) {
      best_known = known;
      best = row;
    }
    if (rows[row].size() > widest) {
      widest = rows[row].size();
      widest_row = row;
    }
  }
  if (!best) best = HeadingAboveValues(rows);
  if (!best && choices.has_heading == true && widest > 0) return widest_row;
  return best;
}

std::vector<CsvField> ColumnsOf(const TableRows& rows, std::optional<std::size_t> heading,
                                const CsvChoices& choices,
                                std::vector<StatementQuestion>& questions) {
  const std::size_t first_row = heading ? *heading + 1 : 0;
  std::size_t count = heading ? rows[*heading].size() : 0;
  for (std::size_t row = first_row; row < std::min(rows.size(), first_row + kSampleRows); ++row) {
    count = std::max(count, rows[row].size());
  }
  std::vector<CsvField> columns(count);
  if (!choices.columns.empty()) {
    const std::size_t chosen = std::min(count, choices.columns.size());
    std::copy_n(choices.columns.begin(), chosen, columns.begin());
    return columns;
  }
  for (std::size_t i = 0; heading && i < count; ++i) {
    columns[i] = FieldOfHeading(rows[*heading].Cell(i));
  }
  const auto samples = SampleColumns(rows, first_row, count);
  // A known heading over other things, such as "Valuta" over a currency, means those.
  for (std::size_t i = 0; i < count; ++i) {
    const bool is_day = columns[i] == CsvField::Day || columns[i] == CsvField::ValueDay;
    if (!is_day || samples[i].filled == 0 || samples[i].days > 0) continue;
    const bool is_currency = samples[i].characters == 3 * samples[i].filled;
    columns[i] = is_currency ? CsvField::Currency : CsvField::None;
  }
  if (!Has(columns, CsvField::Day) && !Has(columns, CsvField::ValueDay)) {
    for (std::size_t i = 0; i < count; ++i) {
      if (columns[i] != CsvField::None || !IsMost(samples[i].days, samples[i].filled)) continue;
      columns[i] = Has(columns, CsvField::Day) ? CsvField::ValueDay : CsvField::Day;
    }
  }
  if (!HasAmounts(columns)) GuessAmounts(rows, first_row, samples, columns, questions);
  const bool has_texts = Has(columns, CsvField::Payee) || Has(columns, CsvField::Purpose);
  if (!heading || !has_texts) GuessTexts(samples, columns);
  LeaveFirst(columns);
  return columns;
}

}  // namespace tallyfold
