#include "exchange/statement_text.h"

#include "exchange/statement_reader.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

std::string TextOfDay(const std::optional<DateNumber>& day) {
  return day ? std::to_string(*day) : "?";
}

std::string TextOfRow(const StatementRow& row) {
  std::string text = "  " + std::to_string(row.line) + ": " + TextOfDay(row.day);
  text += " " + (row.amount ? FixedAmountString(*row.amount) : "?");
  text += " | " + row.to_from + " | " + row.description + " | " + row.notes + " | " + row.type;
  if (row.check_number) text += " check " + std::to_string(*row.check_number);
  if (!row.is_cleared) text += " uncleared";
  if (row.unmarked != UnmarkedReason::None) text += " [" + std::string(TextOf(row.unmarked)) + "]";
  return text + "\n";
}

std::string TextOfBalance(std::string_view name, const std::optional<StatementBalance>& balance) {
  if (!balance) return {};
  return " " + std::string(name) + " " + FixedAmountString(balance->amount) + " on " +
         TextOfDay(balance->day);
}

std::string TextOfProof(const StatementProof& proof) {
  const std::string counts =
      " " + std::to_string(proof.agreeing) + " of " + std::to_string(proof.balances);
  switch (proof.kind) {
    case StatementProof::Kind::None:
      return "";
    case StatementProof::Kind::Closing:
      return " agrees";
    case StatementProof::Kind::Running:
      return " agree" + counts;
    case StatementProof::Kind::Disagree:
      return proof.balances == 0 ? " differs by " + FixedAmountString(proof.difference)
                                 : " disagree" + counts + " from line " +
                                       std::to_string(proof.first_disagreeing_line);
  }
  return "";
}

std::string TextOfTable(const CsvReading& csv) {
  std::string text = "table '" + std::string(1, *csv.choices.delimiter) + "' columns";
  for (const CsvField field : csv.choices.columns) text += " " + std::to_string(int(field));
  if (csv.headings.empty()) text += " headless";
  if (csv.balance_order) text += csv.balance_order->is_before ? " before" : " after";
  if (csv.balance_order && csv.balance_order->is_newest_first) text += " newest first";
  text += "; lines: balance " + std::to_string(csv.balance_lines) + " continuation " +
          std::to_string(csv.continuation_lines) + " other " + std::to_string(csv.other_lines);
  if (csv.lacks_days) text += " lacks days";
  if (csv.lacks_amounts) text += " lacks amounts";
  return text + "\n";
}

}  // namespace

std::string TextOfStatement(const StatementFile& file) {
  std::string text = "encoding " + std::to_string(int(file.encoding));
  if (file.replaced_bytes > 0) text += " replaced " + std::to_string(file.replaced_bytes);
  if (file.is_cut_short) text += " cut short";
  if (file.left_out_accounts > 0) text += " left out " + std::to_string(file.left_out_accounts);
  if (!file.message.empty()) text += " says " + file.message;
  if (!ProblemOf(file).empty()) text += " problem: " + std::string(ProblemOf(file));
  text += "\n";
  if (file.csv) text += TextOfTable(*file.csv);
  for (const StatementAccount& account : file.accounts) {
    text += (account.is_card ? "card " : "account ") + account.name + " " + account.currency;
    text += TextOfBalance("opening", account.opening) + TextOfBalance("closing", account.closing);
    text += TextOfProof(account.proof);
    if (account.pending > 0) text += " pending " + std::to_string(account.pending);
    if (account.reused_identifiers > 0) {
      text += " reused " + std::to_string(account.reused_identifiers);
    }
    text += "\n";
    for (const StatementRow& row : account.rows) text += TextOfRow(row);
    const ImportHints hints = HintsFor(file, account.rows, 20240310);
    if (hints.after_today > 0) text += "  " + std::to_string(hints.after_today) + " later\n";
    for (const ImportDoubt& doubt : hints.doubts) {
      text += "  doubt " + std::to_string(doubt.count) + " " + std::string(TitleOf(doubt.kind));
      if (!doubt.rows.empty()) text += " from " + std::to_string(doubt.rows.front());
      text += "\n";
    }
  }
  for (const StatementQuestion& question : file.questions) {
    text += "question " + std::string(TextOf(question.kind)) + " " + question.sample + " (" +
            std::to_string(question.rows) + "):";
    for (const auto& each : question.candidates) {
      text += " " + std::to_string(each.value) + "=" + each.reading;
    }
    text += "\n";
  }
  return text;
}

}  // namespace tallyfold
