#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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

  std::size_t row = 0;
  WrittenAmount amount;  // of the net column, else of the amount column, else of the debit column
  WrittenAmount credit;
  WrittenAmount fee;
  WrittenAmount balance;
  WrittenDay day;
  MarkMeaning mark = MarkMeaning::None;
};

// Not defaulted within: emplace_back() would fill them with zeros before.
inline CsvNumbers::CsvNumbers() noexcept = default;

// Fills in `numbers`, which is as it was made.
void ReadCsvNumbers(const TableRows& rows, std::size_t row, const CsvNumberColumns& columns,
                    CsvNumbers& numbers);

// How the amounts of a table are meant.
struct CsvAmountRule {
  char decimal_separator = '.';
  bool fees_come_off = false;
  bool spending_is_positive = false;
  // Debits are in a column of their own, and most of them have no sign there.
  bool has_debits = false;
  bool debits_are_negative = false;

  // The amount of a row; none for none that can be read.
  [[nodiscard]] std::optional<double> AmountOf(const CsvNumbers& numbers) const noexcept;
};

struct CsvAmountReading {
  CsvAmountRule rule;
  // Nothing proves the separator, and some amounts hang on it.
  bool has_open_separator = false;
  StatementProof proof;
  std::optional<BalanceOrder> balance_order;
};

// What the balances, or the amounts themselves, prove; questions for the rest. `numbers` are those
// of the rows that are entries.
[[nodiscard]] CsvAmountReading JudgeAmounts(const std::vector<CsvNumbers>& numbers,
                                            const CsvNumberColumns& columns, const TableRows& rows,
                                            const CsvChoices& choices,
                                            std::vector<StatementQuestion>& questions);

// The order that reads the most days. Where several read as many, a question; until it is answered
// the one in which the days follow one another best.
[[nodiscard]] DayOrder JudgeDays(const std::vector<CsvNumbers>& numbers,
                                 const CsvNumberColumns& columns, const TableRows& rows,
                                 const CsvChoices& choices,
                                 std::vector<StatementQuestion>& questions);

}  // namespace tallyfold
