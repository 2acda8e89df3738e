#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/entries/completion.h"
#include "app/entries/entry_sheet_state.h"
#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "model/date_number.h"

namespace tallyfold {

// Tags of the transfer sheet's direction items.
inline constexpr std::int32_t kTransferToTag = 1;    // money leaves the selected account
inline constexpr std::int32_t kTransferFromTag = 0;  // money comes into it

// What the transfer sheet shows.
struct TransferSheetState {
  // Typed by the user: a front end reads these from its fields before each operation.
  struct Typed {
    // None where the field cannot be read as a date.
    std::optional<DateNumber> date = kNullDate;
    // Index into direction_items, or kNoItem.
    std::int32_t direction = kNoItem;
    // Index into account_items, or kNoItem.
    std::int32_t account = kNoItem;
    // Positive in either direction. 0 for an empty field; none where it cannot be read as a number.
    std::optional<double> amount = 0.0;
    std::string description;
    bool cleared = false;
    bool tax_deductible = false;
    std::string notes;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  bool is_new = false;
  std::vector<PopUpItem> direction_items;
  // The other accounts; the tag is the account's number. An entry whose other account is gone adds
  // an item that keeps its name.
  std::vector<PopUpItem> account_items;
  SheetField first_field = SheetField::Date;
  // Former texts of the account, offered to complete what is typed.
  FormerTexts descriptions;
  // What the transfer does, in a sentence.
  std::string sentence;
  bool moves_money = false;
  struct Balance {
    std::string account;
    // A locked account's balances are 0 here.
    bool is_locked = false;
    // Without the edited entry, and with it as typed.
    double now = 0.0;
    double after = 0.0;

    friend bool operator==(const Balance&, const Balance&) = default;
  };
  // Of the selected account and the chosen one, where that is there.
  std::vector<Balance> balances;
  // What becomes of an other half that cannot be told from others; "" for nothing to tell.
  std::string note;
  // The fields are transferSheet_Date_Field, _Amount_Field and _Account_PopUp.
  std::optional<Problem> problem;
};

}  // namespace tallyfold
