#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/entries/edit_sheet.h"
#include "app/entries/entry_sheet_state.h"
#include "app/face/announcer.h"

namespace tallyfold {

// The debit sheet and the deposit sheet: one class, two objects.
//
// A debit's amount is stored negative and shown positive. While the split table holds any line, the
// amount shows the lines' total, to/from reads "Split", and both are disabled.
class EntrySheet final : public EditSheet {
 public:
  enum class Kind : std::uint8_t { Debit, Deposit };

  EntrySheet(Kind kind, Keeper& keeper, Announcer& announcer) noexcept
      : EditSheet(keeper), kind_(kind), announcer_(announcer) {}

  [[nodiscard]] const EntrySheetState& State() const noexcept { return state_; }
  // Takes over what the user typed.
  void Read(EntrySheetState::Typed typed);

  [[nodiscard]] Sheet Which() const noexcept override {
    return kind_ == Kind::Debit ? Sheet::Debit : Sheet::Deposit;
  }
  [[nodiscard]] Area StateArea() const noexcept override {
    return kind_ == Kind::Debit ? Area::DebitSheet : Area::DepositSheet;
  }
  void Fill(const EditedEntry& edited, const LDGRAccount& account,
            const LDGRPreferences& preferences) override;
  [[nodiscard]] std::optional<Problem> CheckTyped() override;
  [[nodiscard]] bool ChangesAmountOrDay(const LDGRAccountEntry& entry) const override;
  void Store(const EditedEntry& edited, LDGRAccount& account) override;
  void SetOpen(bool is_open) noexcept override {
    state_.is_open = is_open;
    if (!is_open) former_.reset();
  }
  void SetProblem(std::optional<Problem> problem) override { state_.problem = std::move(problem); }

  // The check box was ticked or unticked. An empty number field of a ticked box is filled with
  // `suggested`; where that is none, the problem says that no number is left.
  void CheckNumber_Button(std::optional<std::int32_t> suggested);

  // The description was typed or chosen: offers what an earlier entry has with it.
  void SuggestForDescription(const EditedEntry& edited, const LDGRAccount& account);
  // Gathers what completes texts and what is suggested, as far as it is not yet: a look at all
  // entries, which otherwise is taken when the first of it is asked for.
  void Gather(const EditedEntry& edited, const LDGRAccount& account);
  void DropSuggestion();
  // Puts what is suggested into those of the fields that are empty and enabled.
  void TakeSuggestion();

  // Whether any row of the split table has a text or an amount other than 0.
  [[nodiscard]] bool IsSplit() const noexcept;
  // These do nothing while the sheet is closed.
  // Empties the split table and to/from, and sets the amount to 0.
  void ClearSplit();
  // The same, but leaves the amount as it was before the first line.
  void Split_ClearSplit();
  // Sums the rows into the total field, as far as they can be read.
  void Split_UpdateTotal();
  // Adds what the lines lack of their target to the selected row; nothing without a target.
  void Split_FillWithRest();
  // A row of the split table was edited.
  void Split_Table_Field();

 private:
  void GatherFormer(const EditedEntry& edited, const LDGRAccount& account);
  void PopulateTypes(const EditedEntry& edited, const LDGRAccount& account);
  void PopulateSplit(const EditedEntry& edited);
  // A problem of that control of this sheet.
  [[nodiscard]] Problem ProblemOf(std::string_view control, std::string text,
                                  std::int32_t row = -1) const;
  void SaveType(const EditedEntry& edited) const;
  void SaveCheck(const EditedEntry& edited) const;
  void SaveSplit(const EditedEntry& edited) const;
  void SumSplit() noexcept;
  void EnableFieldsForSplit(bool is_split) noexcept;
  // The last line went.
  void EndSplit();

  const Kind kind_;
  Announcer& announcer_;
  EntrySheetState state_;
  // What the amount field opened with; 0 where a split's lines made it up.
  double opened_amount_ = 0.0;
  // What was typed as the amount before the first line of the split, none for what is no amount; 0
  // where nothing was and for an entry that opened with its split.
  std::optional<double> amount_before_split_ = 0.0;
  // With the mark of the entries at that time; none before they are gathered.
  std::optional<FormerEntries> former_;
  std::uint64_t former_mark_ = 0;
  // How many of the type items are the account's types.
  std::int32_t type_count_ = 0;
};

}  // namespace tallyfold
