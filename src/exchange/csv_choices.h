#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_headings.h"
#include "exchange/written_day.h"
#include "platform/text_encodings.h"

namespace tallyfold {

// How a table of a bank is read. What is not chosen the reader finds out, asks, or leaves as it is.
struct CsvChoices {
  std::optional<TextEncoding> encoding;
  std::optional<char> delimiter;
  std::optional<bool> has_heading;
  // By columns from the left, those beyond the last are None; empty where the reader decides.
  std::vector<CsvField> columns;
  std::optional<DayOrder> day_order;
  std::optional<char> decimal_separator;  // "." or ","
  std::optional<bool> fees_come_off;
  // Money spent is positive, as files of cards have it.
  std::optional<bool> spending_is_positive;
};

// Where the balance on each row stands in time, and the rows.
struct BalanceOrder {
  bool is_before = false;  // of the row's amount
  bool is_newest_first = false;
};

// A line of a table that is no entry.
struct LeftOutLine {
  enum class Reason : std::uint8_t {
    Before,     // before the first entry: preamble
    Behind,     // behind the last one: footer
    Balance,    // names a balance or a sum
    Continued,  // goes on with the texts of the entry above
    Unread,     // has something for a day or an amount, which can be read as neither
    Bare,       // has neither day nor amount
  };
  Reason reason = Reason::Bare;
  std::size_t line = 0;  // from 1 on
  std::string text;      // of its cells, no more than what fits a line of a table
};

// The English key of a reason.
[[nodiscard]] std::string_view TextOf(LeftOutLine::Reason reason) noexcept;

// How a table was read, for whoever shows it and lets it be changed.
struct CsvReading {
  // Everything has a value, as chosen or found out. `columns` has one for each column.
  CsvChoices choices;
  std::vector<std::string> headings;  // empty without a heading
  std::size_t heading_line = 0;       // 0 without
  // The cells of the first entry as the file has them; of the first row where days or amounts lack.
  std::vector<std::string> first_row;
  // Tells the heading from those of other files; see HeadingDigest().
  std::string digest;
  std::optional<BalanceOrder> balance_order;  // none where the balances prove none
  // Lines that name a balance or a sum, lines that were added to the row before them, and lines
  // before, behind and among the rows that are nothing of that.
  std::size_t balance_lines = 0;
  std::size_t continuation_lines = 0;
  std::size_t other_lines = 0;
  // The first of all these, in the order of the file; none where nothing can come of the table.
  static constexpr std::size_t kMostLeftOut = 1000;
  std::vector<LeftOutLine> left_out;
  // Why nothing can come of it: no column has days, or none amounts.
  bool lacks_days = false;
  bool lacks_amounts = false;
};

// Sixteen hexadecimal digits, the same for headings that differ in case, accents and signs alone;
// of a table without a heading, for the same number of columns. Choices for files like this one are
// kept under "import " and the digest.
[[nodiscard]] std::string HeadingDigest(const std::vector<std::string>& headings,
                                        std::size_t columns);
[[nodiscard]] std::string ImportIdentifier(const CsvReading& reading);

}  // namespace tallyfold
