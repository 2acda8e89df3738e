#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/csv_choices.h"
#include "exchange/import_content.h"
#include "exchange/import_hints.h"
#include "exchange/unmarked_reason.h"
#include "model/date_number.h"
#include "platform/text_encodings.h"

namespace tallyfold {

// What the readers of banks' files hand to the review: accounts with rows, what of them is doubtful
// or proven, and the questions that only the user can answer. It is the same for every kind of
// file; nothing of an account of ours has been looked at yet.

struct StatementRow {
  StatementRow() noexcept;

  // None for a day that is missing or cannot be read, which `doubts` tells apart.
  std::optional<DateNumber> day;
  // Positive for money that comes in. None as for the day.
  std::optional<double> amount;
  std::string description;  // what the payment is for
  std::string to_from;      // who pays, or is paid
  std::string notes;        // references, and what has no field of its own
  std::optional<std::int32_t> check_number;
  // The file's own word for the kind of payment; "" for none.
  std::string type;
  // The bank has booked it.
  bool is_cleared = true;
  UnmarkedReason unmarked = UnmarkedReason::None;
  ImportDoubtSet doubts;
  // Where it begins in the file, from 1 on.
  std::size_t line = 0;
};

// Not defaulted within: emplace_back() would fill the whole row with zeros before.
inline StatementRow::StatementRow() noexcept = default;

struct StatementBalance {
  double amount = 0.0;
  std::optional<DateNumber> day;
};

// How far the balances that a file has bear out how its rows were read.
struct StatementProof {
  enum class Kind : std::uint8_t {
    None,      // the file has no balances, or too few
    Closing,   // the opening balance and the rows give the closing one
    Running,   // a balance on each row
    Disagree,  // balances of either kind do not come out
  };
  Kind kind = Kind::None;
  // Of the balances on rows, and how many of them agree with their neighbours.
  std::size_t balances = 0;
  std::size_t agreeing = 0;
  // The rows of the others, from 0 on.
  std::vector<std::size_t> disagreeing;
  // The line of the first that does not; 0 for none.
  std::size_t first_disagreeing_line = 0;
  // What the closing balance exceeds the opening one and the rows by.
  double difference = 0.0;
};

struct StatementAccount {
  std::string name;      // the number or name that the file has for it; "" for none
  std::string currency;  // "" for none
  bool is_card = false;
  std::vector<StatementRow> rows;  // in the order of the file
  std::optional<StatementBalance> opening;
  // On cards what is owed is negative, as it is on the account.
  std::optional<StatementBalance> closing;
  StatementProof proof;
  // Entries that the bank has not booked yet and that are left out.
  std::size_t pending = 0;
  // Rows whose identifier an earlier, different row has.
  std::size_t reused_identifiers = 0;
};

// What nothing in the file proves and the user has to say. Until then the first candidate holds.
struct StatementQuestion {
  enum class Kind : std::uint8_t {
    Encoding,          // candidates: titles and the sample decoded
    DayOrder,          // of days such as 03/04/2024
    DecimalSeparator,  // of amounts such as 29.000
    ReversalSign,      // whether a reversal turns the sign of its row
    FeeColumn,         // whether a fee comes off the amount
    SpendingSign,      // whether positive amounts are money spent
    AmountColumn,      // which column has the amounts
  };
  Kind kind = Kind::DayOrder;
  // What can be chosen: the number of the choice (a DayOrder, a TextEncoding, a character, a
  // column, a ReversalSign, 0 or 1) and the sample as it would be read.
  struct Candidate {
    std::int64_t value = 0;
    std::string reading;
  };
  std::vector<Candidate> candidates;  // two or more
  // As the file has it, from the first row concerned, and how many are.
  std::string sample;
  std::size_t rows = 0;
};

// The English key of what a question asks.
[[nodiscard]] std::string_view TextOf(StatementQuestion::Kind kind) noexcept;

struct StatementFile {
  ImportContent content = ImportContent::Empty;
  // None of it is there with a content that cannot be read.
  std::vector<StatementAccount> accounts;
  std::vector<StatementQuestion> questions;
  TextEncoding encoding = TextEncoding::Utf8;
  std::size_t replaced_bytes = 0;
  // The file ends in the middle of a record, which is left out.
  bool is_cut_short = false;
  // What the file itself says went wrong, or ""; of statements that were asked for over a network.
  std::string message;
  // Accounts of shares and their like, which hold nothing that can be imported.
  std::size_t left_out_accounts = 0;
  // Of a table alone.
  std::optional<CsvReading> csv;
};

}  // namespace tallyfold
