#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"
#include "platform/text_encodings.h"

namespace tallyfold {

// A line of a table, or the lines of a row that has line ends in its cells.
struct CsvLine {
  enum class Kind : std::uint8_t {
    Undecided,  // nothing can come of the table as it is read
    Heading,
    Entry,
    LeftOut,
  };
  Kind kind = Kind::Undecided;
  std::size_t line = 0;  // from 1 on
  // Why it is left out, where that was noted; see CsvReading::left_out.
  std::optional<LeftOutLine::Reason> reason;
  std::vector<std::string> cells;  // as the file has them
};

// The lines of a table as the file has them, beside what became of each: for whoever shows a
// reading. Keeps the text; cells are read when they are asked for.
class CsvLines {
 public:
  CsvLines() = default;
  // Of the text that ReadCsv() made `file` from; none for what is no table. Linear.
  CsvLines(std::string text, const StatementFile& file);

  // Without lines that have no text.
  [[nodiscard]] std::size_t size() const noexcept { return places_.size(); }
  // `index` must be below size().
  [[nodiscard]] CsvLine At(std::size_t index) const;
  // What At() says of it, without its cells.
  [[nodiscard]] CsvLine::Kind KindAt(std::size_t index) const noexcept {
    return places_[index].kind;
  }

 private:
  struct Place {
    std::size_t byte = 0;
    std::size_t line = 0;
    CsvLine::Kind kind = CsvLine::Kind::Undecided;
    std::optional<LeftOutLine::Reason> reason;
  };

  std::string text_;
  char delimiter_ = ';';
  std::vector<Place> places_;  // in the order of the file
};

// Of the bytes of a file that has been read.
[[nodiscard]] CsvLines LinesOf(std::string_view bytes, const StatementFile& file,
                               const TextEncodings& encodings);

}  // namespace tallyfold
