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
  const auto note = [&file](const ImportText& text) {
    file.encoding = text.encoding;
    file.replaced_bytes = text.replaced_bytes;
  };
  switch (file.content) {
    case ImportContent::Ofx:
    case ImportContent::Camt: {
      const ImportText text = ReadMarkupText(bytes, encodings);
      note(text);
      if (file.content == ImportContent::Ofx) {
        ReadOfx(text.text, file);
      } else {
        ReadCamt(text.text, choices.reversals, file);
      }
      break;
    }
    case ImportContent::Table: {
      const ImportText text = ReadTableText(bytes, choices.csv, encodings, file.questions);
      note(text);
      file.csv = ReadCsv(text.text, choices.csv, file);
      file.csv->choices.encoding = text.encoding;
      break;
    }
    default:
      break;
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
