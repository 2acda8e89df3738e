#include "exchange/statement_reader.h"

#include <algorithm>
#include <string>

#include "exchange/csv_layout.h"
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

std::vector<ImportDoubt> DoubtsOf(const StatementAccount& account) {
  ImportDoubtCounter counter;
  std::int32_t place = 0;
  for (const StatementRow& row : account.rows) counter.Add(row.doubts, ++place);
  return counter.Told();
}

std::size_t CountUnmarked(const StatementAccount& account, UnmarkedReason reason) {
  return static_cast<std::size_t>(
      std::count_if(account.rows.begin(), account.rows.end(),
                    [reason](const StatementRow& row) { return row.unmarked == reason; }));
}

}  // namespace tallyfold
