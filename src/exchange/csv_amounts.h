#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"
#include "exchange/table_reader.h"
#include "exchange/written_amount.h"
#include "exchange/written_day.h"

namespace tallyfold {

// The numbers of the rows of a table, read before it is known how they are meant, and what can be
// found out about that from all of them together.

// The first columns that hold days and amounts; none where the table has none.
struct CsvNumberColumns {
  CsvNumberColumns() = default;
  explicit CsvNumberColumns(const std::vector<CsvField>& columns);

  // Any of the amounts, which a row needs one of.
  [[nodiscard]] bool HasAmount() const noexcept { return amount || debit || credit || net; }

  std::optional<std::size_t> day;
  std::optional<std::size_t> value_day;
  std::optional<std::size_t> amount;
  std::optional<std::size_t> debit;
  std::optional<std::size_t> credit;
  std::optional<std::size_t> mark;
  std::optional<std::size_t> fee;
  std::optional<std::size_t> net;
  std::optional<std::size_t> balance;
};

// The numbers of one row as written.
struct CsvNumbers {
  CsvNumbers() noexcept;

  std::size_t place = 0;  // where the row begins in the text
  WrittenAmount amount;   // of the net column, else of the amount column, else of the debit column
  WrittenAmount balance;
  WrittenDay day;
  MarkMeaning mark = MarkMeaning::None;
  std::uint8_t currency = 0;  // for who reads the row
  WrittenAmount credit;
  WrittenAmount fee;
};

// Not defaulted within: emplace_back() would fill them with zeros before.
inline CsvNumbers::CsvNumbers() noexcept = default;

// Fills in `numbers`, which is as it was made.
void ReadCsvNumbers(const TableRow& row, const CsvNumberColumns& columns, CsvNumbers& numbers);

// What the amounts of a table tell together, counted row by row.
struct CsvAmountCounts {
  void Add(const CsvNumbers& numbers) noexcept;

  std::size_t rows = 0;
  std::size_t points = 0;
  std::size_t commas = 0;
  std::size_t undecided = 0;
  std::size_t first_undecided = 0;  // row, from 0 on, as the next
  std::size_t fees = 0;
  std::size_t first_fee = 0;
  std::size_t negative = 0;
  std::size_t positive = 0;
};

// How the amounts of a table are meant.
struct CsvAmountRule {
  char decimal_separator = '.';
  bool fees_come_off = false;
  bool spending_is_positive = false;
  // Debits are in a column of their own, and most of them have no sign there.
  bool has_debits = false;
  bool debits_are_negative = false;

  [[nodiscard]] bool HasAmount(const CsvNumbers& numbers) const noexcept {
    return numbers.amount.is_amount || (has_debits && numbers.credit.is_amount);
  }
  // The amount of a row; 0 for none that can be read.
  [[nodiscard]] double AmountOf(const CsvNumbers& numbers) const noexcept;
};

inline double CsvAmountRule::AmountOf(const CsvNumbers& numbers) const noexcept {
  if (!HasAmount(numbers)) return 0.0;
  double amount = numbers.amount.Number(decimal_separator);
  if (has_debits) {
    const double debit = debits_are_negative ? -amount : amount;
    amount = numbers.credit.Number(decimal_separator) - debit;
  } else {
    if (numbers.mark == MarkMeaning::Debit) amount = -std::abs(amount);
    if (numbers.mark == MarkMeaning::Credit) amount = std::abs(amount);
    if (spending_is_positive && amount != 0.0) amount = -amount;
  }
  if (fees_come_off) amount -= std::abs(numbers.fee.Number(decimal_separator));
  return amount;
}

struct CsvAmountReading {
  CsvAmountRule rule;
  // Nothing proves the separator, and some amounts hang on it.
  bool has_open_separator = false;
  // Debits have both signs, and nothing proves which of them is money spent; most have it.
  bool has_open_debits = false;
  StatementProof proof;
  std::optional<BalanceOrder> balance_order;
};

// The table that numbers were read of, for samples of what is asked.
struct CsvText {
  std::string_view text;
  char delimiter = ';';

  // A cell of the row that begins at `place`.
  [[nodiscard]] std::string Cell(std::size_t place, std::size_t column) const;
};

// What the balances, or the amounts themselves, prove; questions for the rest. `numbers` are those
// of the rows that are entries, and `counts` what they tell. The line of the first balance that
// disagrees is left to who knows the lines.
[[nodiscard]] CsvAmountReading JudgeAmounts(const std::vector<CsvNumbers>& numbers,
                                            const CsvAmountCounts& counts,
                                            const CsvNumberColumns& columns, const CsvText& table,
                                            const CsvChoices& choices,
                                            std::vector<StatementQuestion>& questions);

}  // namespace tallyfold
