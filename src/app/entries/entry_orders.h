#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "platform/alerts.h"

namespace tallyfold {

class Change;

// What the last order came to.
struct EntryOrdersState {
  // Why it was not carried out, in the user's words; "" when it was.
  std::string problem;
  // What became of something beside what was ordered; "" for nothing to tell.
  std::string note;
  // The entries that it made or changed, and the account they are in now; null for none.
  std::shared_ptr<LDGRAccount> account;
  EntryList entries;
};

// What is ordered of entries of the selected account without a sheet. Each order is one step, all
// of it or nothing. It does nothing, and returns false, where none of its entries is in the account
// and while a sheet is open; where the state says why, it is refused.
class EntryOrders {
 public:
  EntryOrders(Desk& desk, Ledger& ledger, const TransferLinks& links, Alerts& alerts,
              const SheetSlot& sheets, Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        links_(links),
        alerts_(alerts),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer) {}
  EntryOrders(const EntryOrders&) = delete;
  EntryOrders& operator=(const EntryOrders&) = delete;

  [[nodiscard]] const EntryOrdersState& State() const noexcept { return state_; }
  // What was ordered is of the past.
  void Forget() { state_ = {}; }

  // --- The selected entry -----------------------------------------------------------------------

  // Adds a copy, which is then selected. It has the day of a new entry and is not cleared; a check
  // gets the number of a new check. A transfer gets an other half of its own, which has what the
  // other half of the original has beside it.
  bool Entry_Duplicate();
  // A debit becomes a deposit of the same money and the other way round. Its type gives way to the
  // one of the same name and the other kind or to none, and a check loses its number; the state
  // tells. A transfer goes in the other direction, in both accounts. A resolved entry is asked for
  // first.
  bool Entry_ChangeKind();
  // Whether the selected entry is of one kind.
  [[nodiscard]] bool CanChangeKind() const;

  // --- One or several ---------------------------------------------------------------------------

  // The accounts that entries can be moved to: the others that are not locked. The tag is the
  // number.
  [[nodiscard]] std::vector<PopUpItem> AccountItems() const;
  // Moves the entries to the account of that number, with all that was typed into them and under
  // new numbers. A type is that of the same name and kind there, or made. The other halves of
  // transfers follow; one whose other half is in that account is refused, and with it all.
  bool MoveTo(const EntryList& entries, std::int32_t account_number);
  // Sets the mark of all, or takes it away.
  bool SetCleared(const EntryList& entries, bool cleared);
  // Gives the type of that number, -1 for none, to those that can take it; the state tells of
  // others. Transfers keep what they have.
  bool SetType(const EntryList& entries, std::int32_t type);

 private:
  // The order begins. None where it cannot.
  [[nodiscard]] std::shared_ptr<LDGRAccount> Begin();
  bool Refuse(std::string problem);
  bool Done(const std::shared_ptr<LDGRAccount>& account, EntryList entries);
  // Those that are in the account, each once.
  [[nodiscard]] static EntryList ThoseOf(const LDGRAccount& account, const EntryList& entries);
  void CopyOtherHalf(Change& change, LDGRAccount& account, const LDGRAccountEntry& original,
                     LDGRAccountEntry& copy) const;
  void TurnOver(const LDGRAccount& account, LDGRAccountEntry& entry);
  void TurnTransferOver(Change& change, LDGRAccount& account, LDGRAccountEntry& entry);

  Desk& desk_;
  Ledger& ledger_;
  const TransferLinks& links_;
  Alerts& alerts_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  EntryOrdersState state_;
};

}  // namespace tallyfold
