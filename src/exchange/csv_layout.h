#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"
#include "exchange/table_reader.h"

namespace tallyfold {

// How the text of a table becomes rows and columns, before anything of them is read.

// The rows that its layout is told by: the first ones.
inline constexpr std::size_t kLayoutRows = 200;

// Where its lines begin: behind "sep=;", which names the delimiter.
[[nodiscard]] std::string_view TableBody(std::string_view text) noexcept;

// The one that gives the most cells that are known headings, days and amounts.
[[nodiscard]] char DelimiterOf(std::string_view text, const CsvChoices& choices);

// The row of headings among the first rows of a table; none for one without.
[[nodiscard]] std::optional<std::size_t> HeadingRow(const TableRows& rows,
                                                    const CsvChoices& choices);

// What each column holds: as chosen, else by the headings, and what no heading tells by the first
// rows behind it. Asks where several columns may have the amounts, but does not say how many rows
// are concerned.
[[nodiscard]] std::vector<CsvField> ColumnsOf(const TableRows& rows,
                                              std::optional<std::size_t> heading,
                                              const CsvChoices& choices,
                                              std::vector<StatementQuestion>& questions);

}  // namespace tallyfold
