#pragma once

#include <string_view>
#include <vector>

#include "exchange/csv_choices.h"
#include "exchange/import_text.h"
#include "exchange/statement_file.h"

namespace tallyfold {

class TextEncodings;

// The text of a table that is no UTF-8, or for which an encoding is chosen. UTF-16 shows what it
// is; of the encodings of bytes the one whose headings are known, else a question is asked and
// Windows-1252 holds, or Windows-1251 where most letters are beyond ASCII.
[[nodiscard]] ImportText ReadTableText(std::string_view bytes, const CsvChoices& choices,
                                       const TextEncodings& encodings,
                                       std::vector<StatementQuestion>& questions);

}  // namespace tallyfold
