#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "exchange/import_file_kind.h"
#include "exchange/qif_entry.h"
#include "platform/text_encodings.h"

namespace tallyfold {

class FileSystem;

// What a QIF file is read with.
struct QifOptions {
  // Where the P, M and L lines go; any other value drops the line.
  enum Destination : std::int32_t { kType = 0, kToFrom = 1, kDescription = 2 };

  std::string date_format = "%m/%d/%y";
  std::string decimal_separator = ".";
  std::string thousands_separator = ",";
  bool zero_amounts_as_deposits = true;
  // Kept for the review; the parser lists every type of the category list anyway.
  bool all_types = false;
  bool split_line_items = true;
  std::int32_t swap_type = kType;                // where L goes
  std::int32_t swap_to_from = kToFrom;           // where P goes
  std::int32_t swap_description = kDescription;  // where M goes
};

// How the bytes of a file became text.
struct QifTextReading {
  // What they were read as, which need not be what was asked for.
  TextEncoding encoding = TextEncoding::Utf8;
  // Bytes that are no text in it, each of which, or some together, became U+FFFD.
  std::size_t replaced_bytes = 0;
  bool is_picture = false;
};

// Reads the text of a QIF file. Tolerant by design: field codes are looked for at the start of any
// line of a record, what is unknown is ignored, and no record is rejected for a malformed field.
// Everything takes time linear in the text.
class LDGRQIFImport {
 public:
  enum Error : std::int32_t {
    kNone = 0,
    kNoText = 1,
    kUnendedAutoSwitch = 10,  // the text was not stored
  };

  // The list types whose sections hold entries, in order.
  [[nodiscard]] static const std::vector<std::string>& validListTypes();

  LDGRQIFImport() = default;
  // None is kNoText.
  explicit LDGRQIFImport(std::optional<std::string_view> text) { SetDataString(text); }
  // Reads the file in `encoding`, or, when it is not text of that or has a byte-order mark of
  // UTF-16 that `encoding` does not know, in the way of that mark, as UTF-8 (bytes that are none
  // are replaced where characters of several bytes outnumber them) or as Windows-1252. A mark of
  // UTF-8 is dropped whatever the encoding. No path is kNoText; a file that cannot be read
  // leaves the parser empty without an error.
  [[nodiscard]] static LDGRQIFImport importWithContentsOfFile(
      const std::optional<std::string>& path, std::int32_t encoding, const FileSystem& files,
      const TextEncodings& encodings);

  // Replaces the text. Whatever it holds becomes clean UTF-8 with carriage returns.
  void SetDataString(std::optional<std::string_view> text);
  [[nodiscard]] std::int32_t GetError() const noexcept { return error_; }
  void SetError(std::int32_t error) noexcept { error_ = error; }

  void SetOptions(QifOptions options) { options_ = std::move(options); }
  // In calendar-date letters: one of the twelve of qif_date_formats.h.
  void SetDateFormat(std::string_view format) { options_.date_format = format; }
  void SetDecimalSeparator(std::string_view text) { options_.decimal_separator = text; }
  void SetThousandsSeparator(std::string_view text) { options_.thousands_separator = text; }
  void SetImportZeroAmountsAsDeposits(bool set) noexcept {
    options_.zero_amounts_as_deposits = set;
  }
  void SetImportAllTypes(bool set) noexcept { options_.all_types = set; }
  void SetImportSplitLineItems(bool set) noexcept { options_.split_line_items = set; }
  void SetSwapOptions_Type(std::int32_t to) noexcept { options_.swap_type = to; }
  void SetSwapOptions_ToFrom(std::int32_t to) noexcept { options_.swap_to_from = to; }
  void SetSwapOptions_Description(std::int32_t to) noexcept { options_.swap_description = to; }
  [[nodiscard]] const QifOptions& GetOptions() const noexcept { return options_; }

  // Everything the file has.
  [[nodiscard]] QifResult Parse() const;

  // Names of the file's accounts in its order, duplicates kept.
  [[nodiscard]] std::vector<std::string> AccountNames() const;
  // The first account block whose header has an N line that begins with `name`; none for none.
  [[nodiscard]] std::optional<std::string> AccountWithName(std::string_view name) const;
  [[nodiscard]] QifEntryList EntriesForAccountWithName(std::string_view name) const;
  // The entries of all sections of valid types; of the whole text when it has no section at all.
  [[nodiscard]] QifEntryList Entries() const;
  // Those of the category list, then those that entries use beyond them.
  [[nodiscard]] std::vector<QifType> EntryTypes() const;

  // The records before each "^"; what follows the last is ignored.
  [[nodiscard]] QifEntryList EntryListStringToEntries(std::string_view text) const;
  // None for a record of nothing but line ends.
  [[nodiscard]] std::optional<QifEntry> EntryStringToEntry(std::string_view record) const;

  // How many accounts of the text have no list of a valid type and were dropped.
  [[nodiscard]] std::size_t LeftOutAccounts() const noexcept { return left_out_accounts_; }
  // What the text seems to be.
  [[nodiscard]] ImportFileKind FileKind() const noexcept { return file_kind_; }
  // Of a text that was not read from a file, its defaults.
  [[nodiscard]] const QifTextReading& Reading() const noexcept { return reading_; }
  // Whether the text has a category list, be it an empty one, and its text; "" without one.
  [[nodiscard]] bool HasEntryTypesList() const noexcept { return has_entry_types_list_; }
  [[nodiscard]] const std::string& entryTypesListString() const noexcept {
    return entry_types_list_;
  }
  [[nodiscard]] const std::string& dataString() const noexcept { return data_; }

 private:
  class Sections;

  void RemoveInvalidAccounts();
  [[nodiscard]] QifEntryList AllEntries(Sections& sections) const;
  [[nodiscard]] QifEntryList AccountEntries(std::string_view block, Sections& sections) const;
  [[nodiscard]] std::vector<QifType> TypesOf(const QifEntryList& entries) const;

  QifOptions options_;
  std::string data_;
  std::string entry_types_list_;
  bool has_entry_types_list_ = false;
  ImportFileKind file_kind_ = ImportFileKind::Empty;
  QifTextReading reading_;
  std::size_t left_out_accounts_ = 0;
  std::int32_t error_ = kNone;
};

}  // namespace tallyfold
