#pragma once

#include <string_view>

#include "exchange/camt_reader.h"
#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"
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

// The doubts of the account's rows, by their places from 1 on, for ImportHints::doubts.
[[nodiscard]] std::vector<ImportDoubt> DoubtsOf(const StatementAccount& account);
// How many rows start unmarked for a reason.
[[nodiscard]] std::size_t CountUnmarked(const StatementAccount& account, UnmarkedReason reason);

}  // namespace tallyfold
