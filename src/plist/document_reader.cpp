#include "plist/document_reader.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "plist/nodes.h"
#include "plist/numbers.h"
#include "plist/read_report.h"

namespace tallyfold::plist {
namespace {

constexpr std::string_view kElementNames[] = {"plist", "dict", "array", "key",  "string", "integer",
                                              "real",  "true", "false", "date", "data"};

}  // namespace

std::string_view DocumentReader::NameOf(Element element) noexcept {
  return kElementNames[static_cast<std::size_t>(element)];
}

std::optional<DocumentReader::Element> DocumentReader::ElementWithName(
    std::string_view name) noexcept {
  const auto* found = std::find(std::begin(kElementNames), std::end(kElementNames), name);
  if (found == std::end(kElementNames)) return std::nullopt;
  return static_cast<Element>(found - std::begin(kElementNames));
}

bool DocumentReader::ReadStart() {
  if (!scanner_.SkipToTag()) return false;
  if (scanner_.IsAt(scanner_.cursor(), "<!DOCTYPE")) {
    if (!scanner_.SkipDocumentType() || !scanner_.SkipToTag()) return false;
  }
  const char* start = scanner_.cursor();
  XmlScanner::Tag tag;
  if (!scanner_.ReadOpeningTag(tag)) return false;
  if (tag.name != NameOf(Element::Plist)) return scanner_.Fail("<plist> is expected", start);
  if (tag.is_empty) return scanner_.Fail("a property list without a value", start);
  levels_.push_back({Element::Plist, 0, 0});
  return true;
}

bool DocumentReader::ReadEnd() {
  if (!scanner_.SkipMisc(false)) return false;
  return scanner_.IsAtEnd() || scanner_.Fail("something after the end of the property list");
}

bool DocumentReader::ReadElements() {
  while (!levels_.empty()) {
    if (!scanner_.SkipToTag()) return false;
    const char* start = scanner_.cursor();
    if (static_cast<std::size_t>(start - begin_) >= next_telling_) Tell();
    if (start[1] == '/') {
      if (!Close()) return false;
      continue;
    }
    OpeningTag tag{};
    if (!ReadOpeningTag(tag) || !CheckPlace(tag.element, start) || !ReadElement(tag, start)) {
      return false;
    }
  }
  return true;
}

void DocumentReader::Tell() {
  constexpr std::size_t kBytesBetween = 4096;
  const auto read = static_cast<std::size_t>(scanner_.cursor() - begin_);
  told_(read);
  next_telling_ = read + kBytesBetween;
}

bool DocumentReader::ReadOpeningTag(OpeningTag& tag) {
  // The tags as they are usually written.
  const auto found_plain = [&tag](Element element, bool is_empty) {
    tag = {element, is_empty};
    return true;
  };
  switch (scanner_.cursor()[1]) {
    case 'k':
      if (scanner_.Skip("<key>")) return found_plain(Element::Key, false);
      break;
    case 's':
      if (scanner_.Skip("<string>")) return found_plain(Element::String, false);
      break;
    case 'i':
      if (scanner_.Skip("<integer>")) return found_plain(Element::Integer, false);
      break;
    case 'r':
      if (scanner_.Skip("<real>")) return found_plain(Element::Real, false);
      break;
    case 't':
      if (scanner_.Skip("<true/>")) return found_plain(Element::True, true);
      break;
    case 'f':
      if (scanner_.Skip("<false/>")) return found_plain(Element::False, true);
      break;
    case 'd':
      if (scanner_.Skip("<dict>")) return found_plain(Element::Dictionary, false);
      break;
    case 'a':
      if (scanner_.Skip("<array>")) return found_plain(Element::Array, false);
      break;
    default:
      break;
  }
  const char* start = scanner_.cursor();
  XmlScanner::Tag found;
  if (!scanner_.ReadOpeningTag(found)) return false;
  const std::optional<Element> element = ElementWithName(found.name);
  if (!element || *element == Element::Plist) {
    return scanner_.Fail("an element that property lists do not have", start);
  }
  tag = {*element, found.is_empty};
  return true;
}

bool DocumentReader::CheckPlace(Element element, const char* where) {
  const Level& level = levels_.back();
  const std::size_t value_count = values_.size() - level.first_value;
  const bool expects_key =
      level.element == Element::Dictionary && keys_.size() - level.first_key == value_count;
  if (expects_key != (element == Element::Key)) {
    return scanner_.Fail(expects_key ? "a value without a key" : "<key> where a value is expected",
                         where);
  }
  if (level.element == Element::Plist && value_count != 0) {
    return scanner_.Fail("a second value", where);
  }
  return true;
}

bool DocumentReader::ReadElement(OpeningTag tag, const char* where) {
  std::string_view text;
  switch (tag.element) {
    case Element::Key:
      return ReadKey(tag.is_empty);
    case Element::String:
      if (!ReadText<Element::String>(tag.is_empty, text)) return false;
      values_.emplace_back(text);
      return true;
    case Element::Integer:
      return ReadInteger(tag.is_empty, where);
    case Element::Real:
      return ReadReal(tag.is_empty, where);
    case Element::True:
    case Element::False:
      values_.emplace_back(tag.element == Element::True);
      if (tag.is_empty) return true;
      return scanner_.SkipToTag() && scanner_.ReadClosingTag(NameOf(tag.element));
    case Element::Date:
      if (!ReadText<Element::Date>(tag.is_empty, text)) return false;
      values_.push_back(Value::Opaque(Kind::Date, text));
      return true;
    case Element::Data:
      if (!ReadText<Element::Data>(tag.is_empty, text)) return false;
      values_.push_back(Value::Opaque(Kind::Data, text));
      return true;
    case Element::Plist:
    case Element::Dictionary:
    case Element::Array:
      break;
  }
  if (!Open(tag.element, where)) return false;
  if (tag.is_empty) {
    MakeContainer(levels_.back());
    levels_.pop_back();
  }
  return true;
}

template <DocumentReader::Element kElement>
bool DocumentReader::ReadText(bool is_empty, std::string_view& text) {
  if (!is_empty) return scanner_.ReadText(NameOf(kElement), text);
  text = {};
  return true;
}

bool DocumentReader::ReadKey(bool is_empty) {
  KeyTable::Entry* guess = last_key_ == nullptr ? nullptr : last_key_->successor;
  if (guess != nullptr && !is_empty && guess->IsAt(scanner_.cursor(), scanner_.end())) {
    scanner_.MoveTo(scanner_.cursor() + guess->ending_text.size());
    keys_.push_back(guess);
    last_key_ = guess;
    return true;
  }
  std::string_view text;
  if (!ReadText<Element::Key>(is_empty, text)) return false;
  KeyTable::Entry* entry = key_table_.Find(text);
  if (last_key_ != nullptr) last_key_->successor = entry;
  last_key_ = entry;
  keys_.push_back(entry);
  return true;
}

bool DocumentReader::ReadInteger(bool is_empty, const char* where) {
  if (!is_empty) {
    const auto number = ReadPlainNumber(scanner_.cursor(), scanner_.end());
    if (number && number->scale == 1 && scanner_.SkipClosingTag(number->end, "integer")) {
      values_.emplace_back(number->is_negative ? -number->digits : number->digits);
      return true;
    }
  }
  std::string_view text;
  if (!ReadText<Element::Integer>(is_empty, text)) return false;
  const std::optional<ParsedInteger> parsed = ParseInteger(text);
  if (!parsed) return scanner_.Fail("an integer that is none or has more than 64 bits", where);
  if (parsed->is_too_great) ReportNotTaken(NotTaken::OutOfRange, InnermostKey());
  values_.emplace_back(parsed->value);
  return true;
}

bool DocumentReader::ReadReal(bool is_empty, const char* where) {
  if (!is_empty) {
    // Both operands are exact, so the quotient is the double nearest to the decimal number.
    const auto number = ReadPlainNumber(scanner_.cursor(), scanner_.end());
    if (number && number->digits < std::int64_t{1} << 53 &&
        scanner_.SkipClosingTag(number->end, "real")) {
      const double magnitude = static_cast<double>(number->digits) / number->scale;
      values_.emplace_back(number->is_negative ? -magnitude : magnitude);
      return true;
    }
  }
  std::string_view text;
  if (!ReadText<Element::Real>(is_empty, text)) return false;
  const std::optional<double> parsed = ParseReal(text);
  if (!parsed) return scanner_.Fail("a real number that is none or cannot be held", where);
  values_.emplace_back(*parsed);
  return true;
}

bool DocumentReader::Open(Element element, const char* where) {
  // The outermost level is <plist> itself.
  if (levels_.size() > std::size_t{kMaximumDepth}) {
    return scanner_.Fail("more than 512 levels", where);
  }
  levels_.push_back({element, static_cast<std::uint32_t>(values_.size()),
                     static_cast<std::uint32_t>(keys_.size())});
  return true;
}

bool DocumentReader::Close() {
  const char* start = scanner_.cursor();
  const Level level = levels_.back();
  if (!scanner_.ReadClosingTag(NameOf(level.element))) return false;
  if (level.element == Element::Plist) {
    if (values_.empty()) return scanner_.Fail("a property list without a value", start);
  } else {
    if (level.element == Element::Dictionary &&
        keys_.size() - level.first_key != values_.size() - level.first_value) {
      return scanner_.Fail("a key without a value", start);
    }
    MakeContainer(level);
  }
  levels_.pop_back();
  return true;
}

void DocumentReader::MakeContainer(const Level& level) {
  Value* values = values_.data() + level.first_value;
  const std::size_t count = values_.size() - level.first_value;
  Value container;
  if (level.element == Element::Array) {
    internal::ArrayNode* node = internal::Access::MakeArray(count);
    container = internal::Access::Handle(node);
    for (std::size_t i = 0; i < count; ++i) node->values.Append(std::move(values[i]));
  } else {
    internal::DictionaryNode* node = internal::Access::MakeDictionary(count);
    container = internal::Access::Handle(node);
    ++dictionary_count_;
    for (std::size_t i = 0; i < count; ++i) {
      KeyTable::Entry& entry = *keys_[level.first_key + i];
      if (entry.dictionary == dictionary_count_) {
        ReportNotTaken(NotTaken::RepeatedKey, entry.key.text());
        internal::Access::MutableValue(node->items[entry.position]) = std::move(values[i]);
      } else {
        entry.dictionary = dictionary_count_;
        entry.position = static_cast<std::uint32_t>(node->items.size());
        node->items.Append({entry.key, std::move(values[i])});
      }
    }
    keys_.resize(level.first_key);
  }
  values_.resize(level.first_value);
  values_.push_back(std::move(container));
}

}  // namespace tallyfold::plist
