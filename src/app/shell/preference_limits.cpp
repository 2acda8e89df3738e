#include "app/shell/preference_limits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <variant>

#include "app/schedules/schedule_reminder_state.h"
#include "exchange/qif_date_formats.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

struct Limits {
  std::string_view name;
  PreferenceLimits limits;
};

constexpr double kAny = kAnyPreferenceNumber;

constexpr std::array kLimits = {
    Limits{"backupInterval", {0, 3650}},
    Limits{"dateFormat", {0, 2}},
    Limits{"amountFormat", {0, 1}},
    Limits{"entryFontSize", {4, 144}},
    Limits{"selectedAccountNumber", {-1, kAny}},
    Limits{"balanceMode", {0, 5}},
    Limits{"selectWhichFieldFirstWhenAddingEntries", {0, 4}},
    Limits{"selectWhichFieldFirstWhenChangingEntries", {0, 4}},
    Limits{"defaultDateWhenAddingEntries", {0, 1}},
    Limits{"scheduleReminderInterval", {0, 86400}},
    Limits{"QIFExportAccount", {-5, kAny}},
    Limits{"QIFExportEncoding", {-kAny - 1, kAny}},
    Limits{"speakEntriesStyle", {0, 1}},
    Limits{"pauseBetweenSpokenEntries", {0, 3600}},
    Limits{"accountsDrawerWidth", {-1, 10000}},
    Limits{"accountsDrawerPreferredEdge", {0, 3}},
    Limits{"scheduleLookAhead", {0, kMostLookAhead}},
    Limits{"scheduleLookAheadType", {0, 2}},
    Limits{"scheduleReminderBalanceMode", {0, 2}},
};
// Of a number without an entry above: a part of a colour.
constexpr PreferenceLimits kColorPart = {0, 1};

bool TakesText(std::string_view name, const plist::Value& value) {
  if (!value.IsString() || value.StringValue().empty()) return false;
  const std::vector<std::string> texts = TextsOfPreference(name);
  return texts.empty() || std::ranges::find(texts, value.StringValue()) != texts.end();
}

bool TakesNumber(std::string_view name, const plist::Value& value, bool is_whole) {
  if (!value.IsNumber()) return false;
  const double number = value.DoubleValue();
  const PreferenceLimits limits = LimitsOfPreference(name);
  return number >= limits.least && number <= limits.most &&
         (!is_whole || number == std::floor(number));
}

}  // namespace

PreferenceLimits LimitsOfPreference(std::string_view name) {
  const auto* const found = std::ranges::find(kLimits, name, &Limits::name);
  return found == kLimits.end() ? kColorPart : found->limits;
}

std::vector<std::string> TextsOfPreference(std::string_view name) {
  if (name == "accountListSortKey") return {"accounts", "balance"};
  if (name != "QIFExportDateFormat") return {};
  std::vector<std::string> formats;
  for (const QifDateFormat& each : kQifDateFormats) formats.emplace_back(each.format);
  return formats;
}

bool PreferenceTakes(std::string_view name, const plist::Value& value) {
  const auto fields = LDGRPreferences::Fields();
  const auto field = std::ranges::find(fields, name, &Field<LDGRPreferences>::key);
  if (field == fields.end() || name == "version") return false;
  const auto holds = [&field]<typename Type>(Type /*of*/) {
    return std::holds_alternative<Type LDGRPreferences::*>(field->member);
  };
  if (holds(std::string())) return TakesText(name, value);
  if (holds(bool())) return value.kind() == plist::Kind::Boolean;
  return TakesNumber(name, value, holds(std::int32_t()));
}

}  // namespace tallyfold
