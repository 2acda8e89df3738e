#pragma once

#include <cstddef>
#include <string>

#include "model/account.h"
#include "storage/preferences.h"

namespace tallyfold {

// How far an account agrees with a statement of its bank. An entry is resolved when it has the
// cleared mark. Sums are rounded to cents, and none is a negative zero.
struct Reconciliation {
  // As the user typed it.
  double statement_balance = 0.0;
  // The starting balance and what is resolved.
  double resolved_balance = 0.0;
  // What the statement has more than that.
  double difference = 0.0;

  std::size_t unresolved_count = 0;
  double unresolved_sum = 0.0;

  // Resolved money out of the account and into it, apart, as a statement has them: by the sign of
  // the amount, transfers included. The first is negative or 0.
  std::size_t resolved_debit_count = 0;
  double resolved_debits = 0.0;
  std::size_t resolved_deposit_count = 0;
  double resolved_deposits = 0.0;

  [[nodiscard]] bool IsBalanced() const noexcept { return difference == 0.0; }

  friend bool operator==(const Reconciliation&, const Reconciliation&) = default;
};

// One pass over the entries. A locked account is reckoned like any other: who must not see its
// figures must not ask.
[[nodiscard]] Reconciliation ReconciliationOf(const LDGRAccount& account) noexcept;

// The difference as the user reads it: "Balanced" when there is none, else an amount.
[[nodiscard]] std::string DifferenceText(const Reconciliation& figures,
                                         const LDGRPreferences& preferences);

}  // namespace tallyfold
