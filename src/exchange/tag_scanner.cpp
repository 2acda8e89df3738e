#include "exchange/tag_scanner.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>

#include "exchange/ascii.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMarkupBlanks = " \t\r\n";

bool BeginsName(char character) noexcept {
  const auto byte = static_cast<unsigned char>(character);
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '_' ||
         byte >= 0x80;
}

bool IsInName(char character) noexcept {
  return BeginsName(character) || (character >= '0' && character <= '9') || character == '.' ||
         character == '-' || character == ':';
}

// Eight bytes at a time.
std::size_t CountLineFeeds(const char* begin, const char* end) noexcept {
  constexpr std::uint64_t kLineFeeds = 0x0A0A0A0A0A0A0A0AU;
  constexpr std::uint64_t kLowBits = 0x7F7F7F7F7F7F7F7FU;
  std::size_t count = 0;
  for (; end - begin >= 8; begin += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, begin, sizeof word);
    word ^= kLineFeeds;
    const std::uint64_t others = ((word & kLowBits) + kLowBits) | word | kLowBits;
    count += static_cast<std::size_t>(std::popcount(~others));
  }
  return count + static_cast<std::size_t>(std::count(begin, end, '\n'));
}

// Between "&" and ";".
std::optional<char32_t> CharacterOf(std::string_view entity) noexcept {
  struct Named {
    std::string_view name;
    char32_t character;
  };
  constexpr Named kNamed[] = {{"amp", U'&'},  {"lt", U'<'},    {"gt", U'>'},
                              {"quot", U'"'}, {"apos", U'\''}, {"nbsp", U' '}};
  for (const Named& each : kNamed) {
    if (entity == each.name) return each.character;
  }
  if (!entity.starts_with('#')) return std::nullopt;
  entity.remove_prefix(1);
  const bool is_hexadecimal = entity.starts_with('x') || entity.starts_with('X');
  if (is_hexadecimal) entity.remove_prefix(1);
  std::uint32_t number = 0;
  const char* const end = entity.data() + entity.size();
  const auto read = std::from_chars(entity.data(), end, number, is_hexadecimal ? 16 : 10);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  const bool is_surrogate = number >= 0xD800 && number <= 0xDFFF;
  if (number == 0 || number > 0x10FFFF || is_surrogate) return std::nullopt;
  return static_cast<char32_t>(number);
}

}  // namespace

std::string WithEntitiesResolved(std::string_view text) {
  constexpr std::size_t kLongestEntity = 10;
  std::string resolved;
  resolved.reserve(text.size());
  for (;;) {
    const std::size_t found = std::min(text.find('&'), text.size());
    resolved += text.substr(0, found);
    text.remove_prefix(found);
    if (text.empty()) return resolved;
    const std::size_t end = text.substr(0, kLongestEntity).find(';');
    const auto character =
        end == std::string_view::npos ? std::nullopt : CharacterOf(text.substr(1, end - 1));
    if (character) {
      plist::AppendUtf8(resolved, *character);
      text.remove_prefix(end + 1);
    } else {
      resolved += '&';
      text.remove_prefix(1);
    }
  }
}

TagScanner::Event TagScanner::Next() {
  if (drops_top_) {
    drops_top_ = false;
    --depth_;
    is_leaf_ = false;
    ClearText();
  }
  if (ends_left_ > 0) return EndOne();
  if (pending_piece_ == Piece::None) {
    while (place_ < document_.size()) {
      const std::size_t tag = std::min(document_.find('<', place_), document_.size());
      AddText(document_.substr(place_, tag - place_));
      place_ = tag;
      if (place_ == document_.size()) break;
      pending_piece_ = ReadMarkup();
      if (pending_piece_ != Piece::None) break;
    }
  }
  switch (pending_piece_) {
    case Piece::Opening:
    case Piece::Empty:
      return Begin();
    case Piece::Closing:
      pending_piece_ = Piece::None;
      return EndOne();
    case Piece::None:
      break;
  }
  is_at_end_ = true;
  too_deep_ = 0;
  if (depth_ == 0) return Event::Finished;
  ends_left_ = depth_;
  return EndOne();
}

TagScanner::Event TagScanner::EndOne() noexcept {
  --ends_left_;
  drops_top_ = true;
  return Event::End;
}

TagScanner::Event TagScanner::Begin() {
  if (is_leaf_ && depth_ > 0 && HasText()) {
    ends_left_ = 1;
    return EndOne();
  }
  if (nesting_ == Nesting::NeverInItself) {
    std::size_t level = depth_;
    while (level > 0 && stack_[level - 1].name != pending_.name) --level;
    if (level > 0) {
      ends_left_ = depth_ - level + 1;
      return EndOne();
    }
  }
  const bool is_empty = pending_piece_ == Piece::Empty;
  pending_piece_ = Piece::None;
  ClearText();
  stack_[depth_++] = pending_;
  is_leaf_ = true;
  if (is_empty) ends_left_ = 1;
  return Event::Begin;
}

// "<" lies ahead. A closing tag of nothing that is open is none.
TagScanner::Piece TagScanner::ReadMarkup() {
  const std::string_view rest = document_.substr(place_);
  if (rest.starts_with("<![CDATA[")) {
    AddCharacterData();
    return Piece::None;
  }
  if (rest.starts_with("<!--")) {
    SkipPast("-->");
    return Piece::None;
  }
  if (rest.starts_with("<!") || rest.starts_with("<?")) {
    SkipPast(">");
    return Piece::None;
  }
  return ReadTag();
}

TagScanner::Piece TagScanner::ReadTag() {
  std::size_t place = place_ + 1;
  const bool is_closing = place < document_.size() && document_[place] == '/';
  if (is_closing) ++place;
  const std::size_t name_start = place;
  while (place < document_.size() && IsInName(document_[place])) ++place;
  std::string_view name = document_.substr(name_start, place - name_start);
  if (name.empty() || !BeginsName(name.front())) {
    AddText(document_.substr(place_, 1));
    ++place_;
    return Piece::None;
  }
  const std::size_t attributes_start = place;
  char quote = '\0';
  for (; place < document_.size(); ++place) {
    const char character = document_[place];
    if (character == '<' || (character == '>' && quote == '\0')) break;
    if (quote != '\0') {
      if (character == quote) quote = '\0';
    } else if ((character == '"' || character == '\'') && document_[place - 1] == '=') {
      quote = character;
    }
  }
  tag_place_ = place_;
  std::string_view attributes = document_.substr(attributes_start, place - attributes_start);
  // A tag that another one interrupts ends there.
  place_ = place < document_.size() && document_[place] == '>' ? place + 1 : place;
  name.remove_prefix(name.rfind(':') + 1);

  if (is_closing) {
    if (too_deep_ > 0) {
      --too_deep_;
      return Piece::None;
    }
    std::size_t level = depth_;
    while (level > 0 && stack_[level - 1].name != name) --level;
    ends_left_ = level == 0 ? 0 : depth_ - level + 1;
    if (level == 0 && is_leaf_ && HasText()) ends_left_ = 1;
    return ends_left_ == 0 ? Piece::None : Piece::Closing;
  }
  const bool is_empty = attributes.ends_with('/');
  if (is_empty) attributes.remove_suffix(1);
  // One that has text will have ended before this one begins.
  const std::size_t depth = depth_ - (is_leaf_ && depth_ > 0 && HasText() ? 1 : 0);
  if (too_deep_ > 0 || depth == kMostDepth) {
    if (!is_empty) ++too_deep_;
    return Piece::None;
  }
  pending_ = {name, attributes};
  return is_empty ? Piece::Empty : Piece::Opening;
}

void TagScanner::SkipPast(std::string_view end) noexcept {
  const std::size_t found = document_.find(end, place_);
  place_ = found == std::string_view::npos ? document_.size() : found + end.size();
}

void TagScanner::AddCharacterData() {
  constexpr std::string_view kStart = "<![CDATA[";
  constexpr std::string_view kEnd = "]]>";
  const std::size_t start = place_ + kStart.size();
  const std::size_t end = std::min(document_.find(kEnd, start), document_.size());
  place_ = std::min(end + kEnd.size(), document_.size());
  if (too_deep_ > 0) return;
  if (!is_gathered_) gathered_ = WithEntitiesResolved(text_);
  gathered_ += document_.substr(start, end - start);
  is_gathered_ = true;
}

void TagScanner::AddText(std::string_view piece) {
  if (piece.empty() || too_deep_ > 0) return;
  if (is_gathered_) {
    gathered_ += WithEntitiesResolved(piece);
  } else if (text_.empty()) {
    text_ = piece;
  } else if (text_.data() + text_.size() == piece.data()) {
    text_ = {text_.data(), text_.size() + piece.size()};
  } else {
    gathered_ = WithEntitiesResolved(text_) + WithEntitiesResolved(piece);
    is_gathered_ = true;
  }
}

void TagScanner::ClearText() noexcept {
  text_ = {};
  gathered_.clear();
  is_gathered_ = false;
}

bool TagScanner::HasText() const noexcept {
  const std::string_view text = is_gathered_ ? std::string_view(gathered_) : text_;
  return !std::all_of(text.begin(), text.end(), IsAsciiSpace);
}

std::string_view TagScanner::Text() {
  if (!is_leaf_) return {};
  if (is_gathered_) return WithoutSpaces(gathered_);
  const std::string_view trimmed = WithoutSpaces(text_);
  if (trimmed.find('&') == std::string_view::npos) return trimmed;
  resolved_ = WithEntitiesResolved(trimmed);
  return WithoutSpaces(resolved_);
}

std::string_view TagScanner::Attribute(std::string_view name) const noexcept {
  std::string_view rest = stack_[depth_ - 1].attributes;
  while (!rest.empty()) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kMarkupBlanks), rest.size()));
    const std::size_t equals = rest.find('=');
    if (equals == std::string_view::npos) return {};
    std::string_view key = WithoutSpaces(rest.substr(0, equals));
    key.remove_prefix(key.rfind(':') + 1);
    rest.remove_prefix(equals + 1);
    rest.remove_prefix(std::min(rest.find_first_not_of(kMarkupBlanks), rest.size()));
    std::size_t start = 0;
    std::size_t end = std::min(rest.find_first_of(kMarkupBlanks), rest.size());
    if (rest.starts_with('"') || rest.starts_with('\'')) {
      start = 1;
      end = std::min(rest.find(rest.front(), 1), rest.size());
    }
    if (key == name) return rest.substr(start, end - start);
    rest.remove_prefix(std::min(end + start, rest.size()));
  }
  return {};
}

std::size_t TagScanner::Line() noexcept {
  if (counted_place_ > tag_place_) return counted_lines_;
  const char* const begin = document_.data();
  counted_lines_ += CountLineFeeds(begin + counted_place_, begin + tag_place_);
  counted_place_ = tag_place_;
  return counted_lines_;
}

}  // namespace tallyfold
