#include "system/iconv_encodings.h"

#include <errno.h>
#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cwchar>
#include <optional>
#include <utility>
#include <vector>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr bool kLittleEndian = std::endian::native == std::endian::little;

struct Entry {
  TextEncoding encoding;
  const char* title;
  const char* iconv_name;
  // Set where writing differs from reading: the C library writes no byte-order mark of its own for
  // an empty text, so we write all of them.
  const char* name_to_write = nullptr;
  std::string_view mark = {};
};

constexpr std::array kEntries = {
    Entry{TextEncoding::Ascii, "Western (ASCII)", "US-ASCII"},
    Entry{TextEncoding::EucJp, "Japanese (EUC)", "EUC-JP"},
    Entry{TextEncoding::Utf8, "Unicode (UTF-8)", "UTF-8"},
    Entry{TextEncoding::Latin1, "Western (ISO 8859-1)", "ISO-8859-1"},
    // Unlike the C library's SHIFT_JIS this one keeps the backslash and the tilde of ASCII.
    Entry{TextEncoding::ShiftJis, "Japanese (Shift JIS)", "CP932"},
    Entry{TextEncoding::Latin2, "Central European (ISO 8859-2)", "ISO-8859-2"},
    Entry{TextEncoding::Utf16, "Unicode (UTF-16)", "UTF-16",
          kLittleEndian ? "UTF-16LE" : "UTF-16BE",
          kLittleEndian ? std::string_view("\xFF\xFE", 2) : std::string_view("\xFE\xFF", 2)},
    Entry{TextEncoding::Windows1251, "Cyrillic (Windows 1251)", "CP1251"},
    Entry{TextEncoding::Windows1252, "Western (Windows 1252)", "CP1252"},
    Entry{TextEncoding::Windows1253, "Greek (Windows 1253)", "CP1253"},
    Entry{TextEncoding::Windows1254, "Turkish (Windows 1254)", "CP1254"},
    Entry{TextEncoding::Windows1250, "Central European (Windows 1250)", "CP1250"},
    Entry{TextEncoding::Iso2022Jp, "Japanese (ISO 2022-JP)", "ISO-2022-JP"},
    Entry{TextEncoding::MacRoman, "Western (Macintosh Roman)", "MACINTOSH"},
    Entry{TextEncoding::Utf16BigEndian, "Unicode (UTF-16, high byte first)", "UTF-16BE"},
    Entry{TextEncoding::Utf16LittleEndian, "Unicode (UTF-16, low byte first)", "UTF-16LE"},
    Entry{
        TextEncoding::Utf32, "Unicode (UTF-32)", "UTF-32", kLittleEndian ? "UTF-32LE" : "UTF-32BE",
        kLittleEndian ? std::string_view("\xFF\xFE\0\0", 4) : std::string_view("\0\0\xFE\xFF", 4)},
    Entry{TextEncoding::Utf32BigEndian, "Unicode (UTF-32, high byte first)", "UTF-32BE"},
    Entry{TextEncoding::Utf32LittleEndian, "Unicode (UTF-32, low byte first)", "UTF-32LE"},
    Entry{TextEncoding::Windows1257, "Baltic (Windows 1257)", "CP1257"},
};

const Entry* Find(TextEncoding encoding) {
  const auto found = std::find_if(kEntries.begin(), kEntries.end(),
                                  [=](const Entry& entry) { return entry.encoding == encoding; });
  return found == kEntries.end() ? nullptr : &*found;
}

class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(::iconv_open(to, from)) {}
  ~Converter() {
    if (IsOpen()) ::iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  [[nodiscard]] bool IsOpen() const { return handle_ != kNone; }

  // Appends what `input` becomes to `output` and moves `input` past what was converted; not to its
  // end where something in it cannot be.
  void Convert(std::string_view& input, std::string& output) { Run(&input, output); }
  // Appends what leads back to the encoding's initial state.
  void Finish(std::string& output) { Run(nullptr, output); }

 private:
  void Run(std::string_view* input, std::string& output) {
    std::array<char, 4096> block;
    for (;;) {
      // The interface is older than const.
      char* in = input == nullptr ? nullptr : const_cast<char*>(input->data());
      std::size_t in_left = input == nullptr ? 0 : input->size();
      char* out = block.data();
      std::size_t out_left = block.size();
      const std::size_t result = ::iconv(handle_, in == nullptr ? nullptr : &in,
                                         in == nullptr ? nullptr : &in_left, &out, &out_left);
      const bool block_full = result == static_cast<std::size_t>(-1) && errno == E2BIG;
      output.append(block.data(), block.size() - out_left);
      if (input != nullptr) input->remove_prefix(input->size() - in_left);
      if (!block_full) return;
    }
  }

  // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how the interface says it
  static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
  iconv_t handle_;
};

struct CodePoint {
  char32_t value = 0;
  std::size_t size = 0;  // in bytes; 0 when there is no valid character
};

// The first character of a text that is not empty.
CodePoint FirstCodePoint(std::string_view text) {
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < size) return {};
  char32_t value = first & (0x7Fu >> size);
  for (std::size_t i = 1; i < size; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {};
    value = (value << 6) | (byte(i) & 0x3Fu);
  }
  const bool too_long = (size == 3 && value < 0x800) || (size == 4 && value < 0x10000);
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  if (too_long || surrogate || value > 0x10FFFF) return {};
  return {value, size};
}

bool IsValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const CodePoint next = FirstCodePoint(text);
    if (next.size == 0) return false;
    text.remove_prefix(next.size);
  }
  return true;
}

std::string WithoutMark(std::string text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  return text;
}

// Takes up to a block of characters off the front of `utf8`, as code points in host order.
std::u32string_view TakeBlock(std::string_view& utf8, std::array<char32_t, 1024>& block) {
  std::size_t count = 0;
  while (count < block.size() && !utf8.empty()) {
    const CodePoint next = FirstCodePoint(utf8);
    block[count++] = next.size == 0 ? U'?' : next.value;
    utf8.remove_prefix(std::max<std::size_t>(next.size, 1));
  }
  return {block.data(), count};
}

}  // namespace

std::vector<TextEncoding> IconvEncodings::List() const {
  std::vector<TextEncoding> list;
  for (const Entry& entry : kEntries) {
    if (entry.encoding == TextEncoding::Windows1257) continue;
    if (Converter("UTF-8", entry.iconv_name).IsOpen()) list.push_back(entry.encoding);
  }
  return list;
}

std::string IconvEncodings::Name(TextEncoding encoding) const {
  const Entry* entry = Find(encoding);
  return entry == nullptr ? std::string() : LocalizedText(entry->title);
}

std::optional<std::string> IconvEncodings::Decode(std::string_view bytes,
                                                  TextEncoding encoding) const {
  const Entry* entry = Find(encoding);
  if (entry == nullptr) return std::nullopt;
  std::string text;
  if (encoding == TextEncoding::Utf8) {
    text = bytes;
  } else {
    Converter converter("UTF-8", entry->iconv_name);
    if (!converter.IsOpen()) return std::nullopt;
    text.reserve(bytes.size() + bytes.size() / 8);
    converter.Convert(bytes, text);
    if (!bytes.empty()) return std::nullopt;
    converter.Finish(text);
  }
  // The C library lets some code points pass that Unicode does not have.
  if (!IsValidUtf8(text)) return std::nullopt;
  return WithoutMark(std::move(text));
}

std::optional<std::string> IconvEncodings::Encode(std::string_view utf8,
                                                  TextEncoding encoding) const {
  const Entry* entry = Find(encoding);
  if (entry == nullptr) return std::nullopt;
  // From code points, the converter stops right at a character it lacks; from UTF-8 it would first
  // have read on, and read that again after each one.
  Converter converter(entry->name_to_write != nullptr ? entry->name_to_write : entry->iconv_name,
                      "WCHAR_T");
  if (!converter.IsOpen()) return std::nullopt;
  static_assert(sizeof(wchar_t) == sizeof(char32_t));

  std::string bytes(entry->mark);
  bytes.reserve(utf8.size() + utf8.size() / 8);
  std::array<char32_t, 1024> block;
  while (!utf8.empty()) {
    const std::u32string_view characters = TakeBlock(utf8, block);
    std::string_view input(reinterpret_cast<const char*>(characters.data()),
                           characters.size() * sizeof(char32_t));
    for (converter.Convert(input, bytes); !input.empty(); converter.Convert(input, bytes)) {
      const char32_t question_mark = U'?';
      std::string_view replacement(reinterpret_cast<const char*>(&question_mark),
                                   sizeof question_mark);
      converter.Convert(replacement, bytes);
      input.remove_prefix(sizeof(char32_t));
    }
  }
  converter.Finish(bytes);
  return bytes;
}

}  // namespace tallyfold
