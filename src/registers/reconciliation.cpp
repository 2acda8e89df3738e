#include "registers/reconciliation.h"

#include "model/account_entry.h"
#include "model/amounts.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

// Sums of cents miss them by a little; adding 0.0 takes the sign off a zero.
double InCents(double sum) noexcept {
  return RoundedAmount(sum) + 0.0;
}

}  // namespace

Reconciliation ReconciliationOf(const LDGRAccount& account) noexcept {
  Reconciliation figures;
  for (const auto& entry : account.GetEntries()) {
    const double amount = entry->GetAmount();
    if (!entry->GetCleared()) {
      ++figures.unresolved_count;
      figures.unresolved_sum += amount;
    } else if (amount < 0.0) {
      ++figures.resolved_debit_count;
      figures.resolved_debits += amount;
    } else {
      ++figures.resolved_deposit_count;
      figures.resolved_deposits += amount;
    }
  }
  figures.statement_balance = InCents(account.statementBalance());
  figures.resolved_balance =
      InCents(account.GetStartingBalance() + figures.resolved_debits + figures.resolved_deposits);
  figures.difference = InCents(figures.statement_balance - figures.resolved_balance);
  figures.unresolved_sum = InCents(figures.unresolved_sum);
  figures.resolved_debits = InCents(figures.resolved_debits);
  figures.resolved_deposits = InCents(figures.resolved_deposits);
  return figures;
}

std::string DifferenceText(const Reconciliation& figures, const LDGRPreferences& preferences) {
  return figures.IsBalanced() ? LocalizedText("Balanced")
                              : RegisterAmountText(figures.difference, preferences);
}

}  // namespace tallyfold
