#pragma once

#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/shell/modal_watch.h"
#include "app/shell/tabs.h"
#include "app/views/account_summary_tab.h"
#include "ledger/ledger.h"

namespace tallyfold {

// A step of the history as it is shown, the names looked up.
struct UndoLine {
  std::string name;
  // The account in which it was ordered; "" for none.
  std::string account;
  Instant when{};
  // Whether undoing, or redoing, can get as far as this step now.
  bool can_be_reached = true;
};

// Undo and redo of everything that changes the accounts, as far back as the launch. What comes back
// is brought before the user: its account is selected, its tab shows and its row is selected.
class Undo final : private LedgerListener {
 public:
  // All must outlive this.
  Undo(Ledger& ledger, Desk& desk, const SheetSlot& sheets, const ModalWatch& modal,
       AccountSelection& selection, Tabs& tabs, AccountSummaryTab& summaries, Refresh& refresh,
       Announcer& announcer);
  Undo(const Undo&) = delete;
  Undo& operator=(const Undo&) = delete;
  ~Undo() override;

  // False while the application is locked, while a sheet, a panel or an import is up, and where
  // the next step was ordered in an account that is locked now.
  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;
  // "Undo Remove Entry"; "Undo" alone when there is nothing to undo, or nothing that can be.
  [[nodiscard]] std::string UndoTitle() const;
  [[nodiscard]] std::string RedoTitle() const;
  // The steps, the next one first; none of a locked account, none while the application is locked.
  [[nodiscard]] std::vector<UndoLine> UndoLines() const;
  [[nodiscard]] std::vector<UndoLine> RedoLines() const;

  // False, and nothing has changed, when it cannot be done.
  bool UndoStep();
  bool RedoStep();

 private:
  [[nodiscard]] bool IsFree() const;
  [[nodiscard]] std::vector<UndoLine> Shown(const std::vector<History::Line>& lines) const;
  bool Take(bool (History::*step)());
  void LedgerChanged(const ChangeSet& set) override;
  void Show(const ChangeSet& set);
  void ShowRecordOf(const AccountChanges& changes);

  Ledger& ledger_;
  Desk& desk_;
  const SheetSlot& sheets_;
  const ModalWatch& modal_;
  AccountSelection& selection_;
  Tabs& tabs_;
  AccountSummaryTab& summaries_;
  Refresh& refresh_;
  Announcer& announcer_;
  // Of the step that is being undone or redone.
  ChangeSet taken_;
};

}  // namespace tallyfold
