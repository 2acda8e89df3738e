#pragma once

#include <memory>
#include <optional>

#include "app/desk.h"
#include "app/entries/entry_remove_sheet_state.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"

namespace tallyfold {

class Change;

// Removes the selected entry, after the questions that apply. What is asked about is what the
// answer removes, whatever is selected by then.
class EntryRemoval {
 public:
  EntryRemoval(Desk& desk, Ledger& ledger, const TransferLinks& links, SheetSlot& sheets,
               Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        ledger_(ledger),
        links_(links),
        sheets_(sheets),
        refresh_(refresh),
        announcer_(announcer) {}
  EntryRemoval(const EntryRemoval&) = delete;
  EntryRemoval& operator=(const EntryRemoval&) = delete;

  [[nodiscard]] const EntryRemoveSheetState& Confirm() const noexcept { return confirm_; }
  [[nodiscard]] const TransferEntryRemoveSheetState& Transfer() const noexcept { return transfer_; }

  // Asks whether the selected entry is to be removed, or removes it at once where the user wants no
  // question. Nothing without a selected entry, and nothing while a sheet is open.
  void EntryRemoveConfirm_Begin();
  // The answers. False when the question is not open, or stays open because what it asked about has
  // gone meanwhile: its state then says so.
  bool EntryRemoveConfirm_OK();
  void EntryRemoveConfirm_Cancel();

  // Asks what becomes of the other half of the transfer that is selected.
  void TransferEntryRemoveConfirm_Begin();
  // The other half stays in its account as an ordinary entry.
  bool TransferEntryRemoveConfirm_Yes();
  // The other half is removed too.
  bool TransferEntryRemoveConfirm_No();
  void TransferEntryRemoveConfirm_Cancel();

  // Removes the selected entry without a question and leaves another half as it is.
  void Entry_Delete();

 private:
  // What a sheet asks about.
  struct Asked {
    std::shared_ptr<LDGRAccount> account;
    std::shared_ptr<LDGRAccountEntry> entry;
  };

  [[nodiscard]] Asked Selected() const;
  // What is to be told when it is not; none when it is.
  [[nodiscard]] std::optional<Problem> ProblemOfAsked() const;
  // Whether it is still there to be removed.
  [[nodiscard]] bool IsThere(const Asked& asked) const;
  void AskForOtherHalfOrDelete(const Asked& asked);
  void AskForOtherHalf(const Asked& asked);
  void CloseConfirm();
  void CloseTransfer();
  // Removes the entry after the answer about its other half, which `half` carries out.
  bool AnswerTransfer(void (TransferLinks::*half)(Change&, const LDGRAccount&,
                                                  const LDGRAccountEntry&) const);
  void Delete(const Asked& asked);

  Desk& desk_;
  Ledger& ledger_;
  const TransferLinks& links_;
  SheetSlot& sheets_;
  Refresh& refresh_;
  Announcer& announcer_;
  EntryRemoveSheetState confirm_;
  TransferEntryRemoveSheetState transfer_;
  Asked asked_;
};

}  // namespace tallyfold
