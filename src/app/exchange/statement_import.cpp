#include "app/exchange/statement_import.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "app/exchange/remembered_import.h"
#include "exchange/csv_amounts.h"
#include "exchange/import_text.h"
#include "exchange/statement_review.h"
#include "model/account.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "platform/text_encodings.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

using ProofKind = StatementProof::Kind;

constexpr TextEncoding kOfferedEncodings[] = {TextEncoding::Utf8,        TextEncoding::Utf16,
                                              TextEncoding::Windows1252, TextEncoding::Windows1250,
                                              TextEncoding::Windows1251, TextEncoding::Windows1257};

bool IsUtf8BeyondAscii(std::string_view bytes) {
  return Utf8Bytes(bytes) && std::ranges::any_of(bytes, [](char each) {
           return static_cast<unsigned char>(each) >= 0x80;
         });
}

StatementReviewOptions ReviewOptions(const StatementOptionsState::Typed& typed) {
  return {.suggests_types = typed.suggests_types,
          .zero_amounts_as_deposits = typed.zero_amounts_as_deposits};
}

}  // namespace

StatementImport::StatementImport(FileContents contents, const TextEncodings& encodings,
                                 const LDGRAccountPreferences& preferences)
    : encodings_(&encodings), contents_(std::move(contents)) {
  state_.typed.account = 0;
  ReadAgain();
  if (!file_.csv) return;
  identifier_ = ImportIdentifier(*file_.csv);
  if (!RecallImport(preferences, identifier_, state_.typed)) return;
  // A bank whose files are UTF-8 by now is not read in what its earlier ones were written in.
  if (IsUtf8BeyondAscii(contents_.view())) state_.typed.choices.csv.encoding.reset();
  ReadAgain();
}

void StatementImport::Read(StatementOptionsState::Typed typed) {
  const CsvChoices& before = state_.typed.choices.csv;
  CsvChoices& now = typed.choices.csv;
  const bool is_other_table = now.delimiter != before.delimiter ||
                              now.encoding != before.encoding ||
                              now.has_heading != before.has_heading;
  if (is_other_table && now.columns == before.columns) now.columns.clear();
  const bool is_other_reading =
      is_other_table || now.columns != before.columns ||
      std::ranges::any_of(kStatementSettings, [&](StatementSetting each) {
        return ChosenValue(typed.choices, each) != ChosenValue(state_.typed.choices, each);
      });
  state_.typed = std::move(typed);
  if (is_other_reading) ReadAgain();
}

void StatementImport::Answer(std::size_t question, std::size_t candidate) {
  if (question >= file_.questions.size()) return;
  const StatementQuestion& asked = file_.questions[question];
  if (candidate >= asked.candidates.size()) return;
  const std::int64_t value = asked.candidates[candidate].value;
  StatementOptionsState::Typed typed = state_.typed;
  if (const auto setting = SettingOf(asked.kind)) {
    Choose(typed.choices, *setting, static_cast<std::int32_t>(value));
  } else if (file_.csv) {
    auto& columns = typed.choices.csv.columns;
    columns = file_.csv->choices.columns;
    std::replace(columns.begin(), columns.end(), CsvField::Amount, CsvField::None);
    if (static_cast<std::size_t>(value) < columns.size()) {
      columns[static_cast<std::size_t>(value)] = CsvField::Amount;
    }
  }
  Read(std::move(typed));
}

void StatementImport::ReadAgain() {
  file_ = ReadStatementFile(contents_.view(), *encodings_, state_.typed.choices);
  ++state_.reading;
  MakeGroups();
}

void StatementImport::MakeGroups() {
  groups_.clear();
  std::unordered_map<std::string, std::size_t> known;
  for (std::size_t i = 0; i < file_.accounts.size(); ++i) {
    const std::string& name = file_.accounts[i].name;
    const auto [place, is_new] = known.try_emplace(name, groups_.size());
    if (is_new) groups_.push_back({name, {}});
    groups_[place->second].accounts.push_back(i);
  }
  // All that a file without names has is all entries.
  if (groups_.size() == 1 && groups_.front().name.empty()) groups_.clear();
  auto& items = state_.account_items;
  items.clear();
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    const std::string& name = groups_[i].name;
    items.push_back(
        {name.empty() ? LocalizedText("Without a Number") : name, static_cast<std::int32_t>(i)});
  }
  items.push_back({LocalizedText("All Entries"), static_cast<std::int32_t>(groups_.size())});
  auto& chosen = state_.typed.account;
  if (chosen < 0 || static_cast<std::size_t>(chosen) >= items.size()) chosen = 0;
}

// --- The account chosen -------------------------------------------------------------------------

std::vector<std::size_t> StatementImport::Chosen() const {
  const auto place = static_cast<std::size_t>(state_.typed.account);
  if (place < groups_.size()) return groups_[place].accounts;
  std::vector<std::size_t> all(file_.accounts.size());
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
  return all;
}

std::vector<StatementRow> StatementImport::Rows(std::size_t most) const {
  std::vector<StatementRow> rows;
  for (const std::size_t place : Chosen()) {
    const auto& of_account = file_.accounts[place].rows;
    const std::size_t count = std::min(of_account.size(), most - rows.size());
    rows.insert(rows.end(), of_account.begin(),
                of_account.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return rows;
}

QifImportEntryList StatementImport::Entries(const LDGRAccount& account) const {
  return ReviewEntriesOf(Rows(SIZE_MAX), account, ReviewOptions(state_.typed));
}

ImportHints StatementImport::Hints(DateNumber today) const {
  ImportHints hints = HintsFor(file_, Rows(SIZE_MAX), today);
  hints.elsewhere = state_.file_entry_count - state_.entry_count;
  return hints;
}

std::optional<StatementBalance> StatementImport::ClosingBalance() const {
  const bool is_one =
      groups_.size() <= 1 || static_cast<std::size_t>(state_.typed.account) < groups_.size();
  std::optional<StatementBalance> newest;
  if (!is_one) return newest;
  for (const std::size_t place : Chosen()) {
    const auto& closing = file_.accounts[place].closing;
    if (!closing || !std::isfinite(closing->amount)) continue;
    if (!newest || closing->day >= newest->day) newest = closing;
  }
  return newest;
}

std::size_t StatementImport::Unmarked(UnmarkedReason reason) const {
  std::size_t count = 0;
  for (const std::size_t place : Chosen()) {
    count += CountUnmarked(file_.accounts[place].rows, reason);
  }
  return count;
}

std::size_t StatementImport::ReusedIdentifiers() const {
  std::size_t count = 0;
  for (const std::size_t place : Chosen()) count += file_.accounts[place].reused_identifiers;
  return count;
}

StatementProof StatementImport::ChosenProof() const {
  StatementProof whole;
  bool is_first = true;
  std::size_t first_row = 0;
  for (const std::size_t place : Chosen()) {
    const StatementProof& each = file_.accounts[place].proof;
    for (const std::size_t row : each.disagreeing) whole.disagreeing.push_back(first_row + row);
    first_row += file_.accounts[place].rows.size();
    whole.balances += each.balances;
    whole.agreeing += each.agreeing;
    whole.difference += each.difference;
    if (whole.first_disagreeing_line == 0) {
      whole.first_disagreeing_line = each.first_disagreeing_line;
    }
    // What one statement disproves or does not prove is not proven of all.
    const bool is_worse = each.kind == ProofKind::Disagree || each.kind == ProofKind::None;
    if (is_first || (is_worse && whole.kind != ProofKind::Disagree)) whole.kind = each.kind;
    is_first = false;
  }
  return whole;
}

// --- What is shown ------------------------------------------------------------------------------

void StatementImport::Show(const LDGRAccount& account, const TableFormat& format) {
  state_.content = file_.content;
  const std::string_view problem = ProblemOf(file_);
  state_.problem = problem.empty() ? "" : LocalizedText(problem);
  state_.questions = file_.questions;
  state_.message = file_.message;
  state_.is_cut_short = file_.is_cut_short;
  state_.encoding = encodings_->Name(file_.encoding);
  state_.entry_count = 0;
  state_.file_entry_count = 0;
  state_.pending = 0;
  state_.has_zero_amounts = false;
  std::optional<DateNumber> first;
  std::optional<DateNumber> last;
  for (const StatementAccount& each : file_.accounts) state_.file_entry_count += each.rows.size();
  for (const std::size_t place : Chosen()) {
    const StatementAccount& chosen = file_.accounts[place];
    state_.entry_count += chosen.rows.size();
    state_.pending += chosen.pending;
    for (const StatementRow& row : chosen.rows) {
      if (row.amount && *row.amount == 0.0) state_.has_zero_amounts = true;
      if (!row.day) continue;
      first = std::min(first.value_or(*row.day), *row.day);
      last = std::max(last.value_or(*row.day), *row.day);
    }
  }
  state_.first_day = first ? DayCell(*first, format).text : "";
  state_.last_day = last ? DayCell(*last, format).text : "";
  state_.proof = ChosenProof();
  state_.rows.clear();
  for (const auto& entry :
       ReviewEntriesOf(Rows(kMostProofRows), account, ReviewOptions(state_.typed))) {
    state_.rows.push_back(ProofRowOf(*entry, format));
  }
  ShowSettings();
  ShowColumns();
}

void StatementImport::AddSetting(StatementSetting setting, std::optional<std::int32_t> value) {
  StatementOptionsState::Setting& shown = state_.settings.emplace_back();
  shown.setting = setting;
  shown.items = ItemsOf(setting);
  if (setting == StatementSetting::Encoding) {
    const auto offer = [&](TextEncoding encoding) {
      const auto tag = static_cast<std::int32_t>(encoding);
      if (IndexOfItemTagged(shown.items, tag) != kNoItem) return;
      shown.items.push_back({encodings_->Name(encoding), tag});
    };
    for (const TextEncoding each : kOfferedEncodings) offer(each);
    offer(file_.encoding);
  }
  if (value) shown.selected = IndexOfItemTagged(shown.items, *value);
}

void StatementImport::ShowSettings() {
  state_.settings.clear();
  const bool asks_reversals = std::ranges::any_of(file_.questions, [](const auto& each) {
    return each.kind == StatementQuestion::Kind::ReversalSign;
  });
  const auto reversals = ChosenValue(state_.typed.choices, StatementSetting::Reversals);
  if (asks_reversals || reversals) {
    AddSetting(StatementSetting::Reversals, reversals.value_or(0));
  }
  if (!file_.csv) return;
  const CsvChoices& read = file_.csv->choices;
  const bool has_fees = std::ranges::find(read.columns, CsvField::Fee) != read.columns.end();
  // A column for each direction has no sign to be turned.
  const CsvNumberColumns numbers(read.columns);
  const bool has_directions = !numbers.amount && (numbers.debit || numbers.credit);
  const StatementChoices in_force{.csv = read, .reversals = {}};
  for (const StatementSetting each : kStatementSettings) {
    if (each == StatementSetting::Reversals) continue;
    if (each == StatementSetting::Fees && !has_fees) continue;
    if (each == StatementSetting::Spending && has_directions) continue;
    AddSetting(each, ChosenValue(in_force, each));
  }
}

void StatementImport::ShowColumns() {
  state_.columns.clear();
  if (!file_.csv) return;
  const CsvReading& reading = *file_.csv;
  state_.field_items = FieldItems();
  state_.balance_lines = reading.balance_lines;
  state_.continuation_lines = reading.continuation_lines;
  state_.other_lines = reading.other_lines;
  state_.left_out = reading.left_out;
  for (std::size_t i = 0; i < reading.choices.columns.size(); ++i) {
    StatementOptionsState::Column& column = state_.columns.emplace_back();
    column.field = reading.choices.columns[i];
    if (i < reading.headings.size()) column.heading = reading.headings[i];
    if (i < reading.first_row.size()) column.sample = reading.first_row[i];
  }
}

CsvLines StatementImport::Lines() const {
  return IsThere() ? LinesOf(contents_.view(), file_, *encodings_) : CsvLines();
}

std::string StatementImport::Problem() const {
  if (!state_.problem.empty() || file_.questions.empty()) return state_.problem;
  return LocalizedText(TextOf(file_.questions.front().kind));
}

void StatementImport::Remember(LDGRAccountPreferences& preferences) const {
  if (!identifier_.empty()) RememberImport(preferences, identifier_, state_.typed);
}

void ChooseColumn(StatementOptionsState::Typed& typed, const StatementOptionsState& shown,
                  std::size_t column, CsvField field) {
  auto& columns = typed.choices.csv.columns;
  if (columns.empty()) {
    for (const auto& each : shown.columns) columns.push_back(each.field);
    // What is still asked is not answered by this.
    const bool asks_amounts = std::ranges::any_of(shown.questions, [](const auto& each) {
      return each.kind == StatementQuestion::Kind::AmountColumn;
    });
    if (asks_amounts) {
      std::replace(columns.begin(), columns.end(), CsvField::Amount, CsvField::None);
    }
  }
  if (column >= columns.size()) return;
  const bool is_text =
      field == CsvField::Payee || field == CsvField::Purpose || field == CsvField::Reference;
  if (!is_text) std::replace(columns.begin(), columns.end(), field, CsvField::None);
  columns[column] = field;
}

std::string TextOf(const StatementProof& proof) {
  const std::size_t disagreeing = proof.balances - proof.agreeing;
  switch (proof.kind) {
    case ProofKind::None:
      return "";
    case ProofKind::Closing:
      return LocalizedText("The opening balance and the entries come to the closing balance.");
    case ProofKind::Running:
      return Message(Plural("The balance agrees with the amounts.",
                            "All {1} balances agree with the amounts.", proof.balances),
                     {std::to_string(proof.balances)});
    case ProofKind::Disagree:
      break;
  }
  if (proof.balances == 0) {
    return LocalizedText("The opening balance and the entries do not come to the closing balance.");
  }
  return Message("{1} of {2} balances do not agree, the first in line {3}.",
                 {std::to_string(disagreeing), std::to_string(proof.balances),
                  std::to_string(proof.first_disagreeing_line)});
}

}  // namespace tallyfold
