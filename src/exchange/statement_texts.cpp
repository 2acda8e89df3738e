#include "exchange/statement_texts.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace tallyfold {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

}  // namespace

void AddText(std::string& field, std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  if (text.empty()) return;
  if (!field.empty()) field += ' ';
  if (text.find_first_of("\t\r\n") == std::string_view::npos &&
      text.find("  ") == std::string_view::npos) {
    field += text;
    return;
  }
  bool is_behind_blank = false;
  for (const char character : text) {
    const bool is_blank = kBlanks.find(character) != std::string_view::npos;
    if (!is_blank) {
      field += character;
    } else if (!is_behind_blank) {
      field += ' ';
    }
    is_behind_blank = is_blank;
  }
}

void AddNewText(std::string& field, std::string_view text) {
  // Of what many payments gave their texts to, repetitions are not looked for: that would take the
  // square of its length.
  constexpr std::size_t kLongestSearched = 1000;
  if (field.size() > kLongestSearched || field.find(text) == std::string::npos) {
    AddText(field, text);
  }
}

void TakeCheckNumber(std::string_view text, StatementRow& row) {
  if (text.empty() || text.find_first_not_of("0") == std::string_view::npos) return;
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number > 0) {
    row.check_number = number;
    return;
  }
  row.doubts.Add(ImportDoubtKind::NotedNumber);
  AddText(row.notes, text);
}

void TakeDay(DateNumber day, std::string_view text, StatementRow& row) {
  if (day != 0) {
    row.day = day;
  } else {
    row.doubts.Add(text.empty() ? ImportDoubtKind::MissingDate : ImportDoubtKind::UnreadableDate);
  }
}

std::string_view TextOf(UnmarkedReason reason) noexcept {
  switch (reason) {
    case UnmarkedReason::None:
      return "";
    case UnmarkedReason::Repeated:
      return "the file has the same row before";
    case UnmarkedReason::ForeignCurrency:
      return "in another currency than the statement";
    case UnmarkedReason::Pending:
      return "not booked yet";
  }
  return "";
}

std::string_view TextOf(StatementQuestion::Kind kind) noexcept {
  using Kind = StatementQuestion::Kind;
  switch (kind) {
    case Kind::Encoding:
      return "In which encoding are the letters right?";
    case Kind::DayOrder:
      return "In which order do day and month stand?";
    case Kind::DecimalSeparator:
      return "Which character separates the cents?";
    case Kind::ReversalSign:
      return "Does a reversal turn the sign of its amount?";
    case Kind::FeeColumn:
      return "Do the fees come off the amounts?";
    case Kind::SpendingSign:
      return "Are positive amounts money spent?";
    case Kind::AmountColumn:
      return "Which column has the amounts?";
    case Kind::DayColumn:
      return "Which column has the days?";
  }
  return "";
}

}  // namespace tallyfold
