#pragma once

#include <string>
#include <string_view>

#include "exchange/statement_file.h"

namespace tallyfold {

// How readers put single values into a row.

// Adds a text to what a field holds already, a blank between them; nothing for a blank one. White
// space in it becomes one blank each.
void AddText(std::string& field, std::string_view text);
// The same, unless the field holds the text already.
void AddNewText(std::string& field, std::string_view text);

// Puts a check number in its field; what is no number, or beyond 32 bits, goes to the notes, with
// the doubt. Nothing for a blank one and for one of zeros.
void TakeCheckNumber(std::string_view text, StatementRow& row);

// Puts a day, 0 for one that cannot be read, in its field, with the doubt.
void TakeDay(DateNumber day, std::string_view text, StatementRow& row);

}  // namespace tallyfold
