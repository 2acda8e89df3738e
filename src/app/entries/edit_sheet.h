#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/entries/edited_entry.h"
#include "app/entries/entry_defaults.h"
#include "app/entries/entry_sheet_state.h"
#include "app/face/front_end.h"
#include "app/face/problem.h"
#include "model/date_number.h"

namespace tallyfold {

class Change;
class LDGRAccount;
class LDGRAccountEntry;
class LDGRPreferences;

// What the sheets for entries have in common: each shows an entry of an account in its state and
// writes the state back into it.
class EditSheet {
 public:
  // Who opens and closes the sheet and has the entry it is for.
  class Keeper {
   public:
    virtual ~Keeper() = default;
    virtual void Populate(EditSheet& sheet) = 0;
    virtual bool Open(EditSheet& sheet) = 0;
    virtual void SaveValuesToEditEntry(EditSheet& sheet) = 0;
    virtual bool OK(EditSheet& sheet) = 0;
    virtual bool OKThenNew(EditSheet& sheet, EntryKind kind) = 0;
    virtual void Cancel(EditSheet& sheet) = 0;
  };

  // The keeper must outlive the sheet.
  explicit EditSheet(Keeper& keeper) noexcept : keeper_(keeper) {}
  EditSheet(const EditSheet&) = delete;
  EditSheet& operator=(const EditSheet&) = delete;
  virtual ~EditSheet() = default;

  // The steps of which the others are made: Populate fills the sheet from the edited entry, and
  // what was typed is forgotten, Open shows it, SaveValuesToEditEntry writes what was typed into
  // the entry of the open sheet, where all of it can be stored; Cancel takes that back. Nothing
  // where there is no edited entry of the sheet's kind whose account is there.
  void Populate() { keeper_.Populate(*this); }
  bool Open() { return keeper_.Open(*this); }
  void SaveValuesToEditEntry() { keeper_.SaveValuesToEditEntry(*this); }
  // Writes the sheet into its entry and the entry into the account, and closes the sheet. False
  // when the sheet is not open or when it stays open because what was typed cannot be stored: the
  // sheet's state then says why, unless a field of the front end has refused its text.
  bool OK() { return keeper_.OK(*this); }
  // OK and then the sheet for a new entry; a refused OK ends it there, and so does an owner.
  bool OKThenNew(EntryKind kind) { return keeper_.OKThenNew(*this, kind); }
  // Closes the sheet; the account stays as it was.
  void Cancel() { keeper_.Cancel(*this); }

  // What follows is for the keeper.
  [[nodiscard]] virtual Sheet Which() const noexcept = 0;
  // The area that stands for the sheet's state.
  [[nodiscard]] virtual Area StateArea() const noexcept = 0;
  // Fills the state from the entry.
  virtual void Fill(const EditedEntry& edited, const LDGRAccount& account,
                    const LDGRPreferences& preferences) = 0;
  // Limits the typed day to its month, then tells what cannot be stored of what was typed; none
  // when all of it can.
  [[nodiscard]] virtual std::optional<Problem> CheckTyped() = 0;
  // Whether what was typed gives the entry another amount or day. To be called only after
  // CheckTyped() found nothing.
  [[nodiscard]] virtual bool ChangesAmountOrDay(const LDGRAccountEntry& entry) const = 0;
  // Writes the typed values into the entry, which is one of `account` or about to become one. To
  // be called only after CheckTyped() found nothing.
  virtual void Store(const EditedEntry& edited, LDGRAccount& account) = 0;

  // The same as part of a change, in which what follows for other records is done too.
  virtual void StoreIn(Change& /*change*/, const EditedEntry& edited, LDGRAccount& account) {
    Store(edited, account);
  }

  virtual void SetOpen(bool is_open) noexcept = 0;
  virtual void SetProblem(std::optional<Problem> problem) = 0;

 private:
  Keeper& keeper_;
};

// Limits the day of `date` to its month, then tells whether it names a day of the years 1 to 9999.
// False for none.
[[nodiscard]] bool TweakDayField(std::optional<DateNumber>& date) noexcept;

// Whether it can be stored; false for none.
[[nodiscard]] bool IsTypedAmount(const std::optional<double>& typed) noexcept;
// The first row of a split table whose amount cannot be stored; -1 for none.
[[nodiscard]] std::int32_t RowWithoutAmount(const SplitRows& rows) noexcept;
// What the rows come to, as far as they can be read.
[[nodiscard]] double TotalOf(const SplitRows& rows) noexcept;

// Why the amount field of a sheet cannot be stored, in the user's words: an amount is 0 or more,
// for the kind of the entry gives the sign. One that was stored with another sign may stay as the
// field opened with it. "" when it can.
[[nodiscard]] std::string ProblemOfAmount(const std::optional<double>& typed, double opened);

// The field that the preferences give the focus when a sheet opens.
[[nodiscard]] SheetField FirstField(const LDGRPreferences& preferences, bool is_new) noexcept;

}  // namespace tallyfold
