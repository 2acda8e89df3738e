#pragma once

#include <memory>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/face/sheet_slot.h"
#include "app/views/account_summary_tab.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "summaries/account_summary.h"
#include "summaries/summary_layout.h"

namespace tallyfold {

// What the options sheet of a summary shows.
struct AccountSummarySheetState {
  // Typed by the user: an edit copy, changed through its setters; null while the sheet is closed.
  std::shared_ptr<LDGRAccountSummary> options;

  // Decided by the program.
  bool is_open = false;
  bool ok_is_enabled = false;
  // The two days can be typed, because the range does not follow from anything else.
  bool days_are_enabled = false;
  bool filter_is_enabled = false;
  // What can be chosen; tags are the numbers that the options store. An option may have a number
  // that is not among them.
  std::vector<PopUpItem> date_ranges;
  std::vector<PopUpItem> period_styles;
  std::vector<PopUpItem> show_styles;
  std::vector<PopUpItem> resolved;
  std::vector<PopUpItem> tax_deductible;
  std::vector<PopUpItem> checks;
  std::vector<PopUpItem> filter_types;
  // The summary as it would be with these options.
  SummaryLayout result;
};

// The options sheet of the selected account's selected summary.
class AccountSummarySheet {
 public:
  AccountSummarySheet(Desk& desk, Ledger& ledger, AccountSummaryTab& tab, SheetSlot& sheets,
                      Announcer& announcer) noexcept
      : desk_(desk), ledger_(ledger), tab_(tab), sheets_(sheets), announcer_(announcer) {}
  AccountSummarySheet(const AccountSummarySheet&) = delete;
  AccountSummarySheet& operator=(const AccountSummarySheet&) = delete;

  [[nodiscard]] const AccountSummarySheetState& State() const noexcept { return state_; }

  // False while a sheet is open and when no summary is selected.
  bool Open();
  // Takes the edit copy from the selected summary once more.
  void Populate();
  // The options have changed: computes the result anew.
  void OptionsChanged();
  // Stores the options and shows the summary. False for a name of nothing but blanks and when a
  // field refuses its text.
  bool OK();
  // Closes the sheet; nothing has changed.
  void Cancel();

 private:
  void Close();

  Desk& desk_;
  Ledger& ledger_;
  AccountSummaryTab& tab_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  AccountSummarySheetState state_;
  // Whose summary is edited, and which.
  std::shared_ptr<LDGRAccount> account_;
  std::shared_ptr<LDGRAccountSummary> summary_;
};

}  // namespace tallyfold
