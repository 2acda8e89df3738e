#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/views/registers.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "registers/difference_explanation.h"
#include "registers/reconciliation.h"

namespace tallyfold {

class LDGRAccountTableViewData;

// The figures of the Reconcile tab.
struct ReconcileTabState {
  // False without an account; the rest is then empty.
  bool is_enabled = false;
  Reconciliation figures;
  // "Balanced", or an amount.
  std::string difference;
  // What may be behind the difference; none when nothing stands out.
  std::optional<DifferenceExplanation> explanation;
  std::string explanation_text;
};

// Reconciling the selected account with a statement of its bank.
class ReconcileTab {
 public:
  ReconcileTab(Desk& desk, Ledger& ledger, Registers& registers, EntryEditing& editing,
               Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        registers_(registers),
        editing_(editing),
        refresh_(refresh),
        announcer_(announcer) {}
  ReconcileTab(const ReconcileTab&) = delete;
  ReconcileTab& operator=(const ReconcileTab&) = delete;

  // As it is now; computed when it is asked for, and only after a change.
  [[nodiscard]] const ReconcileTabState& State();

  // Editing of the statement balance has ended with that amount, which is stored in cents. False,
  // and nothing changes, without an account and for what is no amount of less than 10^13.
  bool StatementBalance_EndEditing(double balance);

  // The key for the cleared mark: turns the mark of the current register's selected row over and
  // selects the next row. The row stays where it is, whatever the filter, until the next reload.
  // False when no row is selected.
  bool TurnClearedOverAndMoveOn();

 private:
  Desk& desk_;
  Ledger& ledger_;
  Registers& registers_;
  EntryEditing& editing_;
  Refresh& refresh_;
  Announcer& announcer_;
  // What the state was computed for.
  std::weak_ptr<LDGRAccount> account_;
  std::uint64_t revision_ = 0;
  ReconcileTabState state_;
};

}  // namespace tallyfold
