#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "app/face/sheet_slot.h"
#include "app/views/account_summary_tab.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "model/date_number.h"
#include "summaries/account_summary.h"
#include "summaries/summary_layout.h"

namespace tallyfold {

// What the options sheet of a summary shows.
struct AccountSummarySheetState {
  // Typed by the user. The numbers are those that LDGRAccountSummary stores.
  struct Typed {
    std::string name;
    std::int32_t date_range = 0;
    // Of a custom range; of another the days that follow from it. None where the field cannot be
    // read as a date.
    std::optional<DateNumber> start = kNullDate;
    std::optional<DateNumber> end = kNullDate;
    std::int32_t period_style = 0;
    std::int32_t show_style = 0;
    bool show_debits = true;
    bool show_deposits = true;
    bool show_transfers = true;
    std::int32_t resolved = 0;
    std::int32_t tax_deductible = 0;
    std::int32_t checks = 0;
    bool subtotal_descriptions = true;
    bool subtotal_types = true;
    bool subtotal_to_froms = true;
    bool filter = false;
    std::int32_t filter_type = 0;
    std::string filter_text;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  // Whether OK would be taken as things stand; pressed all the same, it tells why not.
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
  // The fields are accountSummarySheet_Name_Field, _Start_Field and _End_Field.
  std::optional<Problem> problem;
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
  // The summary as it would be with these options; a day that cannot be read stays as it was.
  // Computed when it is asked for: that is a look at every entry. Good until the next one.
  [[nodiscard]] const SummaryLayout& Result();
  // Takes over what the user typed.
  void Read(AccountSummarySheetState::Typed typed);
  // Stores the options and shows the summary. False when the sheet is not open, or stays open: its
  // state then says why, unless a field of the front end has refused its text.
  bool OK();
  // Closes the sheet; nothing has changed.
  void Cancel();

 private:
  // Puts what was typed into the edit copy, as far as it can be read.
  void TakeOptions();
  // What follows from the edit copy but for its result.
  void Decide();
  [[nodiscard]] std::optional<Problem> Check() const;
  void Close();

  Desk& desk_;
  Ledger& ledger_;
  AccountSummaryTab& tab_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  AccountSummarySheetState state_;
  // An edit copy of the options; null while the sheet is closed.
  std::shared_ptr<LDGRAccountSummary> options_;
  // Of the edit copy; none where that has been changed since.
  std::optional<SummaryLayout> result_;
  // Whose summary is edited, and which.
  std::shared_ptr<LDGRAccount> account_;
  std::shared_ptr<LDGRAccountSummary> summary_;
};

}  // namespace tallyfold
