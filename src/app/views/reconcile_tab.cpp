#include "app/views/reconcile_tab.h"

#include <cmath>

#include "ledger/change.h"
#include "model/amounts.h"
#include "registers/account_table_view_data.h"

namespace tallyfold {
namespace {

// Below this every cent is exact.
constexpr double kGreatestBalance = 1e13;

}  // namespace

const ReconcileTabState& ReconcileTab::State() {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return state_ = ReconcileTabState();
  if (!state_.is_enabled || account_.lock() != account || revision_ != account->Revision()) {
    account_ = account;
    revision_ = account->Revision();
    state_ = ReconcileTabState();
    state_.is_enabled = true;
    state_.figures = ReconciliationOf(*account);
    state_.explanation = ExplainDifference(*account, state_.figures);
    if (state_.explanation) state_.explanation_text = ExplanationText(*state_.explanation);
  }
  // The preferences may want it in another way by now.
  state_.difference = DifferenceText(state_.figures, desk_.preferences());
  return state_;
}

bool ReconcileTab::StatementBalance_EndEditing(double balance) {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || !(std::fabs(balance) < kGreatestBalance)) return false;
  Change change(ledger_, "Statement Balance", account);
  change.EditOptions(account).setStatementBalance(RoundedAmount(balance) + 0.0);
  change.Close();
  refresh_.ReconcileTab_UpdateBalances();
  return true;
}

bool ReconcileTab::TurnClearedOverAndMoveOn() {
  const Announcer::Operation operation(announcer_);
  LDGRAccountTableViewData& rows = registers_.currentTableDataSource();
  const auto entry = rows.GetSelectedEntry();
  if (entry == nullptr) return false;
  editing_.TurnClearedOver(entry);
  const std::int32_t next = rows.EntryToRow(entry.get()).value_or(0) + 1;
  if (rows.RowToEntry(next) != nullptr) rows.SelectRow(next);
  return true;
}

}  // namespace tallyfold
