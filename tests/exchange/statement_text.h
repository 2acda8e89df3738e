#pragma once

#include <string>
#include <string_view>

#include "exchange/statement_file.h"

namespace tallyfold {

// All that was read of a bank's file, a line for each thing: what it is, the accounts with their
// balances, proof and rows, the questions.
[[nodiscard]] std::string TextOfStatement(const StatementFile& file);

}  // namespace tallyfold
