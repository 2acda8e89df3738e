#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/entries/completion.h"
#include "app/entries/entry_suggestion.h"
#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "model/date_number.h"
#include "model/entry_split.h"

namespace tallyfold {

// The field of a sheet that has the focus when it opens. The numbers are those of the preferences.
enum class SheetField : std::int32_t {
  Date = 0,
  Amount = 1,
  Description = 2,
  ToFrom = 3,
  Type = 4
};

// One line of a sheet's split table. Amounts are as typed, positive for what the entry is made of.
struct SplitRow {
  std::string description;
  std::string to;
  // 0 for an empty field; none where it cannot be read as a number.
  std::optional<double> amount = 0.0;

  friend bool operator==(const SplitRow&, const SplitRow&) = default;
};
using SplitRows = std::array<SplitRow, LDGRAccountEntrySplit::kLines>;

// What the debit sheet and the deposit sheet show.
struct EntrySheetState {
  // Typed by the user: a front end reads these from its fields before each operation.
  struct Typed {
    // None where the field cannot be read as a date.
    std::optional<DateNumber> date = kNullDate;
    // Index into type_items, or kNoItem.
    std::int32_t type = kNoItem;
    // Positive for money paid (debit sheet) or received (deposit sheet). 0 for an empty field; none
    // where it cannot be read as a number.
    std::optional<double> amount = 0.0;
    // The check box and the text of its number. Used by the debit sheet alone.
    bool check = false;
    std::string check_number;
    std::string description;
    std::string to_from;
    bool cleared = false;
    bool tax_deductible = false;
    std::string notes;
    SplitRows split;
    // Row of the split table, or -1.
    std::int32_t selected_split_row = -1;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  bool is_new = false;
  // The account's types for this kind of entry, the entry's own type where it is no longer in
  // use, a separator and "None". The tag is the number of the type.
  std::vector<PopUpItem> type_items;
  bool amount_is_enabled = true;
  bool to_from_is_enabled = true;
  bool check_number_is_enabled = false;
  double split_total = 0.0;
  // The amount that was typed before the first line of the split, which the lines are to come to;
  // none for 0 and for an entry that opened with its split.
  std::optional<double> split_target;
  // What the lines lack of it; 0 without a target.
  double split_rest = 0.0;
  SheetField first_field = SheetField::Date;
  // Former texts of the account, offered to complete what is typed.
  FormerTexts descriptions;
  FormerTexts to_froms;
  // What an earlier entry of the same description had, until it is taken or editing goes on.
  std::optional<EntrySuggestion> suggestion;
  // The fields are ..._Date_Field, _Amount_Field, _CheckNumber_Field and _Split_Table, after
  // "debitSheet" or "depositSheet".
  std::optional<Problem> problem;
};

}  // namespace tallyfold
