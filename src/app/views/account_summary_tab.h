#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "platform/alerts.h"
#include "summaries/account_summary.h"
#include "summaries/summary_layout.h"
#include "summaries/summary_line.h"

namespace tallyfold {

// What the summary tab shows. All of it is decided by the program.
struct AccountSummaryTabState {
  // The selected account's summaries by name; empty when no account is selected.
  AccountSummaryList summaries;
  // Row of the summary that is shown; kNoItem for none.
  std::int32_t selected_row = kNoItem;
  // That summary, computed from the entries as they are now.
  SummaryLayout layout;
};

// The summary tab: the selected account's summaries, and what is done with them.
class AccountSummaryTab {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Whether it is a row of the current register.
    [[nodiscard]] virtual bool IsShown(const LDGRAccountEntry* entry) const = 0;
    // Shows a register, if another tab is showing.
    virtual void ShowRegister() = 0;
    // The same, with every entry in it.
    virtual void ShowAllEntries() = 0;
  };

  AccountSummaryTab(Host& host, Desk& desk, Ledger& ledger, Alerts& alerts, const SheetSlot& sheets,
                    Announcer& announcer) noexcept
      : host_(host),
        desk_(desk),
        ledger_(ledger),
        alerts_(alerts),
        sheets_(sheets),
        announcer_(announcer) {}
  AccountSummaryTab(const AccountSummaryTab&) = delete;
  AccountSummaryTab& operator=(const AccountSummaryTab&) = delete;

  // The selected account is another one, or its summary is to be shown.
  void Show();
  // Computes the summary when it, the account or the day has changed since it was asked for last.
  [[nodiscard]] const AccountSummaryTabState& State();

  // Each shows what it leaves selected. All do nothing and return false or null without a selected
  // account and while a sheet is open.

  // False for a row that there is not.
  bool Select(std::size_t row);
  // False for one that is not of the selected account.
  bool SelectSummary(const LDGRAccountSummary* summary);
  // A new summary with a name of its own, which is then selected.
  std::shared_ptr<LDGRAccountSummary> Add();
  // A copy of the selected summary under a name of its own, which is then selected; null also when
  // none is selected.
  std::shared_ptr<LDGRAccountSummary> Duplicate();
  // False also for a name of nothing but blanks.
  bool Rename(std::string_view name);
  // Removes the selected summary. The last one stays, and an alert says so.
  bool Remove();
  // Goes to the register with the last of the entries that a line of the selected summary counts
  // selected; a filter that hides one of them gives way. Gives all of them; none, with nothing
  // done, where the line counts none.
  EntryList ShowEntries(const SummaryLine& line);

 private:
  // What the state was made from.
  struct Source {
    const LDGRAccount* account = nullptr;
    std::uint64_t revision = 0;
    DateNumber today = kNullDate;
    std::string date_format;

    friend bool operator==(const Source&, const Source&) = default;
  };

  // The account whose summaries can be changed now; null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountToChange() const;
  std::shared_ptr<LDGRAccountSummary> AddAndSelect(std::string_view step,
                                                   const std::shared_ptr<LDGRAccount>& account,
                                                   std::shared_ptr<LDGRAccountSummary> summary,
                                                   const std::string& name);

  Host& host_;
  Desk& desk_;
  Ledger& ledger_;
  Alerts& alerts_;
  const SheetSlot& sheets_;
  Announcer& announcer_;
  AccountSummaryTabState state_;
  std::optional<Source> source_;
};

}  // namespace tallyfold
