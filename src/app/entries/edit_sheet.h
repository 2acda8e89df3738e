#pragma once

#include <string>

#include "app/entries/edited_entry.h"
#include "app/entries/entry_sheet_state.h"
#include "app/face/front_end.h"
#include "model/date_number.h"

namespace tallyfold {

class LDGRAccount;
class LDGRPreferences;

// What the sheets for entries have in common: each shows an entry of an account in its state and
// writes the state back into it.
class EditSheet {
 public:
  virtual ~EditSheet() = default;

  [[nodiscard]] virtual Sheet Which() const noexcept = 0;
  // The area that stands for the sheet's state.
  [[nodiscard]] virtual Area StateArea() const noexcept = 0;
  // Fills the state from the entry.
  virtual void Populate(const EditedEntry& edited, const LDGRAccount& account,
                        const LDGRPreferences& preferences) = 0;
  // Limits the typed day to its month, then tells in the user's words what cannot be stored of
  // what was typed; "" when all of it can.
  [[nodiscard]] virtual std::string CheckTyped() = 0;
  // Writes the typed values into the entry, which is one of `account` or about to become one. To
  // be called only after CheckTyped() found nothing.
  virtual void SaveValuesToEditEntry(const EditedEntry& edited, LDGRAccount& account) = 0;

  virtual void SetOpen(bool is_open) noexcept = 0;
  virtual void SetProblem(std::string problem) = 0;
};

// Limits the day of `date` to its month, then tells whether it names a day of the years 1 to 9999.
[[nodiscard]] bool LimitDay(DateNumber& date) noexcept;

// The field that the preferences give the focus when a sheet opens.
[[nodiscard]] SheetField FirstField(const LDGRPreferences& preferences, bool is_new) noexcept;

}  // namespace tallyfold
