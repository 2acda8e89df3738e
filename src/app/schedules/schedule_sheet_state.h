#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/entries/completion.h"
#include "app/face/pop_up_item.h"
#include "app/face/problem.h"
#include "app/schedules/schedule_values.h"
#include "registers/schedule_dates.h"

namespace tallyfold {

// What the schedule sheet shows.
struct ScheduleSheetState {
  // Typed by the user: a front end reads it from its fields after every change, so that the dates
  // follow. The kind cannot be changed.
  using Typed = ScheduleValues;
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  bool is_new = false;
  // The account's types for this kind of entry, the schedule's own type where it is no longer in
  // use, a separator and "None"; the tag is the number of the type. Empty for a transfer.
  std::vector<PopUpItem> type_items;
  // Transfers only: the other accounts, the tag is the account's number.
  std::vector<PopUpItem> account_items;
  // The tags are the numbers of the types.
  std::vector<PopUpItem> interval_items;
  std::vector<PopUpItem> until_items;
  bool amount_is_enabled = true;
  bool to_from_is_enabled = true;
  bool every_is_enabled = false;
  bool until_is_enabled = false;
  bool preceding_friday_is_enabled = false;
  // The dates it comes to next; empty while what is typed makes no schedule.
  std::vector<ScheduleDateLine> dates;
  // What is left out of them; "" for nothing.
  std::string dates_note;
  // Former texts of the account, offered to complete what is typed.
  FormerTexts descriptions;
  FormerTexts to_froms;
  // The fields are those of ProblemOf(), and scheduleSheet_Account_PopUp.
  std::optional<Problem> problem;
};

}  // namespace tallyfold
