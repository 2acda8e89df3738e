#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/qif_date_formats.h"
#include "model/date_number.h"

namespace tallyfold {

// What the review of an import tells about its file: what was found, what of it is doubtful, and
// which other choice would mend that. Readers of any kind of file fill it in, front ends show it.
// Nothing here changes what is imported.

// In the order in which they are told.
enum class ImportDoubtKind : std::uint8_t {
  // Of single entries.
  MissingDate,       // gets day 0
  UnreadableDate,    // gets day 0
  ShortYear,         // a year of two digits where the format takes all digits as the year
  ReducedDate,       // the format takes the last two digits alone, and others stood before them
  MissingAmount,     // becomes 0
  UnreadAmount,      // no number, or beyond what a number holds: becomes 0
  LargeAmount,       // 1e15 and more, which no longer has cents
  AmountSeparators,  // may have been written with other separators
  AmountSign,        // a sign that is not read: behind, in parentheses, a dash
  DebitSign,         // not that of most debits of the file: read as money that comes in
  SecondRecord,      // lines that belong to a further entry, which is left out
  TextNumber,        // a check number that is a text ("ATM") becomes 0
  LostNumber,        // one beyond 32 bits is left out
  NotedNumber,       // one that is no number of 32 bits goes to the notes
  LongSplit,         // a split of more lines than can come in is left out, as the next two
  MixedSplit,        // of amounts of both signs
  UnevenSplit,       // of lines that do not go together
  SplitSum,          // the sum of the lines takes the place of another amount
  SplitPayee,        // "Split" takes the place of a payee
  ReplacedBytes,     // holds what is no text; the count is of bytes, for the whole file
  // Of the file as a whole.
  LeftOutAccount,  // has no list of entries that can be imported, such as one of shares
  LeftOutList,     // holds no entries; see ImportHints::left_out_lists
  UnendedList,     // its last record has no end and is left out
};
inline constexpr std::size_t kImportDoubtKinds = 23;

// What is doubtful of one entry.
class ImportDoubtSet {
 public:
  void Add(ImportDoubtKind kind) noexcept { bits_ |= BitOf(kind); }
  [[nodiscard]] bool Has(ImportDoubtKind kind) const noexcept { return (bits_ & BitOf(kind)) != 0; }
  [[nodiscard]] bool IsEmpty() const noexcept { return bits_ == 0; }

 private:
  [[nodiscard]] static std::uint32_t BitOf(ImportDoubtKind kind) noexcept {
    return 1U << static_cast<unsigned>(kind);
  }
  std::uint32_t bits_ = 0;
};

// Which of the user's choices may mend a doubt.
enum class ImportRemedy : std::uint8_t {
  None,        // the entry has to be edited or left out, or the file mended
  DateFormat,  // see ImportHints::fitting_formats
  Separators,  // see ImportHints::fitting_separators
  SplitLines,  // importing no lines of splits
  Encoding,
};

struct ImportDoubt {
  static constexpr std::size_t kMostRows = 5;

  ImportDoubtKind kind = ImportDoubtKind::MissingDate;
  std::size_t count = 0;
  // The first entries concerned, by their places in the review from 1 on; empty for what concerns
  // the file as a whole.
  std::vector<std::int32_t> rows;
};

// English keys of texts: "dates that cannot be read".
[[nodiscard]] std::string_view TitleOf(ImportDoubtKind kind) noexcept;
[[nodiscard]] ImportRemedy RemedyOf(ImportDoubtKind kind) noexcept;

struct ImportSeparators {
  std::string_view decimal;
  std::string_view thousands;
};

struct ImportHints {
  // Why nothing can come of the file.
  enum class Problem : std::uint8_t {
    None,
    Unreadable,    // the file is not there, or cannot be read
    UnendedBlock,  // a list of accounts has no end, and nothing of the file was read
    Empty,
    Table,
    WebPage,
    Picture,
    Foreign,  // something else without a sign of entries
  };
  Problem problem = Problem::None;

  // --- Of the entries chosen ---
  // The account of the file whose entries they are, when it has another name than the one chosen;
  // else "". Like `elsewhere` filled in by who chose.
  std::string source;
  // Entries of the file that are not among them.
  std::size_t elsewhere = 0;
  // Days that exist; none without any.
  std::optional<DateNumber> first_date;
  std::optional<DateNumber> last_date;
  std::size_t after_today = 0;

  // --- What is doubtful ---
  // One for each kind that occurs, in the order of the kinds.
  std::vector<ImportDoubt> doubts;
  // Where some date is doubtful: the formats that read every date of the file without doubt, but
  // for those that no format reads so. The one in force may be among them.
  std::vector<QifDateFormat> fitting_formats;
  bool has_hopeless_dates = false;
  // The same for separators and amounts.
  std::vector<ImportSeparators> fitting_separators;
  bool has_hopeless_amounts = false;
  // The types of lists that hold no entries, once each, without a category list that was read. Only
  // the first few are named.
  std::vector<std::string> left_out_lists;

  // 0 for a kind that does not occur.
  [[nodiscard]] std::size_t CountOf(ImportDoubtKind kind) const noexcept;
  // Whether some doubt may be mended so.
  [[nodiscard]] bool Needs(ImportRemedy remedy) const noexcept;
};

// The English key of what a problem is, and what can be done; "" for none.
[[nodiscard]] std::string_view TextOf(ImportHints::Problem problem) noexcept;

// Gathers doubts for ImportHints::doubts.
class ImportDoubtCounter {
 public:
  // Those of the entry at that place in the review.
  void Add(const ImportDoubtSet& doubts, std::int32_t row);
  // A kind that is not counted by entries.
  void Add(ImportDoubtKind kind, std::size_t count);
  // An entry that such a kind concerns.
  void AddRow(ImportDoubtKind kind, std::int32_t row);
  // What has been added so far.
  [[nodiscard]] std::vector<ImportDoubt> Told() const;

 private:
  std::array<ImportDoubt, kImportDoubtKinds> doubts_;
};

}  // namespace tallyfold
