#include "console/schedule_options.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/schedules/schedule_editing.h"
#include "console/command_error.h"
#include "console/entry_options.h"
#include "console/lookup.h"
#include "console/recurrence.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

constexpr Option kScheduleOptions[] = {
    {.name = "start", .value = "DATE", .help = "the first day it may fall due"},
    {.name = "repeat", .value = "INTERVAL", .help = kIntervals},
    {.name = "until", .value = "forever|DATE|N times", .help = "when it ends (forever)"},
    {.name = "friday",
     .value = "yes|no",
     .help = "monthly and longer ones move from a weekend to the Friday before (no)"},
    {.name = "amount", .value = "AMOUNT", .help = "such as 12.50"},
    {.name = "to", .value = "TEXT|ACCOUNT", .help = "who is paid; of a transfer the account"},
    {.name = "from", .value = "TEXT|ACCOUNT", .help = "who pays; of a transfer the account"},
    {.name = "description", .value = "TEXT", .help = "what it is for"},
    {.name = "type", .value = "NAME", .help = "a type of the account, or none"},
    {.name = "check", .value = "yes|no", .help = "whether it is paid by check"},
    {.name = "tax", .value = "yes|no", .help = "whether it is tax deductible (no)"},
    {.name = "notes", .value = "TEXT", .help = "anything else"},
    {.name = "split",
     .value = "DESCRIPTION|TO|AMOUNT",
     .help = "one line of a split, up to ten; none takes the split away",
     .is_repeatable = true},
};

void Refuse(const Arguments& arguments, std::string_view option, std::string_view kind) {
  if (!arguments.Has(option)) return;
  throw CommandError(std::string(option) + ": a scheduled " + std::string(kind) + " has none");
}

void TypeType(const std::vector<PopUpItem>& items, const Arguments& arguments,
              ScheduleValues& typed) {
  const auto name = arguments.Text("type");
  if (!name) return;
  if (*name == "none") {
    typed.type = -1;
    return;
  }
  typed.type = items[static_cast<std::size_t>(ItemTitled(items, *name, "type"))].tag;
}

void TypeOtherAccount(const Console& console, const Arguments& arguments, ScheduleValues& typed) {
  const auto to = arguments.Text("to");
  const auto from = arguments.Text("from");
  if (!to && !from) return;
  if (to && from) throw CommandError("expected either to= or from=");
  const auto other = AccountNamed(console, to ? *to : *from);
  if (other == SelectedAccount(console)) {
    throw CommandError("a transfer needs another account than the selected one");
  }
  typed.transfer_account = other->GetNumber();
  typed.is_transfer_origin = to.has_value();
}

// The options that depend on the kind.
void TypeKindOptions(const Console& console, const Arguments& arguments, ScheduleValues& typed) {
  const auto& items = console.controller.scheduleSheet().State().type_items;
  switch (typed.kind) {
    case EntryKind::Debit:
      Refuse(arguments, "from", "debit");
      SetIfGiven(typed.to_from, arguments.Text("to"));
      SetIfGiven(typed.is_check, arguments.YesNo("check"));
      return TypeType(items, arguments, typed);
    case EntryKind::Deposit:
      Refuse(arguments, "to", "deposit");
      Refuse(arguments, "check", "deposit");
      SetIfGiven(typed.to_from, arguments.Text("from"));
      return TypeType(items, arguments, typed);
    case EntryKind::Transfer:
      break;
  }
  for (const std::string_view option : {"type", "check", "split"}) {
    Refuse(arguments, option, "transfer");
  }
  TypeOtherAccount(console, arguments, typed);
}

void TypeAmount(const Arguments& arguments, ScheduleValues& typed) {
  if (arguments.Has("split")) {
    const bool clears = arguments.AllTexts("split") == std::vector<std::string>{"none"};
    if (clears != arguments.Has("amount")) throw CommandError("expected either amount= or split=");
    typed.split = clears ? SplitRows() : ReadSplit(arguments.AllTexts("split"));
  } else if (arguments.Has("amount") && typed.split != SplitRows()) {
    throw CommandError("amount: the amount of a split is the sum of its lines");
  }
  SetIfGiven(typed.amount, arguments.Amount("amount"));
}

}  // namespace

std::span<const Option> ScheduleOptions() {
  return kScheduleOptions;
}

void TypeIntoScheduleSheet(Console& console, const Arguments& arguments) {
  ScheduleValues typed = console.controller.scheduleSheet().State().typed;
  SetIfGiven(typed.start, arguments.Date("start"));
  if (const auto repeat = arguments.Text("repeat")) {
    const Interval interval = ReadInterval(*repeat);
    typed.repeat_interval_type = interval.type;
    typed.repeat_interval = interval.every;
  }
  if (const auto text = arguments.Text("until")) {
    const Until until = ReadUntil(*text);
    typed.repeat_until_type = until.type;
    typed.repeat_until = until.value;
  }
  SetIfGiven(typed.use_preceding_friday, arguments.YesNo("friday"));
  SetIfGiven(typed.description, arguments.Text("description"));
  SetIfGiven(typed.tax_deductible, arguments.YesNo("tax"));
  SetIfGiven(typed.notes, arguments.Text("notes"));
  TypeAmount(arguments, typed);
  TypeKindOptions(console, arguments, typed);
  console.controller.scheduleSheet().Read(std::move(typed));
}

}  // namespace tallyfold::console
