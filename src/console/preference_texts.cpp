#include "console/preference_texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>
#include <vector>

#include "app/shell/preference_limits.h"
#include "storage/preferences.h"

namespace tallyfold::console {
namespace {

using PreferenceField = Field<LDGRPreferences>;

// The names of numbers from 0 on, with "|" between them.
struct Choices {
  std::string_view name;
  std::string_view choices;
};

constexpr std::string_view kSheetFields = "date|amount|description|to/from|type";

constexpr std::array kChoices = {
    Choices{"dateFormat", "short|yyyy-mm-dd|long"},
    Choices{"amountFormat", "separators|plain"},
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

// Empty for a setting that is no choice.
std::vector<std::string> ChoicesOf(std::string_view name) {
  std::vector<std::string> choices = TextsOfPreference(name);
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
std::optional<Number> NumberIn(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

plist::Value ChoiceValue(const PreferenceField& field, const std::vector<std::string>& choices,
                         std::string_view text) {
  if (Holds<std::string>(field)) return plist::Value(text);
  const auto choice = std::find(choices.begin(), choices.end(), text);
  if (choice == choices.end()) return {};
  return plist::Value(static_cast<std::int32_t>(choice - choices.begin()));
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
    std::string expected = "one of";
    for (const std::string& choice : choices) {
      expected += (&choice == &choices.front() ? " " : ", ") + choice;
    }
    return expected;
  }
  if (Holds<std::string>(*field)) return "a text";
  if (Holds<bool>(*field)) return "yes or no";
  const PreferenceLimits range = LimitsOfPreference(name);
  const std::string kind = Holds<float>(*field) ? "a number" : "a whole number";
  if (range.most == kAnyPreferenceNumber) {
    return range.least < -kAnyPreferenceNumber
               ? kind
               : kind + " from " + NumberText(static_cast<std::int32_t>(range.least));
  }
  return kind + " from " + NumberText(range.least) + " to " + NumberText(range.most);
}

plist::Value PreferenceValue(std::string_view name, std::string_view text) {
  const PreferenceField* field = FieldNamed(name);
  if (field == nullptr) return {};
  if (const auto choices = ChoicesOf(name); !choices.empty()) {
    return ChoiceValue(*field, choices, text);
  }
  if (Holds<std::string>(*field)) return plist::Value(text);
  if (Holds<bool>(*field)) {
    return text == "yes" || text == "no" ? plist::Value(text == "yes") : plist::Value();
  }
  if (Holds<float>(*field)) {
    const auto number = NumberIn<float>(text);
    return number ? plist::Value(static_cast<double>(*number)) : plist::Value();
  }
  const auto number = NumberIn<std::int32_t>(text);
  return number ? plist::Value(*number) : plist::Value();
}

}  // namespace tallyfold::console
