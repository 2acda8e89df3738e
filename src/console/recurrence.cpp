#include "console/recurrence.h"

#include <limits>

#include "console/command_error.h"
#include "console/values.h"
#include "console/words.h"
#include "model/account_schedule.h"

namespace tallyfold::console {
namespace {

using Repeat = LDGRAccountSchedule::Interval;
using Ending = LDGRAccountSchedule::Until;

struct NamedInterval {
  std::string_view name;
  Repeat type;
};

constexpr NamedInterval kNamed[] = {
    {"once", Repeat::Once},
    {"daily", Repeat::Daily},
    {"weekly", Repeat::Weekly},
    {"fortnightly", Repeat::TwoWeeks},
    {"monthly", Repeat::Monthly},
    {"yearly", Repeat::Yearly},
    {"month-end", Repeat::EndOfMonth},
    {"quarterly", Repeat::ThreeMonths},
    {"quarter-end", Repeat::EndOfQuarter},
};

// Behind a number: "10 days".
constexpr NamedInterval kUnits[] = {
    {"days", Repeat::EveryNDays},         {"weeks", Repeat::EveryNWeeks},
    {"months", Repeat::EveryNMonths},     {"years", Repeat::EveryNYears},
    {"quarters", Repeat::EveryNQuarters},
};

constexpr std::int32_t kMost = 100000;

std::int32_t Number(Repeat type) {
  return static_cast<std::int32_t>(type);
}
std::int32_t Number(Ending type) {
  return static_cast<std::int32_t>(type);
}

}  // namespace

Interval ReadInterval(std::string_view text) {
  for (const NamedInterval& named : kNamed) {
    if (text == named.name) return {Number(named.type), 1};
  }
  const std::size_t blank = text.find(' ');
  if (blank != std::string_view::npos) {
    for (const NamedInterval& unit : kUnits) {
      if (text.substr(blank + 1) != unit.name) continue;
      return {Number(unit.type), ReadNumber(text.substr(0, blank), "repeat", 1, kMost)};
    }
  }
  throw CommandError("repeat: expected " + std::string(kIntervals) + ", not " + Quoted(text));
}

Until ReadUntil(std::string_view text) {
  if (text == "forever") return {Number(Ending::Forever), 0};
  if (text.ends_with(" times")) {
    text.remove_suffix(std::string_view(" times").size());
    return {Number(Ending::Count), ReadNumber(text, "until", 1, kMost)};
  }
  try {
    return {Number(Ending::Date), ReadDate(text, "until")};
  } catch (const CommandError&) {
    throw CommandError(
        "until: expected forever, a date such as 2026-12-31 or such as \"12 times\""
        ", not " +
        Quoted(text));
  }
}

std::string IntervalText(const LDGRAccountSchedule& schedule) {
  const std::int32_t type = schedule.GetRepeatIntervalType();
  for (const NamedInterval& named : kNamed) {
    if (type == Number(named.type)) return std::string(named.name);
  }
  for (const NamedInterval& unit : kUnits) {
    if (type != Number(unit.type)) continue;
    return WriteNumber(schedule.GetRepeatInterval()) + ' ' + std::string(unit.name);
  }
  return "?";
}

std::string UntilText(const LDGRAccountSchedule& schedule) {
  const std::int32_t type = schedule.GetRepeatUntilType();
  if (type == Number(Ending::Forever)) return "forever";
  if (type == Number(Ending::Count)) return WriteNumber(schedule.GetRepeatUntil()) + " times";
  return type == Number(Ending::Date) ? WriteDate(schedule.GetRepeatUntil()) : "?";
}

}  // namespace tallyfold::console
