#include "plist/writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

#include "plist/utf8.h"

namespace tallyfold::plist {
namespace {

constexpr std::string_view kHeader =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view kFooter = "</plist>\n";

// The longest number to_chars makes of any value and format used here, with room to spare.
constexpr std::size_t kNumberRoom = 32;

std::uint8_t Byte(char c) noexcept {
  return static_cast<std::uint8_t>(c);
}

// Bytes that stand for themselves in a text; of those from 0x80 on, all but the one that begins the
// control characters U+0080 to U+009F.
constexpr auto kIsPlain = [] {
  std::array<bool, 256> table{};
  for (std::size_t byte = 0x20; byte < table.size(); ++byte) table[byte] = true;
  table['\t'] = table['\n'] = true;
  table['<'] = table['>'] = table['&'] = table[0x7F] = table[0xC2] = false;
  return table;
}();

// The shortest digits that read back as `value`; plainly where exponents would only puzzle.
char* RealToChars(char* first, char* last, double value) noexcept {
  // Nearly all reals are amounts. With at most 15 digits in all, the digits of whole cents are the
  // shortest, and printing an integer takes a fraction of the time.
  const double cents = value * 100.0;
  if (std::fabs(cents) < 1e15 && cents != 0.0) {
    const auto whole = static_cast<std::int64_t>(std::llround(cents));
    if (static_cast<double>(whole) / 100.0 == value) {
      if (value < 0.0) *first++ = '-';
      const auto magnitude = static_cast<std::uint64_t>(std::abs(whole));
      first = std::to_chars(first, last, magnitude / 100).ptr;
      const auto rest = static_cast<char>(magnitude % 100);
      if (rest == 0) return first;
      *first++ = '.';
      *first++ = static_cast<char>('0' + rest / 10);
      if (rest % 10 != 0) *first++ = static_cast<char>('0' + rest % 10);
      return first;
    }
  }
  const double magnitude = std::fabs(value);
  if (magnitude == 0.0 || (magnitude >= 1e-5 && magnitude < 1e15)) {
    return std::to_chars(first, last, value, std::chars_format::fixed).ptr;
  }
  return std::to_chars(first, last, value).ptr;
}

std::string_view ElementName(Kind kind) noexcept {
  return kind == Kind::Date ? "date" : "data";
}

}  // namespace

XmlWriter::XmlWriter(Sink sink) : sink_(std::move(sink)), block_(new char[kBlockSize]) {
  Put(kHeader);
}

void XmlWriter::Finish() {
  Put(kFooter);
  Flush();
}

void XmlWriter::BeginDictionary() {
  Begin("<dict");
}
void XmlWriter::EndDictionary() {
  End("</dict>\n");
}
void XmlWriter::BeginArray() {
  Begin("<array");
}
void XmlWriter::EndArray() {
  End("</array>\n");
}

void XmlWriter::Key(std::string_view key) {
  StartLine();
  Put("<key>");
  PutText(key);
  Put("</key>\n");
}

void XmlWriter::Boolean(bool value) {
  StartLine();
  Put(value ? "<true/>\n" : "<false/>\n");
}

void XmlWriter::Integer(std::int64_t value) {
  StartLine();
  Put("<integer>");
  char* room = Room(kNumberRoom);
  used_ += static_cast<std::size_t>(std::to_chars(room, room + kNumberRoom, value).ptr - room);
  Put("</integer>\n");
}

void XmlWriter::Real(double value) {
  StartLine();
  Put("<real>");
  if (std::isnan(value)) {
    Put("nan");
  } else if (std::isinf(value)) {
    Put(value < 0.0 ? "-infinity" : "+infinity");
  } else {
    char* room = Room(kNumberRoom);
    used_ += static_cast<std::size_t>(RealToChars(room, room + kNumberRoom, value) - room);
  }
  Put("</real>\n");
}

void XmlWriter::String(std::string_view text) {
  StartLine();
  Put("<string>");
  PutText(text);
  Put("</string>\n");
}

void XmlWriter::Opaque(Kind kind, std::string_view text) {
  const std::string_view element = ElementName(kind);
  StartLine();
  Put("<");
  Put(element);
  Put(">");
  PutText(text);
  Put("</");
  Put(element);
  Put(">\n");
}

void XmlWriter::Begin(std::string_view element) {
  StartLine();
  Put(element);
  is_open_ = true;
  ++level_;
}

void XmlWriter::End(std::string_view element) {
  --level_;
  if (std::exchange(is_open_, false)) {
    Put("/>\n");
  } else {
    StartLine();
    Put(element);
  }
}

void XmlWriter::StartLine() {
  constexpr std::string_view kTabs = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
  if (std::exchange(is_open_, false)) Put(">\n");
  std::size_t left = level_;
  for (; left > kTabs.size(); left -= kTabs.size()) Put(kTabs);
  Put(kTabs.substr(0, left));
}

void XmlWriter::PutText(std::string_view text) {
  const auto is_plain_ascii = [](char c) { return kIsPlain[Byte(c)] && Byte(c) < 0x80; };
  const auto plain_end = std::find_if_not(text.begin(), text.end(), is_plain_ascii);
  const auto plain_size = static_cast<std::size_t>(plain_end - text.begin());
  Put(text.substr(0, plain_size));
  text.remove_prefix(plain_size);
  if (text.empty()) return;
  if (IsValidUtf8(text)) {
    PutEscaped(text);
  } else {
    PutEscaped(ToValidUtf8(text));
  }
}

void XmlWriter::PutEscaped(std::string_view text) {
  while (!text.empty()) {
    const auto plain_end =
        std::find_if_not(text.begin(), text.end(), [](char c) { return kIsPlain[Byte(c)]; });
    const auto plain_size = static_cast<std::size_t>(plain_end - text.begin());
    Put(text.substr(0, plain_size));
    text.remove_prefix(plain_size);
    if (text.empty()) return;

    std::size_t taken = 1;
    switch (text.front()) {
      case '<':
        Put("&lt;");
        break;
      case '>':
        Put("&gt;");
        break;
      case '&':
        Put("&amp;");
        break;
      case '\xC2':
        taken = 2;
        if (Byte(text[1]) < 0xA0) {
          PutReference(Byte(text[1]));
        } else {
          Put(text.substr(0, taken));
        }
        break;
      default:
        PutReference(Byte(text.front()));
    }
    text.remove_prefix(taken);
  }
}

void XmlWriter::PutReference(unsigned character) {
  Put("&#");
  char* room = Room(kNumberRoom);
  used_ += static_cast<std::size_t>(std::to_chars(room, room + kNumberRoom, character).ptr - room);
  Put(";");
}

void XmlWriter::Put(std::string_view text) {
  while (text.size() > kBlockSize - used_) {
    const std::size_t part = kBlockSize - used_;
    std::memcpy(block_.get() + used_, text.data(), part);
    used_ = kBlockSize;
    text.remove_prefix(part);
    Flush();
  }
  if (text.empty()) return;
  std::memcpy(block_.get() + used_, text.data(), text.size());
  used_ += text.size();
}

char* XmlWriter::Room(std::size_t size) {
  if (size > kBlockSize - used_) Flush();
  return block_.get() + used_;
}

void XmlWriter::Flush() {
  if (used_ == 0) return;
  sink_({block_.get(), std::exchange(used_, 0)});
}

std::string ToXml(const Value& value) {
  std::string result;
  XmlWriter writer([&result](std::string_view block) { result += block; });
  writer.Write(value);
  writer.Finish();
  return result;
}

}  // namespace tallyfold::plist
