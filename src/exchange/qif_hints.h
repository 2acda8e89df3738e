#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/qif_date_formats.h"
#include "exchange/qif_entry.h"
#include "model/date_number.h"

namespace tallyfold {

class LDGRQIFImport;

// What the rules of an import will do to a file, told before it is done. Nothing here changes what
// is imported.
struct QifHints {
  // The file could not be read at all, or its list of accounts has no end and nothing of it was.
  bool is_unreadable = false;
  bool is_unended = false;

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
  // Entries without a date, and with one that the date format does not read: both get day 0.
  std::size_t missing_dates = 0;
  std::size_t unreadable_dates = 0;
  // Dates of the years 1 to 99: years of two digits in a format that takes them literally.
  std::size_t short_years = 0;
  // Amounts that are no numbers, or beyond what a number holds, become 0.
  std::size_t unread_amounts = 0;
  // Check numbers that are texts ("ATM") become 0; those beyond 32 bits are left out.
  std::size_t text_numbers = 0;
  std::size_t lost_numbers = 0;
  // Splits that are left out: of ten lines and more, of amounts of both signs, of lines that do not
  // go together.
  std::size_t long_splits = 0;
  std::size_t mixed_splits = 0;
  std::size_t uneven_splits = 0;

  // --- Of the file ---
  // Where some date cannot be read or has a short year: the formats that read every date of the
  // file, and none with a short year.
  std::vector<QifDateFormat> fitting_formats;
  // Accounts without a list of entries that can be imported, such as those of shares.
  std::size_t left_out_accounts = 0;
  // The types of lists that hold no entries, once each, without the category list that was read.
  // Only the first few are named.
  std::vector<std::string> left_out_lists;
  // Lists, the category list among them, whose last record has no end and is left out.
  std::size_t unended_lists = 0;
};

// `entries` were read by `import`. Linear in the file.
[[nodiscard]] QifHints HintsFor(const LDGRQIFImport& import, const QifEntryList& entries,
                                DateNumber today);

// A file's split of more lines than this is left out whole, although an entry could hold one more.
inline constexpr std::size_t kMostQifSplitLines = 9;

}  // namespace tallyfold
