#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "filters/filter.h"
#include "ledger/transfer_links.h"
#include "model/account.h"

namespace tallyfold {

// Shown while an entry that the user would look for is not in the register: "" for none.
struct HiddenEntryState {
  // "Added; hidden by the filter 'This Month'"
  std::string text;
};

// Finds entries that are not in front of the user: one that the current register's filter hides,
// and the other half of a transfer.
class EntryReveal {
 public:
  // Why an entry is looked for.
  enum class Reason : std::uint8_t { Added, Changed, Sought };

  class Host {
   public:
    virtual ~Host() = default;
    // Whether it is a row of the current register.
    [[nodiscard]] virtual bool IsShown(const LDGRAccountEntry* entry) const = 0;
    // The filter of the current register of the selected account.
    [[nodiscard]] virtual std::shared_ptr<LDGRFilter> CurrentFilter() const = 0;
    // Shows a register, if another tab is showing, with every entry in it.
    virtual void ShowAllEntries() = 0;
    virtual void Account_Select(const std::shared_ptr<LDGRAccount>& account) = 0;
  };

  EntryReveal(Host& host, Desk& desk, const SheetSlot& sheets, const TransferLinks& links,
              Announcer& announcer) noexcept
      : host_(host), desk_(desk), sheets_(sheets), links_(links), announcer_(announcer) {}
  EntryReveal(const EntryReveal&) = delete;
  EntryReveal& operator=(const EntryReveal&) = delete;

  [[nodiscard]] const HiddenEntryState& State() const noexcept { return state_; }

  // Tells when that entry of the selected account is not shown. One that the filter would hide but
  // that is still in its row is not missed.
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, Reason reason);
  // Nothing is hidden that the user would look for.
  void Forget();
  // Takes the filter away and selects the entry. Nothing when none is hidden.
  void ShowHiddenEntry();

  // Selects the account that has the other half of the selected transfer, and the other half in
  // it. False when there is none, or its account first asks for its password.
  bool ShowOtherHalf();
  // Selects an account and an entry in it, wherever the user came across it. False while a sheet is
  // open, and when the account first asks for its password.
  bool Show(const std::shared_ptr<LDGRAccount>& account,
            const std::shared_ptr<LDGRAccountEntry>& entry);

 private:
  Host& host_;
  Desk& desk_;
  const SheetSlot& sheets_;
  const TransferLinks& links_;
  Announcer& announcer_;
  HiddenEntryState state_;
  std::weak_ptr<LDGRAccountEntry> hidden_;
};

}  // namespace tallyfold
