#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "plist/words.h"

namespace tallyfold::plist {

// Walks over the tags and texts of an XML document that is valid UTF-8. Knows nothing of property
// lists. Every Read and Skip that returns a bool returns false at the first failure, which
// failure() then tells; after that the scanner is not to be used.
class XmlScanner {
 public:
  struct Failure {
    // English, with places "{1}" for the details; a literal.
    std::string_view message;
    std::size_t position = 0;  // in bytes
    std::vector<std::string> details;
  };
  struct Tag {
    std::string_view name;
    bool is_empty = false;  // <name/>
  };

  // `document` must outlive the scanner.
  explicit XmlScanner(std::string_view document)
      : begin_(document.data()), cursor_(begin_), end_(begin_ + document.size()) {}

  [[nodiscard]] const Failure& failure() const noexcept { return failure_; }
  // Notes the failure, at the cursor or at an earlier place, and returns false.
  bool Fail(std::string_view message) { return Fail(message, cursor_); }
  bool Fail(std::string_view message, const char* where, std::vector<std::string> details = {});

  // What lies ahead. MoveTo() takes a place between cursor() and end().
  [[nodiscard]] const char* cursor() const noexcept { return cursor_; }
  [[nodiscard]] const char* end() const noexcept { return end_; }
  [[nodiscard]] bool IsAtEnd() const noexcept { return cursor_ == end_; }
  void MoveTo(const char* place) noexcept { cursor_ = place; }

  // Whether `text` lies at `place`, which is not after end().
  [[nodiscard]] bool IsAt(const char* place, std::string_view text) const noexcept {
    return static_cast<std::size_t>(end_ - place) >= text.size() &&
           std::memcmp(place, text.data(), text.size()) == 0;
  }
  // Moves over `text` if it lies ahead.
  template <std::size_t N>
  [[nodiscard]] bool Skip(const char (&text)[N]) noexcept {
    if (!IsAt(cursor_, {text, N - 1})) return false;
    cursor_ += N - 1;
    return true;
  }

  // Moves over white space, comments and, where `instructions` is true, processing instructions.
  [[nodiscard]] bool SkipMisc(bool instructions);
  // Moves to the next tag, so that "<" and one byte more lie ahead. Anything but white space,
  // comments and processing instructions before it is a failure, and so is the document's end.
  [[nodiscard]] bool SkipToTag() {
    SkipIndentation();
    if (end_ - cursor_ >= 2 && *cursor_ == '<' && cursor_[1] != '!' && cursor_[1] != '?') {
      return true;
    }
    return SkipToTagSlowly();
  }
  // Moves over "<!DOCTYPE ...>", which lies ahead.
  [[nodiscard]] bool SkipDocumentType();

  // Reads the opening tag that lies ahead, attributes skipped.
  [[nodiscard]] bool ReadOpeningTag(Tag& tag);
  // Reads "</name>".
  [[nodiscard]] bool ReadClosingTag(std::string_view name) {
    if (SkipClosingTag(cursor_, name)) return true;
    return ReadClosingTagSlowly(name);
  }
  // Moves to after "</name>" if just that lies at `place`.
  [[nodiscard]] bool SkipClosingTag(const char* place, std::string_view name) noexcept {
    const std::size_t left = static_cast<std::size_t>(end_ - place);
    if (left < name.size() + 3 || place[0] != '<' || place[1] != '/' ||
        std::memcmp(place + 2, name.data(), name.size()) != 0 || place[name.size() + 2] != '>') {
      return false;
    }
    cursor_ = place + name.size() + 3;
    return true;
  }
  // Reads an element's text, references resolved and line ends made LF, and its closing tag. The
  // view holds until the next call and as long as the document.
  [[nodiscard]] bool ReadText(std::string_view name, std::string_view& text) {
    const char* stop = FindSpecial(cursor_, end_);
    const std::string_view plain(cursor_, static_cast<std::size_t>(stop - cursor_));
    if (SkipClosingTag(stop, name)) {
      text = plain;
      return true;
    }
    return ReadTextSlowly(name, plain, text);
  }

  [[nodiscard]] static bool IsWhiteSpace(char c) noexcept {
    return c == '\t' || c == '\n' || c == ' ' || c == '\r';
  }

 private:
  // The first byte that does not stand for itself in a text: "<", "&", CR or NUL; or `end`.
  [[nodiscard]] static const char* FindSpecial(const char* place, const char* end) noexcept;
  [[nodiscard]] static bool IsSpecial(char c) noexcept {
    return c == '<' || c == '&' || c == '\r' || c == '\0';
  }

  // Moves over the white space that usually precedes a tag.
  void SkipIndentation() noexcept;
  [[nodiscard]] bool SkipToTagSlowly();
  // Moves to after the next `end_mark`; fails with `message` when there is none.
  [[nodiscard]] bool SkipPast(std::string_view end_mark, std::string_view message);
  [[nodiscard]] bool SkipAttribute();
  void SkipWhiteSpace() noexcept {
    while (cursor_ != end_ && IsWhiteSpace(*cursor_)) ++cursor_;
  }
  [[nodiscard]] std::string_view ReadName() noexcept;
  [[nodiscard]] bool ReadClosingTagSlowly(std::string_view name);
  [[nodiscard]] bool ReadTextSlowly(std::string_view name, std::string_view plain,
                                    std::string_view& text);
  [[nodiscard]] bool ReadReference();
  void AppendPlain(std::string_view text);

  const char* begin_;
  const char* cursor_;
  const char* end_;
  std::string text_;  // the text being put together, where it is no part of the document
  Failure failure_;
};

inline void XmlScanner::SkipIndentation() noexcept {
  if (cursor_ != end_ && *cursor_ == '\n') ++cursor_;
  // Eight bytes at a time: those that are tabs become zero.
  if constexpr (std::endian::native == std::endian::little) {
    while (end_ - cursor_ >= 8) {
      const std::uint64_t others = LoadWord(cursor_) ^ RepeatedByte('\t');
      if (others != 0) {
        cursor_ += std::countr_zero(others) / 8;
        return;
      }
      cursor_ += 8;
    }
  }
}

inline const char* XmlScanner::FindSpecial(const char* place, const char* end) noexcept {
  // Eight bytes at a time: those searched for become zero, and the first zero is found exactly.
  if constexpr (std::endian::native == std::endian::little) {
    constexpr auto kZeroBytes = [](std::uint64_t word) {
      return (word - RepeatedByte('\x01')) & ~word & RepeatedByte('\x80');
    };
    for (; end - place >= 8; place += 8) {
      const std::uint64_t word = LoadWord(place);
      const std::uint64_t found = kZeroBytes(word ^ RepeatedByte('<')) |
                                  kZeroBytes(word ^ RepeatedByte('&')) |
                                  kZeroBytes(word ^ RepeatedByte('\r')) | kZeroBytes(word);
      if (found != 0) return place + std::countr_zero(found) / 8;
    }
  }
  while (place != end && !IsSpecial(*place)) ++place;
  return place;
}

}  // namespace tallyfold::plist
