#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "model/account_schedule.h"
#include "model/date_number.h"

namespace tallyfold {

// In what the look-ahead is counted. The numbers are those of the preferences and the tags of the
// pop-up's items.
enum class LookAheadUnit : std::int32_t { Days = 0, Weeks = 1, Months = 2 };
inline constexpr std::int32_t kMostLookAhead = 9999;

// Which balance the reminder shows, likewise.
enum class ReminderBalanceMode : std::int32_t { None = 0, Today = 1, AfterMarked = 2 };

// A row of the reminder: an occurrence, or many of one schedule folded into one.
struct ReminderRow {
  // Typed by the user. A date or an amount is none where its field cannot be read as one.
  struct Typed {
    // Whether it is committed, or skipped, with the next click.
    bool is_marked = false;
    // Of the entry that is made; only of a single occurrence.
    std::optional<DateNumber> date = kNullDate;
    // Of each entry that is made, without the minus of what leaves the account, as in the sheets of
    // entries.
    std::optional<double> amount = 0.0;

    friend bool operator==(const Typed&, const Typed&) = default;
  };
  Typed typed;

  // Decided by the program.
  std::shared_ptr<LDGRAccountSchedule> schedule;
  // The days of the occurrences, ascending.
  std::vector<DateNumber> days;
  // "03/07/04"; of a folded row "52 from 01/01/04 to 02/21/04".
  std::string days_text;
  // Of days after today: such rows are not marked at first.
  bool is_ahead = false;
  bool date_is_enabled = true;
  // Not of a split, whose lines make the amount.
  bool amount_is_enabled = true;
  // Whether the amount leaves the account: a debit, or a transfer from here.
  bool goes_out = false;
  bool is_transfer = false;
  std::string type;
  std::string description;
  std::string to_from;

  // The typed amount as it is stored and shown; none where it cannot be read.
  [[nodiscard]] std::optional<double> SignedAmount() const noexcept {
    if (!typed.amount) return std::nullopt;
    // Adding 0.0 keeps a negative zero off the screen.
    return (goes_out ? -*typed.amount : *typed.amount) + 0.0;
  }
};

// What the reminder of scheduled entries shows.
struct ScheduleReminderState {
  // Typed by the user, beside what is typed into the rows.
  struct Typed {
    // What is no number from 0 to kMostLookAhead changes nothing.
    std::string look_ahead;
    LookAheadUnit look_ahead_unit = LookAheadUnit::Days;
    ReminderBalanceMode balance_mode = ReminderBalanceMode::None;
  };
  Typed typed;

  // Decided by the program.
  // By the first day of each.
  std::vector<ReminderRow> rows;
  bool is_open = false;
  std::vector<PopUpItem> unit_items;
  std::vector<PopUpItem> balance_items;
  // How many occurrences are due by today, and how many come after that; in words.
  std::size_t due = 0;
  std::size_t ahead = 0;
  std::string sentence;
  // How many occurrences the marked rows stand for.
  std::size_t marked = 0;
  // The balance, and as the preferences want it written; none and "" where none is shown, and where
  // the amount of a marked row cannot be read.
  std::optional<double> balance;
  std::string balance_text;
  // Why the last operation was refused. The fields are scheduleReminderSheet_LookAhead, and
  // of a row of the table scheduleReminderSheet_Mark_Button, _Date_Field and _Amount_Field.
  std::optional<Problem> problem;
};

}  // namespace tallyfold
