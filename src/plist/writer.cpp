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

// Room for the tags and line end around a text or number, and for any number that to_chars makes
// here.
constexpr std::size_t kTagRoom = 32;
constexpr std::size_t kNumberRoom = 32;
// Texts up to this length are tried in one go with their tags.
constexpr std::size_t kShortText = 256;
constexpr std::size_t kTabRoom = 16;

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
    const auto whole = static_cast<std::int64_t>(cents + (cents < 0.0 ? -0.5 : 0.5));
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

template <std::size_t N>
char* Copy(char* to, const char (&text)[N]) noexcept {
  std::memcpy(to, text, N - 1);
  return to + N - 1;
}

// Copies from the start of `text` what stands for itself, and takes it off.
char* CopyPlainAscii(char* to, std::string_view& text) noexcept {
  std::size_t i = 0;
  for (; i < text.size() && kIsPlain[Byte(text[i])] && Byte(text[i]) < 0x80; ++i) to[i] = text[i];
  text.remove_prefix(i);
  return to + i;
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
  Wrote(Copy(StartLine(kTagRoom), "<dict"));
  Opened();
}
void XmlWriter::EndDictionary() {
  if (Closed()) Wrote(Copy(StartLine(kTagRoom), "</dict>\n"));
}
void XmlWriter::BeginArray() {
  Wrote(Copy(StartLine(kTagRoom), "<array"));
  Opened();
}
void XmlWriter::EndArray() {
  if (Closed()) Wrote(Copy(StartLine(kTagRoom), "</array>\n"));
}

void XmlWriter::Key(std::string_view key) {
  PutTextElement("<key>", key, "</key>\n");
}

void XmlWriter::Boolean(bool value) {
  char* to = StartLine(kTagRoom);
  Wrote(value ? Copy(to, "<true/>\n") : Copy(to, "<false/>\n"));
}

void XmlWriter::Integer(std::int64_t value) {
  char* to = Copy(StartLine(kTagRoom + kNumberRoom), "<integer>");
  to = std::to_chars(to, to + kNumberRoom, value).ptr;
  Wrote(Copy(to, "</integer>\n"));
}

void XmlWriter::Real(double value) {
  char* to = Copy(StartLine(kTagRoom + kNumberRoom), "<real>");
  if (std::isnan(value)) {
    to = Copy(to, "nan");
  } else if (std::isinf(value)) {
    to = value < 0.0 ? Copy(to, "-infinity") : Copy(to, "+infinity");
  } else {
    to = RealToChars(to, to + kNumberRoom, value);
  }
  Wrote(Copy(to, "</real>\n"));
}

void XmlWriter::String(std::string_view text) {
  PutTextElement("<string>", text, "</string>\n");
}

void XmlWriter::Opaque(Kind kind, std::string_view text) {
  if (kind == Kind::Date) {
    PutTextElement("<date>", text, "</date>\n");
  } else {
    PutTextElement("<data>", text, "</data>\n");
  }
}

void XmlWriter::Opened() {
  is_open_ = true;
  ++level_;
}

bool XmlWriter::Closed() {
  --level_;
  if (!std::exchange(is_open_, false)) return true;
  Put("/>\n");
  return false;
}

char* XmlWriter::StartLine(std::size_t room) {
  constexpr char kTabs[] = "\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t";
  static_assert(sizeof kTabs - 1 == kTabRoom);
  if (std::exchange(is_open_, false)) Put(">\n");
  std::size_t tabs = level_;
  for (; tabs > kTabRoom; tabs -= kTabRoom) Put(kTabs);
  char* to = Room(kTabRoom + room);
  Copy(to, kTabs);
  return to + tabs;
}

template <std::size_t N, std::size_t M>
void XmlWriter::PutTextElement(const char (&opening)[N], std::string_view text,
                               const char (&closing)[M]) {
  char* to = Copy(StartLine(kTagRoom + kShortText), opening);
  if (text.size() <= kShortText) to = CopyPlainAscii(to, text);
  if (text.empty()) {
    Wrote(Copy(to, closing));
    return;
  }
  Wrote(to);
  if (IsValidUtf8(text)) {
    PutEscaped(text);
  } else {
    PutEscaped(ToValidUtf8(text));
  }
  Put(closing);
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
  char* to = Copy(Room(kTagRoom + kNumberRoom), "&#");
  to = std::to_chars(to, to + kNumberRoom, character).ptr;
  Wrote(Copy(to, ";"));
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
