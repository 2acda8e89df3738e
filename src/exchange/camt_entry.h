#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "exchange/camt_reader.h"
#include "exchange/statement_file.h"

namespace tallyfold {

// One payment of a booking, as a CAMT file has it.
struct CamtDetail {
  std::optional<double> amount;  // without a sign
  std::string currency;
  std::optional<bool> is_credit;  // none where it is as the booking
  std::string debtor;
  std::string creditor;
  std::string ultimate_debtor;
  std::string ultimate_creditor;
  std::string purpose;
  std::string information;
  std::string references;
  std::string check_number;
  std::size_t line = 0;
};

// One booking.
struct CamtEntry {
  std::string amount;  // as written
  std::string currency;
  bool is_credit = true;
  bool is_reversal = false;
  std::string status;  // "" where the file has none
  std::string booked;  // days as written
  std::string valued;
  std::string reference;
  std::string information;
  std::string kind;
  std::vector<CamtDetail> details;
  std::size_t line = 0;
};

// Appends the rows of a booking: one for each detail where all have amounts in its currency that
// add up to it, else one with the texts of all.
void AppendRows(const CamtEntry& entry, StatementAccount& account);

// Gives the rows that are reversals the sign that is chosen or that the balances prove, asks where
// nothing does, and checks the balances of the account.
void Settle(ReversalSign choice, const std::vector<std::size_t>& reversals,
            StatementAccount& account, std::vector<StatementQuestion>& questions);

}  // namespace tallyfold
