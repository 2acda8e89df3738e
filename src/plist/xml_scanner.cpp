#include "plist/xml_scanner.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "plist/utf8.h"

namespace tallyfold::plist {
namespace {

bool IsNameCharacter(char c) noexcept {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '-' || c == '.' || c == ':' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// A piece of the document fit for a message.
std::string Shortened(std::string_view text) {
  constexpr std::size_t kMaximumLength = 40;
  if (text.size() <= kMaximumLength) return std::string(text);
  return std::string(text.substr(0, ValidUtf8Prefix(text.substr(0, kMaximumLength)))) + "...";
}

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// The character of a reference's inside, such as "amp", "#13" or "#x1F".
char32_t ReferredCharacter(std::string_view name) noexcept {
  constexpr std::pair<std::string_view, char32_t> kNamed[] = {
      {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [entity, character] : kNamed) {
    if (name == entity) return character;
  }
  if (!name.starts_with('#')) return kNoCharacter;
  name.remove_prefix(1);
  int base = 10;
  if (name.starts_with('x')) {
    base = 16;
    name.remove_prefix(1);
  }
  std::uint32_t number = 0;
  const char* last = name.data() + name.size();
  const auto [end, error] = std::from_chars(name.data(), last, number, base);
  const bool is_character = number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
  return error == std::errc() && end == last && is_character ? char32_t{number} : kNoCharacter;
}

}  // namespace

bool XmlScanner::Fail(std::string_view message, const char* where,
                      std::vector<std::string> details) {
  failure_ = {message, static_cast<std::size_t>(where - begin_), std::move(details)};
  return false;
}

bool XmlScanner::SkipPast(std::string_view end_mark, std::string_view message) {
  const char* found = std::search(cursor_, end_, end_mark.begin(), end_mark.end());
  if (found == end_) return Fail(message);
  cursor_ = found + end_mark.size();
  return true;
}

bool XmlScanner::SkipMisc(bool instructions) {
  for (;;) {
    SkipWhiteSpace();
    if (Skip("<!--")) {
      if (!SkipPast("-->", "unfinished comment")) return false;
    } else if (instructions && Skip("<?")) {
      if (!SkipPast("?>", "unfinished processing instruction")) return false;
    } else {
      return true;
    }
  }
}

bool XmlScanner::SkipToTagSlowly() {
  if (!SkipMisc(true)) return false;
  if (IsAtEnd()) return Fail("the file ends before its last element does");
  if (*cursor_ != '<') return Fail("text outside a value");
  if (end_ - cursor_ < 2) return Fail("the file ends within a tag");
  return true;
}

bool XmlScanner::SkipDocumentType() {
  const char* start = cursor_;
  while (!IsAtEnd()) {
    const char c = *cursor_++;
    if (c == '>') return true;
    if (c == '[') return Fail("a document type with declarations of its own");
    if (c == '"' || c == '\'') {
      cursor_ = std::find(cursor_, end_, c);
      if (!IsAtEnd()) ++cursor_;
    }
  }
  return Fail("unfinished document type", start);
}

std::string_view XmlScanner::ReadName() noexcept {
  const char* start = cursor_;
  cursor_ = std::find_if_not(cursor_, end_, IsNameCharacter);
  return {start, static_cast<std::size_t>(cursor_ - start)};
}

bool XmlScanner::SkipAttribute() {
  const char* start = cursor_;
  const bool has_name = !ReadName().empty();
  SkipWhiteSpace();
  if (!has_name || !Skip("=")) return Fail("a tag that is not well formed", start);
  SkipWhiteSpace();
  const char quote = IsAtEnd() ? '\0' : *cursor_;
  if (quote != '"' && quote != '\'') return Fail("an attribute without quotes", start);
  const char* stop =
      std::find_if(cursor_ + 1, end_, [quote](char c) { return c == quote || c == '<'; });
  if (stop == end_ || *stop == '<') return Fail("an unfinished attribute", start);
  cursor_ = stop + 1;
  return true;
}

bool XmlScanner::ReadOpeningTag(Tag& tag) {
  const char* start = cursor_;
  if (!Skip("<")) return Fail("text outside a value");
  tag.name = ReadName();
  if (tag.name.empty()) {
    if (IsAt(start, "</")) return Fail("a closing tag where a value is expected", start);
    if (IsAt(start, "<!ENTITY")) return Fail("an entity declaration", start);
    return Fail("an element is expected", start);
  }
  for (;;) {
    SkipWhiteSpace();
    if (Skip(">")) {
      tag.is_empty = false;
      return true;
    }
    if (Skip("/>")) {
      tag.is_empty = true;
      return true;
    }
    if (IsAtEnd()) return Fail("the file ends within a tag", start);
    if (!SkipAttribute()) return false;
  }
}

bool XmlScanner::ReadClosingTagSlowly(std::string_view name) {
  const char* start = cursor_;
  const bool is_closing = Skip("</");
  const std::string_view found = ReadName();
  if (is_closing && found == name) {
    SkipWhiteSpace();
    if (Skip(">")) return true;
  }
  if (is_closing && !found.empty()) {
    return Fail("</{1}> is expected and not the end of \"{2}\"", start,
                {std::string(name), Shortened(found)});
  }
  return Fail("</{1}> is expected", start, {std::string(name)});
}

void XmlScanner::AppendPlain(std::string_view text) {
  for (;;) {
    const std::size_t line_end = text.find('\r');
    text_ += text.substr(0, line_end);
    if (line_end == std::string_view::npos) return;
    text_ += '\n';
    text.remove_prefix(line_end + 1);
    if (text.starts_with('\n')) text.remove_prefix(1);
  }
}

bool XmlScanner::ReadReference() {
  // No reference that can be resolved is longer; a stray "&" is not searched for to the end.
  constexpr std::ptrdiff_t kMaximumLength = 32;
  const char* start = cursor_;
  const char* limit = end_ - start > kMaximumLength ? start + kMaximumLength : end_;
  const char* stop = std::find(start, limit, ';');
  if (stop == limit) return Fail("\"&\" that begins no reference");
  const std::string_view name(start + 1, static_cast<std::size_t>(stop - start - 1));
  const char32_t character = ReferredCharacter(name);
  if (character == kNoCharacter) {
    return Fail("a reference to no character: \"{1}\"", cursor_,
                {Shortened({start, name.size() + 2})});
  }
  AppendUtf8(text_, character);
  cursor_ = stop + 1;
  return true;
}

bool XmlScanner::ReadTextSlowly(std::string_view name, std::string_view plain,
                                std::string_view& text) {
  text_ = plain;
  cursor_ += plain.size();
  for (;;) {
    if (IsAtEnd()) return Fail("the file ends within <{1}>", cursor_, {std::string(name)});
    if (*cursor_ == '&') {
      if (!ReadReference()) return false;
    } else if (*cursor_ == '\r') {
      ++cursor_;
      if (!IsAt(cursor_, "\n")) text_ += '\n';
    } else if (*cursor_ == '\0') {
      return Fail("a zero byte");
    } else if (*cursor_ != '<') {
      const char* stop = FindSpecial(cursor_, end_);
      text_.append(cursor_, stop);
      cursor_ = stop;
    } else if (Skip("<!--")) {
      if (!SkipPast("-->", "unfinished comment")) return false;
    } else if (Skip("<?")) {
      if (!SkipPast("?>", "unfinished processing instruction")) return false;
    } else if (Skip("<![CDATA[")) {
      const char* start = cursor_;
      if (!SkipPast("]]>", "unfinished character data section")) return false;
      const std::string_view section(start, static_cast<std::size_t>(cursor_ - start - 3));
      if (section.find('\0') != std::string_view::npos) return Fail("a zero byte", start);
      AppendPlain(section);
    } else {
      text = text_;
      return ReadClosingTag(name);
    }
  }
}

}  // namespace tallyfold::plist
