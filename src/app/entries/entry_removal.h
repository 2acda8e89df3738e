#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "app/desk.h"
#include "app/entries/entry_remove_sheet_state.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "ledger/ledger.h"
#include "ledger/transfer_links.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

// Removes entries of the selected account, after the questions that apply: one for all of them,
// then one for the other halves of all the transfers among them. What is asked about is what the
// answer removes, in one step, whatever is selected by then.
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
  // The same for any entries of the selected account; the question tells how many they are and what
  // they come to.
  void EntriesRemoveConfirm_Begin(const EntryList& entries);
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
    EntryList entries;
  };

  [[nodiscard]] Asked Selected() const;
  // Without what is not there to be removed.
  [[nodiscard]] Asked Present(Asked asked) const;
  // What of it is asked about still; none, and a problem, when nothing of it is left.
  [[nodiscard]] std::optional<Asked> StillAsked(std::optional<Problem>& problem) const;
  void Begin(Asked asked);
  // What the user is told of other halves that cannot be told from others.
  [[nodiscard]] std::string NoteOnOtherHalves(const Asked& asked) const;
  // Those whose other half would stay.
  [[nodiscard]] EntryList TransfersWithOtherHalf(const Asked& asked) const;
  void AskForOtherHalvesOrDelete(const Asked& asked);
  void AskForOtherHalves(const Asked& asked, const EntryList& transfers);
  void CloseConfirm();
  void CloseTransfer();
  enum class OtherHalves : std::uint8_t { Ignored, Unlinked, Removed };
  // The answer to the question what becomes of the other halves.
  bool AnswerTransfer(OtherHalves halves);
  void Delete(const Asked& asked, OtherHalves halves);

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
