#include "app/shell/preference_texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>
#include <variant>
#include <vector>

#include "app/schedules/schedule_reminder_state.h"
#include "exchange/qif_date_formats.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

using PreferenceField = Field<LDGRPreferences>;

// What a number may be, both ends included.
struct Range {
  std::string_view name;
  double least;
  double most;
};

constexpr double kAnyNumber = 2147483647.0;

constexpr std::array kRanges = {
    Range{"backupInterval", 0, 3650},
    Range{"entryFontSize", 4, 144},
    Range{"selectedAccountNumber", -1, kAnyNumber},
    Range{"scheduleReminderInterval", 0, 86400},
    Range{"QIFExportAccount", -5, kAnyNumber},
    Range{"QIFExportEncoding", -kAnyNumber - 1, kAnyNumber},
    Range{"speakEntriesStyle", 0, 1},
    Range{"pauseBetweenSpokenEntries", 0, 3600},
    Range{"accountsDrawerWidth", -1, 10000},
    Range{"scheduleLookAhead", 0, kMostLookAhead},
};
// Of a number without an entry above: a part of a colour.
constexpr Range kColorPart = {"", 0, 1};

// The names of numbers from 0 on, or the texts there are, with "|" between them.
struct Choices {
  std::string_view name;
  std::string_view choices;
};

constexpr std::string_view kSheetFields = "date|amount|description|to/from|type";

constexpr std::array kChoices = {
    Choices{"dateFormat", "short|yyyy-mm-dd|long"},
    Choices{"amountFormat", "separators|plain"},
    Choices{"accountListSortKey", "accounts|balance"},
    Choices{"balanceMode", "balance|today|resolved|unresolved|shown|selected"},
    Choices{"selectWhichFieldFirstWhenAddingEntries", kSheetFields},
    Choices{"selectWhichFieldFirstWhenChangingEntries", kSheetFields},
    Choices{"defaultDateWhenAddingEntries", "today|last"},
    Choices{"accountsDrawerPreferredEdge", "left|bottom|right|top"},
    Choices{"scheduleLookAheadType", "days|weeks|months"},
    Choices{"scheduleReminderBalanceMode", "none|today|after"},
};

const PreferenceField* FieldNamed(std::string_view name) {
  const auto fields = LDGRPreferences::Fields();
  const auto field = std::find_if(fields.begin(), fields.end(),
                                  [name](const auto& each) { return each.key == name; });
  return field == fields.end() ? nullptr : &*field;
}

template <typename Type>
bool Holds(const PreferenceField& field) {
  return std::holds_alternative<Type LDGRPreferences::*>(field.member);
}

Range RangeOf(std::string_view name) {
  const auto range = std::find_if(kRanges.begin(), kRanges.end(),
                                  [name](const Range& each) { return each.name == name; });
  return range == kRanges.end() ? kColorPart : *range;
}

// Empty for a setting that is no choice.
std::vector<std::string> ChoicesOf(std::string_view name) {
  std::vector<std::string> choices;
  if (name == "QIFExportDateFormat") {
    for (const QifDateFormat& each : kQifDateFormats) choices.emplace_back(each.format);
    return choices;
  }
  for (const Choices& each : kChoices) {
    if (each.name != name) continue;
    for (std::string_view rest = each.choices; !rest.empty();) {
      const std::size_t end = std::min(rest.find('|'), rest.size());
      choices.emplace_back(rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  return choices;
}

template <typename Number>
std::string NumberText(Number number) {
  std::array<char, 32> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  return std::string(digits.data(), end);
}

template <typename Number>
std::optional<Number> NumberWithin(std::string_view text, const Range& range) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  const auto value = static_cast<double>(number);
  // The comparison is also false for what is not a number.
  const bool is_within = value >= range.least && value <= range.most;
  if (error != std::errc() || rest != end || !is_within) return std::nullopt;
  return number;
}

std::optional<plist::Value> ChoiceValue(const PreferenceField& field,
                                        const std::vector<std::string>& choices,
                                        std::string_view text) {
  const auto choice = std::find(choices.begin(), choices.end(), text);
  if (choice == choices.end()) return std::nullopt;
  if (Holds<std::string>(field)) return plist::Value(*choice);
  return plist::Value(static_cast<std::int32_t>(choice - choices.begin()));
}

std::optional<plist::Value> ValueOf(const PreferenceField& field, std::string_view text) {
  if (const auto choices = ChoicesOf(field.key); !choices.empty()) {
    return ChoiceValue(field, choices, text);
  }
  if (Holds<std::string>(field)) {
    if (text.empty()) return std::nullopt;
    return plist::Value(std::string(text));
  }
  if (Holds<bool>(field)) {
    if (text != "yes" && text != "no") return std::nullopt;
    return plist::Value(text == "yes");
  }
  if (Holds<float>(field)) {
    const auto number = NumberWithin<float>(text, RangeOf(field.key));
    if (!number) return std::nullopt;
    return plist::Value(static_cast<double>(*number));
  }
  const auto number = NumberWithin<std::int32_t>(text, RangeOf(field.key));
  if (!number) return std::nullopt;
  return plist::Value(*number);
}

}  // namespace

std::string PreferenceText(const LDGRPreferences& preferences, std::string_view name) {
  const PreferenceField* field = FieldNamed(name);
  if (field == nullptr) return "";
  const plist::Value value = preferences.FieldValue(name);
  if (Holds<std::string>(*field)) return std::string(value.StringValue());
  if (Holds<bool>(*field)) return value.BooleanValue() ? "yes" : "no";
  if (Holds<float>(*field)) return NumberText(static_cast<float>(value.DoubleValue()));
  const std::int32_t number = value.IntegerValue();
  const auto choices = ChoicesOf(name);
  const bool is_choice = number >= 0 && static_cast<std::size_t>(number) < choices.size();
  return is_choice ? choices[static_cast<std::size_t>(number)] : NumberText(number);
}

std::string ExpectedOfPreference(std::string_view name) {
  const PreferenceField* field = FieldNamed(name);
  if (field == nullptr || name == "version") return "";
  if (const auto choices = ChoicesOf(name); !choices.empty()) {
    std::string expected = LocalizedText("one of");
    for (const std::string& choice : choices) {
      expected += (&choice == &choices.front() ? " " : ", ") + choice;
    }
    return expected;
  }
  if (Holds<std::string>(*field)) return LocalizedText("a text");
  if (Holds<bool>(*field)) return LocalizedText("yes or no");
  const Range range = RangeOf(name);
  const std::string kind = LocalizedText(Holds<float>(*field) ? "a number" : "a whole number");
  if (range.most == kAnyNumber) {
    return range.least < -kAnyNumber ? kind
                                     : kind + ' ' + LocalizedText("from") + ' ' +
                                           NumberText(static_cast<std::int32_t>(range.least));
  }
  return kind + ' ' + LocalizedText("from") + ' ' + NumberText(range.least) + ' ' +
         LocalizedText("to") + ' ' + NumberText(range.most);
}

bool SetPreferenceText(LDGRPreferences& preferences, std::string_view name, std::string_view text) {
  const PreferenceField* field = FieldNamed(name);
  if (field == nullptr) return false;
  const auto value = ValueOf(*field, text);
  return value && preferences.SetFieldValue(name, *value);
}

}  // namespace tallyfold
