#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/date_number.h"

namespace tallyfold {

class LDGRAccountSummary;

// A computed summary as it is read from top to bottom. Windows, printers and the console show these
// lines and decide no more than fonts and places. All texts are in the user's language; amounts
// are rounded to cents and have no sign at zero.
struct SummaryLayout {
  struct Head {
    std::string account;
    std::string name;
    // The range in words ("Month To Date") and its first and last day. The words of a range that
    // is given by its days alone are "Custom".
    std::string range;
    DateNumber first = kNullDate;
    DateNumber last = kNullDate;
    // Of the whole account before the first and after the last day, whatever the summary counts.
    double start_balance = 0.0;
    double end_balance = 0.0;
  };

  // The sums of a line. Money that leaves the account is negative.
  struct Amounts {
    double debits = 0.0;
    double deposits = 0.0;
    double transfers = 0.0;
    double total = 0.0;
  };

  struct PeriodLine {
    // "March 2004", "Q1 2004", "2004"; for other periods their days in the date format asked for.
    std::string title;
    DateNumber first = kNullDate;
    DateNumber last = kNullDate;
    // How many entries were counted.
    std::size_t count = 0;
    Amounts amounts;
    // From -1 to 1: the total beside the greatest of all periods, for a bar to the left or right.
    double bar = 0.0;
  };

  // A sum with its title, such as that of the resolved entries.
  struct NamedAmount {
    std::string title;
    double amount = 0.0;
  };

  struct BlockLine {
    // "(none)" for entries that have none.
    std::string name;
    std::size_t count = 0;
    double amount = 0.0;
    // From 0 to 1: the part of the block's amounts, all taken as positive.
    double share = 0.0;
    // False for the line of the entries that have none.
    bool has_name = true;
  };

  // The sums by type, by description, or by payee and payer: greatest amount first whatever its
  // sign, equal ones by name.
  enum class Subject : std::uint8_t { Type, Description, ToFrom };
  struct Block {
    std::string title;
    std::vector<BlockLine> lines;
    Subject subject = Subject::Type;
  };

  // Whether start balance and total give the end balance.
  enum class Check : std::uint8_t {
    Agrees,
    // They do not, by the amount of the entries that the summary does not count.
    EntriesLeftOut,
    // The range has no days.
    EndsBeforeItStarts,
  };

  Head head;
  // Whether a bar is drawn beside the numbers of each period.
  bool has_bars = false;
  // The titles of what a period line shows: period, debits, deposits, transfers, total.
  std::vector<std::string> period_columns;
  std::vector<PeriodLine> periods;
  // Of more periods than these, those without entries have no line, which is said in words; "" for
  // nothing to say.
  static constexpr std::size_t kMostPeriods = 4000;
  std::string left_out_periods;
  // The line below the periods: its title, how many entries there are, and their sums.
  std::string total_title;
  std::size_t total_count = 0;
  Amounts total;
  // Resolved, unresolved, tax-deductible, taxable.
  std::vector<NamedAmount> totals;
  // The titles of what a block line shows: name, count, amount, share.
  std::vector<std::string> block_columns;
  // One for each kind of subtotal that is switched on.
  std::vector<Block> blocks;
  Check check = Check::Agrees;
  // End balance less start balance and total; 0 unless entries are left out.
  double left_out = 0.0;
  // The check in words, without an amount.
  std::string check_title;
};

// Lays out the last result of the summary (see LDGRAccountSummary::Refresh()); an empty layout with
// its name when there is none. `date_format` is a calendar-date format.
[[nodiscard]] SummaryLayout LayOutSummary(const LDGRAccountSummary& summary,
                                          std::string_view date_format);

}  // namespace tallyfold
