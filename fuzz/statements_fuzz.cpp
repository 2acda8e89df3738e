// Any bytes, read as any kind of bank's file with any choices, give rows of valid text whose
// doubts, proofs and questions hold together, and a review that can be committed once the questions
// are answered. The first bytes choose the reader and what it is told.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "app/exchange/statement_import.h"
#include "benchmarks/quiet_store.h"
#include "exchange/camt_reader.h"
#include "exchange/csv_lines.h"
#include "exchange/csv_reader.h"
#include "exchange/import_content.h"
#include "exchange/ofx_reader.h"
#include "exchange/qif_review.h"
#include "exchange/statement_reader.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "plist/utf8.h"
#include "storage/account_preferences.h"
#include "storage/preferences.h"
#include "system/iconv_encodings.h"

using namespace tallyfold;  // NOLINT(google-build-using-namespace): a program of one file

namespace {

constexpr std::size_t kChoiceBytes = 4;

// By the first byte: 0 tells the kind of file by its content, 1 to 3 read OFX, CAMT and tables
// whatever it is. A program for one reader takes that.
constexpr unsigned ReaderFor([[maybe_unused]] unsigned char first) {
#ifdef TALLYFOLD_FUZZED_READER
  return TALLYFOLD_FUZZED_READER;
#else
  return first % 4U;
#endif
}

void Check(bool holds) {
  if (!holds) std::abort();
}

StatementChoices ChoicesOf(std::string_view bytes) {
  const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  constexpr char kDelimiters[] = {';', ',', '\t', '|'};
  StatementChoices choices;
  choices.reversals = static_cast<ReversalSign>(at(1) % 3);
  if ((at(1) & 8) != 0) choices.csv.delimiter = kDelimiters[at(1) / 16 % 4];
  if ((at(1) & 64) != 0) choices.csv.has_heading = (at(1) & 128) != 0;
  if ((at(2) & 1) != 0) choices.csv.day_order = kDayOrders[at(2) / 2 % 4];
  if ((at(2) & 8) != 0) choices.csv.decimal_separator = (at(2) & 16) != 0 ? ',' : '.';
  if ((at(2) & 32) != 0) choices.csv.fees_come_off = (at(2) & 64) != 0;
  if ((at(2) & 128) != 0) choices.csv.spending_is_positive = true;
  for (unsigned i = 0; i < at(3) % 8U; ++i) {
    choices.csv.columns.push_back(static_cast<CsvField>((at(3) * 7U + i * 5U) % 17U));
  }
  return choices;
}

void CheckRow(const StatementRow& row) {
  for (const std::string* each : {&row.description, &row.to_from, &row.notes, &row.type}) {
    Check(plist::IsValidUtf8(*each));
  }
  Check(row.line > 0);
  const bool has_day_doubt = row.doubts.Has(ImportDoubtKind::MissingDate) ||
                             row.doubts.Has(ImportDoubtKind::UnreadableDate);
  Check(row.day.has_value() != has_day_doubt);
  const bool has_amount_doubt = row.doubts.Has(ImportDoubtKind::MissingAmount) ||
                                row.doubts.Has(ImportDoubtKind::UnreadAmount);
  Check(row.amount.has_value() || has_amount_doubt);
}

std::size_t CountEntries(const CsvLines& lines) {
  std::size_t entries = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    entries += lines.KindAt(i) == CsvLine::Kind::Entry ? 1 : 0;
  }
  return entries;
}

// Every row is told as an entry, and read again as it was.
void CheckLines(const std::string& text, const StatementFile& file) {
  const CsvLines lines(text, file);
  std::size_t left_out = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    left_out += lines.KindAt(i) == CsvLine::Kind::LeftOut ? 1 : 0;
    if (i < CsvReading::kMostLeftOut) Check(!lines.At(i).cells.empty());
  }
  const CsvReading& csv = *file.csv;
  if (csv.lacks_days || csv.lacks_amounts) return;
  Check(CountEntries(lines) == file.accounts.front().rows.size());
  Check(left_out == csv.balance_lines + csv.continuation_lines + csv.other_lines);
}

const IconvEncodings& Encodings() {
  static const IconvEncodings encodings;
  return encodings;
}

StatementFile Read(unsigned reader, std::string_view bytes, const StatementChoices& choices) {
  if (reader == 0) return ReadStatementFile(bytes, Encodings(), choices);
  StatementFile file;
  const std::string text = plist::ToValidUtf8(bytes);
  if (reader == 1) ReadOfx(text, file);
  if (reader == 2) ReadCamt(text, choices.reversals, file);
  if (reader == 3) {
    file.csv = ReadCsv(text, choices.csv, file);
    CheckLines(text, file);
  }
  return file;
}

void CheckFile(const StatementFile& file) {
  for (const StatementAccount& account : file.accounts) {
    for (const StatementRow& row : account.rows) CheckRow(row);
    const StatementProof& proof = account.proof;
    Check(proof.agreeing + proof.disagreeing.size() == proof.balances);
    Check(proof.disagreeing.empty() || proof.disagreeing.back() < account.rows.size());
    for (const ImportDoubt& doubt : HintsFor(file, account.rows, 20240307).doubts) {
      Check(doubt.count > 0 && doubt.rows.size() <= ImportDoubt::kMostRows);
    }
  }
  for (const StatementQuestion& question : file.questions) {
    Check(question.candidates.size() > 1 && question.rows > 0);
    Check(plist::IsValidUtf8(question.sample));
  }
}

void CheckTable(const CsvReading& csv) {
  Check(csv.digest.size() == 16);
  Check(csv.choices.delimiter && csv.choices.has_heading);
  const std::size_t lines = csv.balance_lines + csv.continuation_lines + csv.other_lines;
  const bool has_all = csv.lacks_days || csv.lacks_amounts ||
                       csv.left_out.size() == std::min(lines, CsvReading::kMostLeftOut);
  Check(has_all);
  for (const LeftOutLine& each : csv.left_out) {
    Check(each.line > 0 && plist::IsValidUtf8(each.text));
  }
}

// --- From the options sheet to the commit -------------------------------------------------------

// Each answer settles its question, though another may come up; which candidate is taken is chosen
// by `answer`.
void AnswerAll(StatementImport& import, const LDGRAccount& account, const TableFormat& format,
               unsigned answer) {
  constexpr int kMostAnswers = 20;
  import.Show(account, format);
  for (int i = 0; i < kMostAnswers && !import.State().questions.empty(); ++i) {
    const StatementQuestion& asked = import.State().questions.front();
    const StatementQuestion::Kind kind = asked.kind;
    import.Answer(0, answer % asked.candidates.size());
    import.Show(account, format);
    for (const StatementQuestion& each : import.State().questions) Check(each.kind != kind);
  }
  Check(import.State().questions.empty());
}

void Commit(QifReview& review, const std::shared_ptr<LDGRAccount>& account) {
  const std::size_t before = account->GetEntries().size();
  for (const auto& entry : review.entries()) {
    if (!entry->GetImport()) static_cast<void>(review.Match(entry));
  }
  const std::size_t marked = review.MarkedCount();
  benchmarks::QuietStore store;
  Ledger ledger(*store);
  Change change(ledger, "Import", account);
  review.Commit(change, account, false);
  change.Close();
  Check(account->GetEntries().size() == before + marked);
}

void GoWholeWay(std::string_view bytes, std::string_view file) {
  const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const auto contents = [file] {
    auto copy = std::make_unique<char[]>(file.size());
    std::copy(file.begin(), file.end(), copy.get());
    return FileContents(std::move(copy), file.size());
  };
  LDGRPreferences preferences;
  LDGRAccountPreferences remembered;
  const TableFormat format{"%Y-%m-%d", preferences};
  const auto account = std::make_shared<LDGRAccount>();

  StatementImport import(contents(), Encodings(), remembered);
  AnswerAll(import, *account, format, at(1));
  QifReview first(import.Entries(*account), *account);
  Commit(first, account);
  // What came in is known when it comes again.
  Check(QifReview(import.Entries(*account), *account).MarkedCount() == 0);

  StatementOptionsState::Typed typed = import.State().typed;
  typed.choices = ChoicesOf(bytes);
  typed.suggests_types = (at(3) & 8) != 0;
  typed.account = at(3) / 16;
  import.Read(typed);
  import.Show(*account, format);
  const std::size_t columns = import.State().columns.size();
  for (std::size_t i = 0; i < columns && i < 2; ++i) {
    typed = import.State().typed;
    ChooseColumn(typed, import.State(), (at(2) + i) % columns,
                 static_cast<CsvField>((at(3) + i * 3) % 17));
    import.Read(typed);
    import.Show(*account, format);
  }
  AnswerAll(import, *account, format, at(2));
  if (import.State().content == ImportContent::Table && import.State().problem.empty()) {
    Check(CountEntries(import.Lines()) == import.State().file_entry_count);
  }
  import.Remember(remembered);
  QifReview second(import.Entries(*account), *account);
  Check(second.entries().size() == import.State().entry_count);
  Commit(second, account);

  StatementImport again(contents(), Encodings(), remembered);
  again.Show(*account, format);
  // Every row is there already, is marked and unmarked, or goes.
  QifReview third(again.Entries(*account), *account);
  third.MarkAll();
  third.ToggleAll();
  if (!third.entries().empty()) third.Remove({third.entries().back()});
  Commit(third, account);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kChoiceBytes) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::string_view text = bytes.substr(kChoiceBytes);
  const unsigned reader = ReaderFor(static_cast<unsigned char>(bytes[0]));
  const StatementFile file = Read(reader, text, ChoicesOf(bytes));
  CheckFile(file);
  if (file.csv) CheckTable(*file.csv);
  // What the readers are given here whatever it is, the program takes by its content.
  constexpr ImportContent kContents[] = {ImportContent::Empty, ImportContent::Ofx,
                                         ImportContent::Camt, ImportContent::Table};
  const ImportContent content = ContentOf(text);
  const bool is_statement =
      std::find(std::begin(kContents) + 1, std::end(kContents), content) != std::end(kContents);
  if (is_statement && (reader == 0 || content == kContents[reader])) GoWholeWay(bytes, text);
  return 0;
}
