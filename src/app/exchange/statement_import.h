#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "app/exchange/statement_import_state.h"
#include "exchange/csv_lines.h"
#include "exchange/import_hints.h"
#include "exchange/qif_import_entry.h"
#include "exchange/statement_file.h"
#include "platform/file_system.h"
#include "registers/table_data_source.h"

namespace tallyfold {

class LDGRAccount;
class LDGRAccountPreferences;
class TextEncodings;

// A bank's file and how it is to be read: from its bytes to the entries of a review. Every other
// choice reads it again.
class StatementImport {
 public:
  StatementImport() = default;
  // Reads the file as files with the same heading were read for the account the last time.
  // `encodings` must outlive this.
  StatementImport(FileContents contents, const TextEncodings& encodings,
                  const LDGRAccountPreferences& preferences);

  // Whether there is a file of a bank.
  [[nodiscard]] bool IsThere() const noexcept { return encodings_ != nullptr; }
  [[nodiscard]] const StatementOptionsState& State() const noexcept { return state_; }
  // Takes over what was chosen. Columns chosen before go where the separator, the encoding or the
  // headings are chosen anew, unless they are chosen anew as well.
  void Read(StatementOptionsState::Typed typed);
  // One of the candidates of a question of the state was chosen; anything else is ignored.
  void Answer(std::size_t question, std::size_t candidate);
  // Works out what the state shows beside what was read.
  void Show(const LDGRAccount& account, const TableFormat& format);
  // Of a table; takes as long as looking through it.
  [[nodiscard]] CsvLines Lines() const;
  // Why the entries cannot come in yet: a text for the user; "" where they can.
  [[nodiscard]] std::string Problem() const;
  // Keeps what was chosen for files with the same heading; nothing for other than tables.
  void Remember(LDGRAccountPreferences& preferences) const;

  // --- Of the account of the file that is chosen ---
  [[nodiscard]] QifImportEntryList Entries(const LDGRAccount& account) const;
  [[nodiscard]] ImportHints Hints(DateNumber today) const;
  // The newest closing balance; none where several accounts are chosen.
  [[nodiscard]] std::optional<StatementBalance> ClosingBalance() const;
  // What its rows are left unmarked for, and rows whose identifier another row has.
  [[nodiscard]] std::size_t Unmarked(UnmarkedReason reason) const;
  [[nodiscard]] std::size_t ReusedIdentifiers() const;

 private:
  struct Group {
    std::string name;
    std::vector<std::size_t> accounts;  // places in the file
  };

  void ReadAgain();
  void MakeGroups();
  void ShowSettings();
  void ShowColumns();
  void AddSetting(StatementSetting setting, std::optional<std::int32_t> value);
  // Places of the accounts of the file whose rows are chosen.
  [[nodiscard]] std::vector<std::size_t> Chosen() const;
  [[nodiscard]] StatementProof ChosenProof() const;
  // Those of the accounts chosen, no more than so many.
  [[nodiscard]] std::vector<StatementRow> Rows(std::size_t most) const;

  const TextEncodings* encodings_ = nullptr;
  FileContents contents_;
  StatementFile file_;
  // Of the table as it reads without any choice; "" for anything else.
  std::string identifier_;
  std::vector<Group> groups_;  // statements of one account are one
  StatementOptionsState state_;
};

}  // namespace tallyfold
