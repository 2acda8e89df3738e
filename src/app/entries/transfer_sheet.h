#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "app/desk.h"
#include "app/entries/edit_sheet.h"
#include "app/entries/transfer_sheet_state.h"
#include "app/face/announcer.h"
#include "ledger/transfer_links.h"
#include "model/account.h"

namespace tallyfold {

// The transfer sheet. The first-field preference's to/from is its account pop-up, its type the
// direction pop-up.
class TransferSheet final : public EditSheet {
 public:
  TransferSheet(Keeper& keeper, const Desk& desk, const TransferLinks& links,
                Announcer& announcer) noexcept
      : EditSheet(keeper), desk_(desk), links_(links), announcer_(announcer) {}

  [[nodiscard]] const TransferSheetState& State() const noexcept { return state_; }
  // Takes over what the user typed.
  void Read(TransferSheetState::Typed typed);

  [[nodiscard]] Sheet Which() const noexcept override { return Sheet::Transfer; }
  [[nodiscard]] Area StateArea() const noexcept override { return Area::TransferSheet; }
  void Fill(const EditedEntry& edited, const LDGRAccount& account,
            const LDGRPreferences& preferences) override;
  [[nodiscard]] std::optional<Problem> CheckTyped() override;
  [[nodiscard]] bool ChangesAmountOrDay(const LDGRAccountEntry& entry) const override;
  // Also brings the other half in line, in the other account.
  void Store(const EditedEntry& edited, LDGRAccount& account) override;
  void StoreIn(Change& change, const EditedEntry& edited, LDGRAccount& account) override;
  void SetOpen(bool is_open) noexcept override { state_.is_open = is_open; }
  void SetProblem(std::optional<Problem> problem) override { state_.problem = std::move(problem); }

 private:
  void Forecast();
  void PopulateAccounts(const EditedEntry& edited, const LDGRAccount& account);

  const Desk& desk_;
  const TransferLinks& links_;
  Announcer& announcer_;
  TransferSheetState state_;
  double opened_amount_ = 0.0;
  // The account of the edited entry, and what that entry and its other half add to their accounts.
  std::weak_ptr<LDGRAccount> account_;
  double opened_here_ = 0.0;
  double opened_there_ = 0.0;
  std::int32_t opened_other_ = 0;
};

}  // namespace tallyfold
