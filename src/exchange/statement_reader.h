#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "exchange/camt_reader.h"
#include "exchange/csv_choices.h"
#include "exchange/import_hints.h"
#include "exchange/statement_file.h"
#include "model/date_number.h"
#include "platform/text_encodings.h"

namespace tallyfold {

// What can be chosen for a bank's file; each kind of file takes what applies to it.
struct StatementChoices {
  CsvChoices csv;
  ReversalSign reversals = ReversalSign::Proven;
};

// Reads OFX, CAMT and tables, whatever the file is called. Of anything else, QIF included, only
// `content` is filled in; see RefusalOf(). Never fails; linear.
[[nodiscard]] StatementFile ReadStatementFile(std::string_view bytes,
                                              const TextEncodings& encodings,
                                              const StatementChoices& choices = {});

// Why nothing can come of a file that has been read, and what to do: the English key; "" where
// something can.
[[nodiscard]] std::string_view ProblemOf(const StatementFile& file) noexcept;

// What is doubtful of rows, by their places from 1 on, and the days that they span. The replaced
// bytes of the file are counted among it.
[[nodiscard]] ImportHints HintsFor(const StatementFile& file, const std::vector<StatementRow>& rows,
                                   DateNumber today);

// How many rows start unmarked for a reason.
[[nodiscard]] std::size_t CountUnmarked(const std::vector<StatementRow>& rows,
                                        UnmarkedReason reason);

}  // namespace tallyfold
