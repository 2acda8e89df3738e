#include "app/exchange/statement_settings.h"

#include <algorithm>

#include "exchange/camt_reader.h"
#include "exchange/written_day.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Setting = StatementSetting;

constexpr StatementWord kDelimiterWords[] = {{';', "semicolon", "Semicolon"},
                                             {',', "comma", "Comma"},
                                             {'\t', "tab", "Tab"},
                                             {'|', "bar", "Vertical Bar"}};
constexpr StatementWord kHeadingWords[] = {{1, "yes", "Has Headings"}, {0, "no", "No Headings"}};
constexpr StatementWord kDayOrderWords[] = {
    {static_cast<std::int32_t>(DayOrder::DayMonthYear), "dmy", "Day, Month, Year"},
    {static_cast<std::int32_t>(DayOrder::MonthDayYear), "mdy", "Month, Day, Year"},
    {static_cast<std::int32_t>(DayOrder::YearMonthDay), "ymd", "Year, Month, Day"},
    {static_cast<std::int32_t>(DayOrder::YearDayMonth), "ydm", "Year, Day, Month"}};
constexpr StatementWord kDecimalWords[] = {{'.', "point", "1,234.56"}, {',', "comma", "1.234,56"}};
constexpr StatementWord kFeeWords[] = {{0, "no", "Are in the Amounts"}, {1, "yes", "Come off"}};
// As what is asked about positive amounts is answered.
constexpr StatementWord kSpendingWords[] = {{0, "negative", "No"}, {1, "positive", "Yes"}};
constexpr StatementWord kReversalWords[] = {
    {static_cast<std::int32_t>(ReversalSign::Proven), "proven", "As Balances Prove"},
    {static_cast<std::int32_t>(ReversalSign::AsMarked), "marked", "As Marked"},
    {static_cast<std::int32_t>(ReversalSign::Turned), "turned", "Turned"}};

constexpr std::int32_t ValueOf(CsvField field) noexcept {
  return static_cast<std::int32_t>(field);
}

constexpr StatementWord kFieldWords[] = {{ValueOf(CsvField::None), "none", "Ignore"},
                                         {ValueOf(CsvField::Day), "day", "Date"},
                                         {ValueOf(CsvField::ValueDay), "valueday", "Value Date"},
                                         {ValueOf(CsvField::Amount), "amount", "Amount"},
                                         {ValueOf(CsvField::Debit), "debit", "Debit"},
                                         {ValueOf(CsvField::Credit), "credit", "Credit"},
                                         {ValueOf(CsvField::Mark), "mark", "Debit or Credit"},
                                         {ValueOf(CsvField::Fee), "fee", "Fee"},
                                         {ValueOf(CsvField::Net), "net", "Net Amount"},
                                         {ValueOf(CsvField::Balance), "balance", "Balance"},
                                         {ValueOf(CsvField::Payee), "tofrom", "To/From"},
                                         {ValueOf(CsvField::Purpose), "description", "Description"},
                                         {ValueOf(CsvField::Reference), "notes", "Notes"},
                                         {ValueOf(CsvField::CheckNumber), "check", "Check"},
                                         {ValueOf(CsvField::Type), "type", "Kind of Payment"},
                                         {ValueOf(CsvField::Currency), "currency", "Currency"},
                                         {ValueOf(CsvField::Status), "status", "Status"}};

struct NamedSetting {
  Setting setting;
  std::string_view word;
  std::string_view title;
  std::span<const StatementWord> values;
};

// In the order of the settings.
constexpr NamedSetting kSettings[] = {
    {Setting::Encoding, "encoding", "Encoding", {}},
    {Setting::Delimiter, "delimiter", "Separator", kDelimiterWords},
    {Setting::Heading, "heading", "Headings", kHeadingWords},
    {Setting::DayOrder, "order", "Dates", kDayOrderWords},
    {Setting::DecimalSeparator, "decimal", "Decimals", kDecimalWords},
    {Setting::Fees, "fees", "Fees", kFeeWords},
    {Setting::Spending, "spending", "Spending", kSpendingWords},
    {Setting::Reversals, "reversals", "Reversals", kReversalWords}};

const NamedSetting& NamedOf(Setting setting) noexcept {
  return kSettings[static_cast<std::size_t>(setting)];
}

std::vector<PopUpItem> ItemsOfWords(std::span<const StatementWord> words) {
  std::vector<PopUpItem> items;
  for (const StatementWord& each : words) items.push_back({LocalizedText(each.title), each.value});
  return items;
}

template <typename Value>
std::optional<std::int32_t> ChosenNumber(const std::optional<Value>& value) noexcept {
  if (!value) return std::nullopt;
  return static_cast<std::int32_t>(*value);
}

template <typename Value>
void TakeValue(std::optional<Value>& taken, std::optional<std::int32_t> value) {
  taken = value ? std::optional(static_cast<Value>(*value)) : std::nullopt;
}

}  // namespace

std::string_view WordOf(StatementSetting setting) noexcept {
  return NamedOf(setting).word;
}

std::string_view TitleOf(StatementSetting setting) noexcept {
  return NamedOf(setting).title;
}

std::span<const StatementWord> WordsOf(StatementSetting setting) noexcept {
  return NamedOf(setting).values;
}

std::vector<PopUpItem> ItemsOf(StatementSetting setting) {
  return ItemsOfWords(NamedOf(setting).values);
}

std::span<const StatementWord> FieldWords() noexcept {
  return kFieldWords;
}

std::vector<PopUpItem> FieldItems() {
  return ItemsOfWords(kFieldWords);
}

std::optional<std::int32_t> ValueNamed(std::span<const StatementWord> words,
                                       std::string_view word) noexcept {
  for (const StatementWord& each : words) {
    const bool is_character = each.value > 1 && word.size() == 1 && word.front() == each.value;
    if (each.word == word || is_character) return each.value;
  }
  return std::nullopt;
}

std::string_view WordFor(std::span<const StatementWord> words, std::int32_t value) noexcept {
  const auto found = std::ranges::find(words, value, &StatementWord::value);
  return found != words.end() ? found->word : std::string_view();
}

std::optional<std::int32_t> ChosenValue(const StatementChoices& choices,
                                        StatementSetting setting) noexcept {
  const CsvChoices& csv = choices.csv;
  switch (setting) {
    case Setting::Encoding:
      return ChosenNumber(csv.encoding);
    case Setting::Delimiter:
      return ChosenNumber(csv.delimiter);
    case Setting::Heading:
      return ChosenNumber(csv.has_heading);
    case Setting::DayOrder:
      return ChosenNumber(csv.day_order);
    case Setting::DecimalSeparator:
      return ChosenNumber(csv.decimal_separator);
    case Setting::Fees:
      return ChosenNumber(csv.fees_come_off);
    case Setting::Spending:
      return ChosenNumber(csv.spending_is_positive);
    case Setting::Reversals:
      break;
  }
  if (choices.reversals == ReversalSign::Proven) return std::nullopt;
  return static_cast<std::int32_t>(choices.reversals);
}

void Choose(StatementChoices& choices, StatementSetting setting,
            std::optional<std::int32_t> value) {
  CsvChoices& csv = choices.csv;
  switch (setting) {
    case Setting::Encoding:
      return TakeValue(csv.encoding, value);
    case Setting::Delimiter:
      return TakeValue(csv.delimiter, value);
    case Setting::Heading:
      return TakeValue(csv.has_heading, value);
    case Setting::DayOrder:
      return TakeValue(csv.day_order, value);
    case Setting::DecimalSeparator:
      return TakeValue(csv.decimal_separator, value);
    case Setting::Fees:
      return TakeValue(csv.fees_come_off, value);
    case Setting::Spending:
      return TakeValue(csv.spending_is_positive, value);
    case Setting::Reversals:
      break;
  }
  choices.reversals = static_cast<ReversalSign>(value.value_or(0));
}

std::optional<StatementSetting> SettingOf(StatementQuestion::Kind kind) noexcept {
  switch (kind) {
    case StatementQuestion::Kind::Encoding:
      return Setting::Encoding;
    case StatementQuestion::Kind::DayOrder:
      return Setting::DayOrder;
    case StatementQuestion::Kind::DecimalSeparator:
      return Setting::DecimalSeparator;
    case StatementQuestion::Kind::ReversalSign:
      return Setting::Reversals;
    case StatementQuestion::Kind::FeeColumn:
      return Setting::Fees;
    case StatementQuestion::Kind::SpendingSign:
      return Setting::Spending;
    case StatementQuestion::Kind::AmountColumn:
      break;
  }
  return std::nullopt;
}

}  // namespace tallyfold
