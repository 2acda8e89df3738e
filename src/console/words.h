#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyfold::console {

// One word of a line: a plain one, or an option written `key=value`.
struct Word {
  std::string key;  // "" for a plain word
  std::string text;

  [[nodiscard]] bool IsOption() const noexcept { return !key.empty(); }
  friend bool operator==(const Word&, const Word&) = default;
};

// A line taken apart.
struct Line {
  // It began with "-": its command may fail and the run goes on.
  bool may_fail = false;
  std::vector<Word> words;
  // What is wrong with how the line is written; "" for nothing. The words are then not complete.
  std::string error;
};

// Takes apart a line without its line end (a carriage return at the end and a byte-order mark in
// front are dropped).
//
// Words are separated by blanks. Double quotes take blanks, "#" and "=" as they are and may begin
// anywhere in a word (description="Corner Market"); within them \" \\ \n \t stand for a quotation
// mark, a backslash, a line end and a tab. A word is an option when "=" follows letters, digits and
// hyphens that are outside quotes. "#" at the start of a word begins a comment, except that "#3"
// and "#3-#7" and their like after the first word name rows.
[[nodiscard]] Line ReadWords(std::string_view text);

// `text` written so that ReadWords gives it back as one plain word.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace tallyfold::console
