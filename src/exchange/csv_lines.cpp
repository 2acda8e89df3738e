#include "exchange/csv_lines.h"

#include <utility>

#include "exchange/csv_encoding.h"
#include "exchange/csv_layout.h"
#include "exchange/import_text.h"
#include "exchange/table_reader.h"

namespace tallyfold {
CsvLines::CsvLines(std::string text, const StatementFile& file) : text_(std::move(text)) {
  if (!file.csv || file.accounts.empty()) return;
  const CsvReading& reading = *file.csv;
  delimiter_ = reading.choices.delimiter.value_or(delimiter_);
  const bool is_read = !reading.lacks_days && !reading.lacks_amounts;
  const auto& rows = file.accounts.front().rows;
  auto entry = rows.begin();
  auto left_out = reading.left_out.begin();
  TableScanner scanner(text_, delimiter_, text_.size() - TableBody(text_).size());
  for (TableRow row; scanner.Next(row);) {
    Place& place = places_.emplace_back();
    place.byte = row.Place();
    place.line = row.Line();
    if (place.line == reading.heading_line) {
      place.kind = CsvLine::Kind::Heading;
    } else if (entry != rows.end() && entry->line == place.line) {
      place.kind = CsvLine::Kind::Entry;
      ++entry;
    } else if (is_read) {
      place.kind = CsvLine::Kind::LeftOut;
      if (left_out != reading.left_out.end() && left_out->line == place.line) {
        place.reason = (left_out++)->reason;
      }
    }
  }
}

CsvLine CsvLines::At(std::size_t index) const {
  const Place& place = places_[index];
  CsvLine line{place.kind, place.line, place.reason, {}};
  TableRow row;
  if (!TableScanner(text_, delimiter_, place.byte).Next(row)) return line;
  line.cells.reserve(row.size());
  for (std::size_t i = 0; i < row.size(); ++i) line.cells.emplace_back(row.Cell(i));
  return line;
}

CsvLines LinesOf(std::string_view bytes, const StatementFile& file,
                 const TextEncodings& encodings) {
  if (!file.csv) return {};
  if (file.encoding == TextEncoding::Utf8) {
    if (const auto utf8 = Utf8Bytes(bytes)) return {std::string(*utf8), file};
  }
  std::vector<StatementQuestion> answered;
  return {ReadTableText(bytes, file.csv->choices, encodings, answered).text, file};
}

}  // namespace tallyfold
