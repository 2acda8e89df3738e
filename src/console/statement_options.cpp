#include "console/statement_options.h"

#include <algorithm>
#include <charconv>
#include <span>
#include <string_view>

#include "app/controller.h"
#include "app/exchange/qif_import_controller.h"
#include "console/command_error.h"
#include "console/exchange_options.h"
#include "console/values.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

using State = StatementOptionsState;

constexpr std::string_view kLeftToReader = "auto";
// Of a text of the file.
constexpr std::size_t kLongestOfFile = 60;

std::string Listed(std::span<const StatementWord> words) {
  std::string list;
  for (const StatementWord& each : words) {
    if (!list.empty()) list += ", ";
    list += each.word;
  }
  return list;
}

bool IsOfTable(StatementSetting setting) noexcept {
  return setting != StatementSetting::Reversals;
}

void RefuseOptions(const Arguments& arguments, std::initializer_list<std::string_view> options,
                   std::string_view why) {
  for (const std::string_view each : options) {
    if (arguments.Has(each)) throw CommandError(std::string(each) + ": " + std::string(why));
  }
}

std::optional<std::int32_t> ReadSetting(const State& shown, StatementSetting setting,
                                        const std::string& text) {
  if (text == kLeftToReader) return std::nullopt;
  if (setting == StatementSetting::Encoding) {
    for (const State::Setting& each : shown.settings) {
      if (each.setting == setting) return EncodingNamed(each.items, text);
    }
  }
  if (const auto value = ValueNamed(WordsOf(setting), text)) return value;
  throw CommandError(std::string(WordOf(setting)) + ": expected " + Listed(WordsOf(setting)) +
                     " or auto, not " + Quoted(text));
}

// "3:amount".
std::pair<std::size_t, CsvField> ReadColumn(std::string_view text) {
  const std::size_t colon = std::min(text.find(':'), text.size());
  std::size_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + colon, number);
  const auto field = ValueNamed(FieldWords(), text.substr(std::min(colon + 1, text.size())));
  if (read.ec != std::errc() || read.ptr != text.data() + colon || number == 0 || !field) {
    throw CommandError("column: expected auto, or the number of a column, a colon, and one of " +
                       Listed(FieldWords()) + ", not " + Quoted(text));
  }
  return {number - 1, static_cast<CsvField>(*field)};
}

std::string ColumnsOf(const State& state) {
  std::string text;
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    const State::Column& column = state.columns[i];
    const std::string& name = column.heading.empty() ? column.sample : column.heading;
    text += (i == 0 ? "" : ", ") + std::to_string(i + 1) + ' ' + Quoted(FirstCharacters(name, 30));
  }
  return text;
}

std::string QuestionText(const State& state, const StatementQuestion& question) {
  std::string text(TextOf(question.kind));
  const auto setting = SettingOf(question.kind);
  if (!question.sample.empty()) {
    text += ' ' + Quoted(FirstCharacters(question.sample, kLongestOfFile));
  }
  text += question.rows == 1 ? " in 1 row:" : " in " + std::to_string(question.rows) + " rows:";
  for (std::size_t i = 0; i < question.candidates.size(); ++i) {
    const auto& candidate = question.candidates[i];
    text += i == 0 ? " " : ", ";
    text += setting ? SettingAsTyped(state, *setting, candidate.value)
                    : "column=" + std::to_string(candidate.value + 1) + ":amount";
    text += " reads " + Quoted(FirstCharacters(candidate.reading, kLongestOfFile));
  }
  return text;
}

std::string QuestionsText(const State& state) {
  std::string text;
  for (const StatementQuestion& each : state.questions) {
    text += (text.empty() ? "" : "; ") + QuestionText(state, each);
  }
  return text;
}

// What is typed and would change nothing may hide that the table is read otherwise than meant.
void RefuseWithoutEffect(const State& state, const StatementChoicesTyped& choices) {
  if (!state.problem.empty()) return;
  for (const auto& [setting, value] : choices.settings) {
    const bool is_offered = std::any_of(
        state.settings.begin(), state.settings.end(),
        [setting = setting](const State::Setting& each) { return each.setting == setting; });
    if (!value || is_offered) continue;
    if (setting == StatementSetting::Fees) {
      throw CommandError("fees: no column of the table has fees; column=NUMBER:fee names one");
    }
    if (setting == StatementSetting::Spending) {
      throw CommandError("spending: the table has columns for debits and credits, which tell it");
    }
  }
}

}  // namespace

std::string SettingAsTyped(const StatementOptionsState& state, StatementSetting setting,
                           std::int64_t value) {
  const auto number = static_cast<std::int32_t>(value);
  const std::string name = std::string(WordOf(setting)) + '=';
  if (setting != StatementSetting::Encoding) {
    return name + std::string(WordFor(WordsOf(setting), number));
  }
  for (const State::Setting& each : state.settings) {
    const std::int32_t item =
        each.setting == setting ? IndexOfItemTagged(each.items, number) : kNoItem;
    if (item != kNoItem) return name + Quoted(each.items[static_cast<std::size_t>(item)].title);
  }
  return name + std::to_string(number);
}

void RefuseStatementOptions(const Arguments& arguments) {
  RefuseOptions(
      arguments,
      {"column", "delimiter", "heading", "order", "fees", "spending", "reversals", "suggest"},
      "the file is QIF, which has no such option");
}

StatementChoicesTyped ReadStatementChoices(const StatementOptionsState& shown,
                                           const Arguments& arguments) {
  RefuseOptions(arguments, {"format", "thousands", "swap", "types", "splits"},
                "only QIF files have this option");
  StatementChoicesTyped typed;
  if ((typed.account = arguments.Text("account"))) {
    static_cast<void>(AccountItem(shown.account_items, *typed.account));
  }
  typed.suggests_types = arguments.YesNo("suggest");
  if (const auto zero = arguments.Text("zero")) typed.zero_amounts_as_deposits = ReadZero(*zero);
  const bool is_table = shown.content == ImportContent::Table;
  for (const StatementSetting each : kStatementSettings) {
    const auto text = arguments.Text(WordOf(each));
    if (!text) continue;
    const bool applies = IsOfTable(each) ? is_table : shown.content == ImportContent::Camt;
    if (!applies) {
      throw CommandError(std::string(WordOf(each)) + ": there is no choice of it in this file");
    }
    typed.settings.emplace_back(each, ReadSetting(shown, each, *text));
  }
  for (const std::string& text : arguments.AllTexts("column")) {
    if (!is_table) throw CommandError("column: the file is no table");
    if (text == kLeftToReader) {
      typed.forgets_columns = true;
    } else {
      typed.columns.push_back(ReadColumn(text));
    }
  }
  return typed;
}

void ConfirmStatementOptions(Console& console, const StatementChoicesTyped& choices) {
  auto& import = console.controller.sharedQIFImportController();
  const State& state = import.StatementOptions();
  State::Typed typed = state.typed;
  if (choices.account) typed.account = AccountItem(state.account_items, *choices.account);
  SetIfGiven(typed.suggests_types, choices.suggests_types);
  SetIfGiven(typed.zero_amounts_as_deposits, choices.zero_amounts_as_deposits);
  for (const auto& [setting, value] : choices.settings) Choose(typed.choices, setting, value);
  if (choices.forgets_columns) typed.choices.csv.columns.clear();
  import.StatementOptions_Read(std::move(typed));
  // Columns are those of the table as it reads with the other choices.
  if (!choices.columns.empty()) {
    typed = state.typed;
    for (const auto& [column, field] : choices.columns) {
      if (column >= state.columns.size()) {
        throw CommandError("column: the table has " + std::to_string(state.columns.size()) + ": " +
                           ColumnsOf(state));
      }
      ChooseColumn(typed, state, column, field);
    }
    import.StatementOptions_Read(std::move(typed));
  }
  RefuseWithoutEffect(state, choices);
  if (import.ImportOptions_OK()) return;
  if (state.problem.empty() && !state.questions.empty()) throw CommandError(QuestionsText(state));
  std::string problem = TextOf(import.Options().problem);
  if (!state.message.empty()) {
    problem += "; the bank says " + Quoted(FirstCharacters(state.message, kLongestOfFile));
  }
  if (!state.columns.empty()) problem += "; its columns are " + ColumnsOf(state);
  throw CommandError(problem);
}

}  // namespace tallyfold::console
