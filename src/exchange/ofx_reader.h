#pragma once

#include <string_view>

#include "exchange/statement_file.h"

namespace tallyfold {

// Reads statements of bank accounts and credit cards out of OFX, whether its tags are closed (2.x)
// or left open (1.x), into the accounts of `file`, one for each statement. The eight digits of a
// day as written are the day, whatever time and zone stand behind them. A row whose identifier,
// day, amount and texts an earlier row of its account has starts unmarked. Accounts of shares are
// counted as left out. `text` is valid UTF-8. Linear.
void ReadOfx(std::string_view text, StatementFile& file);

}  // namespace tallyfold
