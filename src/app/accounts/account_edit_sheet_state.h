#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/face/problem.h"

namespace tallyfold {

// What the sheet for a new account and for changes of an account shows.
struct AccountEditSheetState {
  // A line of the table of entry types.
  struct TypeRow {
    // The type's number; -1 for one added in the sheet.
    std::int32_t number = -1;
    std::string name;
    bool is_check = false;
    bool is_deposit = false;

    friend bool operator==(const TypeRow&, const TypeRow&) = default;
  };

  // Typed by the user: a front end reads these from its fields before each operation.
  struct Typed {
    std::string name;
    // A number is none where its field cannot be read as one.
    std::optional<double> starting_balance = 0.0;
    std::optional<std::int32_t> starting_check_number = 1;
    // "" for an account without a password.
    std::string password;
    std::string password_again;
    std::vector<TypeRow> types;
    // Rows of `types` preselected for new entries; -1 for none.
    std::int32_t default_debit_type = -1;
    std::int32_t default_deposit_type = -1;
    // Which former texts are offered: 0 all, 1 the latest so many, 2 the lists below.
    std::int32_t descriptions_style = 1;
    std::optional<std::int32_t> descriptions_count = 25;
    std::int32_t to_froms_style = 1;
    std::optional<std::int32_t> to_froms_count = 25;
    std::vector<std::string> debit_descriptions;
    std::vector<std::string> deposit_descriptions;
    std::vector<std::string> transfer_descriptions;
    std::vector<std::string> tos;
    std::vector<std::string> froms;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  bool is_new = false;
  // Whether OK would be taken as things stand; pressed all the same, it tells why not.
  bool ok_is_enabled = false;
  // What a password does and what not.
  std::string security_note;
  // The fields are accountEditSheet_Name_Field, _StartingBalance_Field, _StartingCheckNumber_Field,
  // _PasswordAgain_Field, _Types_Table, _DescriptionsCount_Field and _ToFromsCount_Field.
  std::optional<Problem> problem;
};

}  // namespace tallyfold
