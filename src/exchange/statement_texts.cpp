#include "exchange/statement_texts.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "exchange/ascii.h"
#include "exchange/csv_choices.h"
#include "exchange/statement_file.h"
#include "exchange/unmarked_reason.h"

namespace tallyfold {
namespace {

// One blank at a time, and none around: the text can be taken as it is.
bool IsTidy(std::string_view text) noexcept {
  if (text.empty() || IsAsciiSpace(text.front()) || IsAsciiSpace(text.back())) return false;
  // Eight bytes at a time, the last of which is looked at again as the first of the next. What
  // seems untidy and is not costs time alone.
  constexpr std::uint64_t kSpaces = 0x2020202020202020U;
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  constexpr std::uint64_t kHighBits = 0x8080808080808080U;
  std::size_t place = 0;
  for (; place + 8 <= text.size(); place += 7) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + place, sizeof word);
    const std::uint64_t blanks = ((word ^ kSpaces) - kOnes) & ~(word ^ kSpaces) & kHighBits;
    const std::uint64_t controls = (word - kSpaces) & ~word & kHighBits;
    if (controls != 0 || (blanks & (blanks >> 8U)) != 0) return false;
  }
  for (; place + 1 < text.size(); ++place) {
    if (IsAsciiSpace(text[place]) && (text[place] != ' ' || IsAsciiSpace(text[place + 1])))
      return false;
  }
  return true;
}

}  // namespace

void AddText(std::string& field, std::string_view text) {
  if (IsTidy(text)) {
    if (field.empty() && text.size() > field.capacity()) {
      field = std::string(text);  // of its size, where assign() allocates more
    } else if (field.empty()) {
      field.assign(text);
    } else {
      (field += ' ') += text;
    }
    return;
  }
  bool is_apart = !field.empty();
  for (const char character : text) {
    if (IsAsciiSpace(character)) {
      is_apart = !field.empty();
      continue;
    }
    if (is_apart) field += ' ';
    is_apart = false;
    field += character;
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

std::string_view TextOf(LeftOutLine::Reason reason) noexcept {
  switch (reason) {
    case LeftOutLine::Reason::Before:
      return "before the first entry";
    case LeftOutLine::Reason::Behind:
      return "behind the last entry";
    case LeftOutLine::Reason::Balance:
      return "names a balance or a sum";
    case LeftOutLine::Reason::Continued:
      return "added to the entry above";
    case LeftOutLine::Reason::Unread:
      return "neither day nor amount can be read";
    case LeftOutLine::Reason::Bare:
      return "has neither day nor amount";
  }
  return "";
}

std::string_view TextOf(StatementQuestion::Kind kind) noexcept {
  using Asked = StatementQuestion::Kind;
  switch (kind) {
    case Asked::Encoding:
      return "In which encoding are the letters right?";
    case Asked::DayOrder:
      return "In which order do day and month stand?";
    case Asked::DecimalSeparator:
      return "Which character separates the cents?";
    case Asked::ReversalSign:
      return "Does a reversal turn the sign of its amount?";
    case Asked::FeeColumn:
      return "Do the fees come off the amounts?";
    case Asked::SpendingSign:
      return "Are positive amounts money spent?";
    case Asked::AmountColumn:
      return "Which column has the amounts?";
  }
  return "";
}

}  // namespace tallyfold
