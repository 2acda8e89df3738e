#include "exchange/statement_reader.h"

#include <algorithm>
#include <optional>
#include <string>

#include "exchange/csv_encoding.h"
#include "exchange/csv_reader.h"
#include "exchange/markup_text.h"
#include "exchange/ofx_reader.h"

namespace tallyfold {

StatementFile ReadStatementFile(std::string_view bytes, const TextEncodings& encodings,
                                const StatementChoices& choices) {
  StatementFile file;
  file.content = ContentOf(bytes);
  if (!RefusalOf(file.content).empty() || file.content == ImportContent::Qif) return file;

  const bool is_table = file.content == ImportContent::Table;
  const auto chosen = is_table ? choices.csv.encoding : std::nullopt;
  const auto utf8 =
      chosen.value_or(TextEncoding::Utf8) == TextEncoding::Utf8 ? Utf8Bytes(bytes) : std::nullopt;
  ImportText decoded;
  if (!utf8) {
    decoded = is_table ? ReadTableText(bytes, choices.csv, encodings, file.questions)
                       : ReadMarkupText(bytes, encodings);
  }
  const std::string_view text = utf8 ? *utf8 : decoded.text;
  file.encoding = decoded.encoding;
  file.replaced_bytes = decoded.replaced_bytes;
  if (is_table) {
    file.csv = ReadCsv(text, choices.csv, file);
    file.csv->choices.encoding = file.encoding;
  } else if (file.content == ImportContent::Ofx) {
    ReadOfx(text, file);
  } else {
    ReadCamt(text, choices.reversals, file);
  }
  return file;
}

std::string_view ProblemOf(const StatementFile& file) noexcept {
  if (const std::string_view refusal = RefusalOf(file.content); !refusal.empty()) return refusal;
  if (file.csv && file.csv->lacks_days) {
    return "no column of the table has days; choose the one that should, or another download";
  }
  if (file.csv && file.csv->lacks_amounts) {
    return "no column of the table has amounts; choose the one that should, or another download";
  }
  const bool is_statement =
      file.content == ImportContent::Ofx || file.content == ImportContent::Camt;
  if (is_statement && file.accounts.empty()) {
    if (file.left_out_accounts > 0) {
      return "the file has statements of shares or their like alone, which cannot be imported; "
             "choose another account for the download";
    }
    return "the file has no statement of an account; download it again";
  }
  return "";
}

ImportHints HintsFor(const StatementFile& file, const std::vector<StatementRow>& rows,
                     DateNumber today) {
  ImportHints hints;
  ImportDoubtCounter counter;
  std::int32_t place = 0;
  for (const StatementRow& row : rows) {
    counter.Add(row.doubts, ++place);
    if (!row.day) continue;
    hints.first_date = std::min(hints.first_date.value_or(*row.day), *row.day);
    hints.last_date = std::max(hints.last_date.value_or(*row.day), *row.day);
    if (*row.day > today) ++hints.after_today;
  }
  if (file.replaced_bytes > 0) counter.Add(ImportDoubtKind::ReplacedBytes, file.replaced_bytes);
  if (file.left_out_accounts > 0) {
    counter.Add(ImportDoubtKind::LeftOutAccount, file.left_out_accounts);
  }
  hints.doubts = counter.Told();
  return hints;
}

std::size_t CountUnmarked(const std::vector<StatementRow>& rows, UnmarkedReason reason) {
  return static_cast<std::size_t>(
      std::count_if(rows.begin(), rows.end(),
                    [reason](const StatementRow& row) { return row.unmarked == reason; }));
}

}  // namespace tallyfold
