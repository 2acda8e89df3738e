#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_pair.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

struct TransferLinkingState {
  // Why the last order to link was refused, in the user's words; "" when it was not.
  std::string problem;
  // What gave way in it; "" for nothing to tell.
  std::string note;
  // Imported entries with what is certainly their other half in another account, until they are
  // linked or turned down, or one of the two changes; and a sentence that tells how many there are,
  // "" for none.
  std::vector<TransferPair> offers;
  std::string offer_text;
};

// Makes one transfer of two entries in two accounts, which were entered or imported on their own.
// See LinkPair() for what becomes of them. Both are linked in one step.
class TransferLinking final : private LedgerListener {
 public:
  TransferLinking(Desk& desk, Ledger& ledger, const SheetSlot& sheets, Refresh& refresh,
                  Announcer& announcer);
  TransferLinking(const TransferLinking&) = delete;
  TransferLinking& operator=(const TransferLinking&) = delete;
  ~TransferLinking() override;

  [[nodiscard]] const TransferLinkingState& State() const noexcept { return state_; }
  // What was offered is of the past.
  void Forget();

  // The entries that may be the other half of the selected one, the nearest day first.
  [[nodiscard]] const std::vector<TransferPair>& Candidates() const;
  // Whether one of them is nearer than all others.
  [[nodiscard]] bool CanLink() const;
  // Links the selected entry with that one.
  bool Entry_Link();
  // Links the selected entry with any entry of another account. False, and the state tells, for two
  // that cannot be a transfer.
  bool Link(const std::shared_ptr<LDGRAccount>& other_account,
            const std::shared_ptr<LDGRAccountEntry>& other);

  // Links all that is offered, in one step. False when nothing is.
  bool LinkOffered();
  void DropOffers();

 private:
  void LedgerChanged(const ChangeSet& set) override;
  void DropChanged(const ChangeSet& set);
  void OffersChanged();
  bool LinkAll(const std::vector<TransferPair>& pairs);

  Desk& desk_;
  Ledger& ledger_;
  const SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  TransferLinkingState state_;
  // For which entry and at which state of the accounts the candidates were looked for.
  struct Asked {
    std::shared_ptr<LDGRAccountEntry> entry;
    std::vector<std::uint64_t> accounts;
    friend bool operator==(const Asked&, const Asked&) = default;
  };
  mutable Asked asked_;
  mutable std::vector<TransferPair> candidates_;
};

}  // namespace tallyfold
