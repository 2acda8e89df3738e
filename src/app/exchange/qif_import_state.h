#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "exchange/import_hints.h"
#include "exchange/qif_import.h"
#include "exchange/statement_file.h"

namespace tallyfold {

// What the options sheet of an import shows. Of a bank's file, which has its own
// StatementOptionsState, only whether it is open, its title and its problem.
struct QifImportOptionsState {
  // Typed by the user.
  struct Typed {
    // Index into account_items, or kNoItem.
    std::int32_t account = kNoItem;
    // Index into date_format_items, or kNoItem.
    std::int32_t date_format = kNoItem;
    std::string decimal_separator;
    std::string thousands_separator;
    bool zero_amounts_as_deposits = true;
    bool all_types = false;
    bool split_line_items = true;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  std::string title;
  // The name of the encoding that the file was read in, and of the one that was chosen where the
  // file is no text of that; else "".
  std::string encoding;
  std::string refused_encoding;
  // The tag of the one that it was read in.
  std::int32_t encoding_tag = 0;
  // The accounts of the file, the tag being their position, and "All Entries".
  std::vector<PopUpItem> account_items;
  std::vector<PopUpItem> date_format_items;
  // Where categories, payees and memos may go, and where each goes: tags of the items, never two
  // the same. They change by ImportOptions_SwapOptions() alone.
  std::vector<PopUpItem> swap_items;
  std::int32_t swap_type = QifOptions::kType;
  std::int32_t swap_to_from = QifOptions::kToFrom;
  std::int32_t swap_description = QifOptions::kDescription;
  // The fields are importOptions_Account_PopUp and importOptions_DateFormat_PopUp.
  std::optional<Problem> problem;
};

// What the review of an import shows beside its table. All of it is decided by the program.
struct QifImportReviewState {
  bool is_open = false;
  // The file and the account it goes into.
  std::string file_name;
  std::string account_name;
  // The sum of the entries marked for import, and as the preferences want amounts.
  double total = 0.0;
  std::string total_text;
  std::size_t entry_count = 0;
  std::size_t marked_count = 0;
  // Those that are matched with entries of the account instead.
  std::size_t matched_count = 0;
  // Of the marked ones, those without a date that could be read.
  std::size_t marked_undated = 0;
  // Types that the account does not have yet.
  std::size_t new_type_count = 0;
  // For the selected entry.
  bool can_import = false;
  bool can_change = false;
  bool can_remove = false;
  bool can_resolve = false;
  // It is matched, or there is an entry of the account to match it with.
  bool can_match = false;
  bool is_matched = false;
  // For all of them.
  bool can_import_all = false;
  // The last OK was refused because the account of the import is no longer selected.
  bool account_is_gone = false;
  ImportHints hints;

  // --- Of a bank's file ---
  // Rows of it that start unmarked, and rows whose identifier an earlier, different row has.
  std::size_t repeated_count = 0;
  std::size_t foreign_count = 0;
  std::size_t pending_count = 0;
  std::size_t reused_identifiers = 0;
  // What may become the statement balance of the account, as the preferences want amounts and days
  // ("" for a day that the file does not tell), and whether it will at OK.
  std::optional<StatementBalance> balance;
  std::string balance_text;
  std::string balance_day;
  bool takes_balance = false;
};

}  // namespace tallyfold
