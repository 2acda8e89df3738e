#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallyfold {

// What a column of a bank's table holds; from Payee on what is read as it stands.
enum class CsvField : std::uint8_t {
  None,       // nothing that is imported
  Day,        // when the bank booked it
  ValueDay,   // used where there is no other day
  Amount,     // with a sign
  Debit,      // money that goes out, with or without a sign
  Credit,     // money that comes in
  Mark,       // debit or credit, in words or letters, of the amount
  Fee,        // what comes off the amount, or does not
  Net,        // the amount with its fee, used in place of it
  Balance,    // of the account, before or after the row
  Payee,      // to/from
  Purpose,    // description
  Reference,  // notes
  CheckNumber,
  Type,      // the kind of payment in words
  Currency,  // of the amount
  Status,    // whether the bank has booked it
};

// By the heading of a column in English, German, French, Spanish, Italian, Dutch, Polish or
// Portuguese; case, accents, currencies and what stands in parentheses do not count. None for one
// that is not known.
[[nodiscard]] CsvField FieldOfHeading(std::string_view heading);

// The heading as it is looked up: lower case without accents, signs and currencies.
[[nodiscard]] std::string PlainHeading(std::string_view heading);

// Whether a text names a balance rather than a payment: "Opening balance", "Endsaldo 31.03."; in a
// row without a day a sum too: "Total".
[[nodiscard]] bool NamesBalance(std::string_view text, bool is_dated);
// Whether a mark says that money goes out, or comes in: "S", "Af", "DBIT", "H", "Bij".
enum class MarkMeaning : std::uint8_t { None, Debit, Credit };
[[nodiscard]] MarkMeaning MeaningOfMark(std::string_view text);
// Whether a status says that the bank has not booked a row yet: "pending", "vorgemerkt".
[[nodiscard]] bool SaysPending(std::string_view text);

}  // namespace tallyfold
