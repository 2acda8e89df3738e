#include "app/exchange/remembered_import.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/exchange/statement_settings.h"
#include "platform/text_encodings.h"
#include "plist/value.h"
#include "storage/account_preferences.h"

namespace tallyfold {
namespace {

using StatementTyped = StatementOptionsState::Typed;

constexpr std::string_view kChoiceIdentifier = "identifier";
constexpr std::string_view kChoiceValue = "value";
constexpr std::string_view kChosenColumns = "columns";
constexpr std::string_view kSuggestedTypes = "types";
constexpr std::string_view kZeroAmounts = "zero";

std::optional<StatementSetting> SettingNamed(std::string_view word) noexcept {
  for (const StatementSetting each : kStatementSettings) {
    if (each != StatementSetting::Reversals && WordOf(each) == word) return each;
  }
  return std::nullopt;
}

bool IsOurs(std::string_view identifier) noexcept {
  return identifier == kChosenColumns || identifier == kSuggestedTypes ||
         identifier == kZeroAmounts || SettingNamed(identifier).has_value();
}

std::string WordsOfColumns(const std::vector<CsvField>& columns) {
  std::string words;
  for (const CsvField each : columns) {
    if (!words.empty()) words += ',';
    words += WordFor(FieldWords(), static_cast<std::int32_t>(each));
  }
  return words;
}

// Empty where a word is none of the fields.
std::vector<CsvField> ColumnsOfWords(std::string_view words) {
  std::vector<CsvField> columns;
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(','), words.size());
    const auto field = ValueNamed(FieldWords(), words.substr(0, end));
    if (!field) return {};
    columns.push_back(static_cast<CsvField>(*field));
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  return columns;
}

std::optional<std::int32_t> EncodingOf(std::string_view text) noexcept {
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

void Recall(std::string_view identifier, std::string_view value, StatementTyped& typed) {
  if (identifier == kChosenColumns) {
    typed.choices.csv.columns = ColumnsOfWords(value);
  } else if (identifier == kSuggestedTypes) {
    typed.suggests_types = value != "no";
  } else if (identifier == kZeroAmounts) {
    typed.zero_amounts_as_deposits = value != "debit";
  } else if (const auto setting = SettingNamed(identifier)) {
    const auto number = *setting == StatementSetting::Encoding
                            ? EncodingOf(value)
                            : ValueNamed(WordsOf(*setting), value);
    if (number) Choose(typed.choices, *setting, number);
  }
}

}  // namespace

bool RecallImport(const LDGRAccountPreferences& preferences, std::string_view identifier,
                  StatementTyped& typed) {
  const auto table = preferences.ExistingTable(identifier);
  if (!table) return false;
  for (const plist::Value& each : table->Get(kChosenColumns).ArrayValue()) {
    const plist::Dictionary choice = each.DictionaryValue();
    Recall(choice.Get(kChoiceIdentifier).StringValue(), choice.Get(kChoiceValue).StringValue(),
           typed);
  }
  return true;
}

void RememberImport(LDGRAccountPreferences& preferences, std::string_view identifier,
                    const StatementTyped& typed) {
  plist::Array kept;
  const auto keep = [&kept](std::string_view name, std::string_view value) {
    plist::Dictionary choice;
    choice.Set(kChoiceIdentifier, name);
    choice.Set(kChoiceValue, value);
    kept.Append(choice);
  };
  for (const StatementSetting each : kStatementSettings) {
    const auto value = ChosenValue(typed.choices, each);
    if (!value || each == StatementSetting::Reversals) continue;
    keep(WordOf(each), each == StatementSetting::Encoding ? std::to_string(*value)
                                                          : WordFor(WordsOf(each), *value));
  }
  if (!typed.choices.csv.columns.empty()) {
    keep(kChosenColumns, WordsOfColumns(typed.choices.csv.columns));
  }
  if (!typed.suggests_types) keep(kSuggestedTypes, "no");
  if (!typed.zero_amounts_as_deposits) keep(kZeroAmounts, "debit");
  const auto table = preferences.ExistingTable(identifier);
  if (table) {
    for (const plist::Value& each : table->Get(kChosenColumns).ArrayValue()) {
      if (!IsOurs(each.DictionaryValue().Get(kChoiceIdentifier).StringValue())) kept.Append(each);
    }
  } else if (kept.size() == 0) {
    return;
  }
  preferences.SetColumns(kept, identifier);
}

}  // namespace tallyfold
