// Any bytes, read as any kind of bank's file with any choices, give rows of valid text whose
// doubts, proofs and questions hold together. The first bytes choose the reader and what it is
// told.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "exchange/camt_reader.h"
#include "exchange/csv_reader.h"
#include "exchange/ofx_reader.h"
#include "exchange/statement_reader.h"
#include "plist/utf8.h"
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

StatementFile Read(unsigned reader, std::string_view bytes, const StatementChoices& choices) {
  static const IconvEncodings encodings;
  if (reader == 0) return ReadStatementFile(bytes, encodings, choices);
  StatementFile file;
  const std::string text = plist::ToValidUtf8(bytes);
  if (reader == 1) ReadOfx(text, file);
  if (reader == 2) ReadCamt(text, choices.reversals, file);
  if (reader == 3) file.csv = ReadCsv(text, choices.csv, file);
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kChoiceBytes) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const StatementFile file = Read(ReaderFor(static_cast<unsigned char>(bytes[0])),
                                  bytes.substr(kChoiceBytes), ChoicesOf(bytes));
  for (const StatementAccount& account : file.accounts) {
    for (const StatementRow& row : account.rows) CheckRow(row);
    Check(account.proof.agreeing <= account.proof.balances);
    for (const ImportDoubt& doubt : HintsFor(file, account.rows, 20240307).doubts) {
      Check(doubt.count > 0 && doubt.rows.size() <= ImportDoubt::kMostRows);
    }
  }
  for (const StatementQuestion& question : file.questions) {
    Check(question.candidates.size() > 1 && question.rows > 0);
    Check(plist::IsValidUtf8(question.sample));
  }
  if (file.csv) {
    Check(file.csv->digest.size() == 16);
    Check(file.csv->choices.delimiter && file.csv->choices.has_heading);
    for (const auto& row : file.csv->first_rows) Check(!row.empty());
    const CsvReading& csv = *file.csv;
    const std::size_t lines = csv.balance_lines + csv.continuation_lines + csv.other_lines;
    const bool has_all = csv.lacks_days || csv.lacks_amounts ||
                         csv.left_out.size() == std::min(lines, CsvReading::kMostLeftOut);
    Check(has_all);
    for (const LeftOutLine& each : csv.left_out) {
      Check(each.line > 0 && plist::IsValidUtf8(each.text));
    }
  }
  return 0;
}
