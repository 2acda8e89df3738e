#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/accounts/account_facts.h"
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
    // Whether it is offered for entries. One that is out of use stays with those that have it.
    bool is_active = true;

    friend bool operator==(const TypeRow&, const TypeRow&) = default;
  };

  // What becomes of a row at OK.
  enum class TypeFate : std::uint8_t {
    InUse,
    OutOfUse,  // nothing offers it
    Goes,      // taken out of use here, and nothing has it
  };
  // What the account does with one of its types.
  struct TypeUse {
    std::size_t entries = 0;
    // An entry or a scheduled one has it.
    bool is_referred_to = false;
    bool was_active = true;
    // As the account has it.
    std::string name;
    bool is_deposit = false;
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
  // By the number of the type.
  std::map<std::int32_t, TypeUse> type_uses;
  // Of the account as it is; none for a new one, and their lines in the user's words.
  std::optional<AccountFacts> facts;
  std::vector<AccountFactLine> fact_lines;
  // The fields are accountEditSheet_Name_Field, _StartingBalance_Field, _StartingCheckNumber_Field,
  // _PasswordAgain_Field, _Types_Table, _DescriptionsCount_Field and _ToFromsCount_Field.
  std::optional<Problem> problem;

  [[nodiscard]] TypeFate FateOf(const TypeRow& row) const;
  // Entries of the account that have the type.
  [[nodiscard]] std::size_t EntriesWith(const TypeRow& row) const;
};

}  // namespace tallyfold
