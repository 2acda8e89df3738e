#pragma once

#include <string_view>

#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"

namespace tallyfold {

// Reads a bank's table, valid UTF-8, into one account of `file`, and tells how it was read.
// Preamble, footer, lines that name balances and lines that go on from the row above become no
// entries. What is not chosen is found out from the whole table; what nothing proves is asked in
// the questions of `file`, and the first candidate holds. Encoding is no matter of it. Linear.
[[nodiscard]] CsvReading ReadCsv(std::string_view text, const CsvChoices& choices,
                                 StatementFile& file);

}  // namespace tallyfold
