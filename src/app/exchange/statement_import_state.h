#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/exchange/qif_import_proof.h"
#include "app/exchange/statement_settings.h"
#include "app/face/pop_up_item.h"
#include "exchange/import_content.h"
#include "exchange/statement_file.h"
#include "exchange/statement_reader.h"

namespace tallyfold {

// What the options sheet shows of a bank's file.
struct StatementOptionsState {
  // Chosen by the user.
  struct Typed {
    // Index into account_items, or kNoItem.
    std::int32_t account = kNoItem;
    // Entries get the type of the newest entry of their payee.
    bool suggests_types = true;
    bool zero_amounts_as_deposits = true;
    // Nothing where the reader is to find out.
    StatementChoices choices;
  };
  Typed typed;

  // Decided by the program.
  // Another number for every time that the file was read.
  std::size_t reading = 0;
  ImportContent content = ImportContent::Empty;
  // The accounts of the file, the tag being their position, and "All Entries".
  std::vector<PopUpItem> account_items;
  // The settings that apply to the file, with what is in force.
  struct Setting {
    StatementSetting setting = StatementSetting::Encoding;
    std::vector<PopUpItem> items;
    std::int32_t selected = kNoItem;
  };
  std::vector<Setting> settings;
  // Some amounts are 0, so that it matters what becomes of those.
  bool has_zero_amounts = false;
  // Why nothing can come of the file as it is read, in the user's words; "" where something can.
  std::string problem;
  // What only the user can tell; nothing can come in until it is answered.
  std::vector<StatementQuestion> questions;

  // --- Of a table ---
  struct Column {
    std::string heading;  // "" without
    CsvField field = CsvField::None;
    std::string sample;  // its cell in the first entry, as the file has it
  };
  std::vector<Column> columns;
  std::vector<PopUpItem> field_items;  // tags are CsvFields
  // Lines that are no entries; see CsvReading.
  std::size_t balance_lines = 0;
  std::size_t continuation_lines = 0;
  std::size_t other_lines = 0;
  std::vector<LeftOutLine> left_out;

  // --- Of the account that is chosen ---
  std::size_t entry_count = 0;
  std::size_t file_entry_count = 0;
  std::string first_day;
  std::string last_day;
  std::size_t pending = 0;
  StatementProof proof;
  std::vector<QifImportProof::Row> rows;  // the first ones as they will come in

  // What the file itself says went wrong; "" for nothing.
  std::string message;
  bool is_cut_short = false;
  std::string encoding;
};

// Chooses what a column of the table holds, beside what is in force for the others. A column that
// has held the same is ignored from then on, unless it is texts, which are put together. Nothing
// for a column that does not exist.
void ChooseColumn(StatementOptionsState::Typed& typed, const StatementOptionsState& shown,
                  std::size_t column, CsvField field);

// In the user's words how far the balances of a file bear its entries out; "" where it has none.
[[nodiscard]] std::string TextOf(const StatementProof& proof);

}  // namespace tallyfold
