#include "console/words.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "model/clean_text.h"

namespace tallyfold::console {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsKeyCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigit(c) || c == '-';
}

// True for "#3", "#3-#7" and "#3-7" up to the end of the word.
bool NamesRows(std::string_view text) {
  const auto is_number = [](std::string_view digits) {
    return !digits.empty() && std::all_of(digits.begin(), digits.end(), IsDigit);
  };
  const std::string_view word = text.substr(1, text.find_first_of(" \t", 1) - 1);
  const std::size_t dash = word.find('-');
  if (dash == std::string_view::npos) return is_number(word);
  const std::string_view last = word.substr(dash + 1);
  return is_number(word.substr(0, dash)) && is_number(last.substr(last.starts_with('#') ? 1 : 0));
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  Line Read() {
    SkipBlanks();
    if (!AtEnd() && text_[at_] == '-') {
      line_.may_fail = true;
      ++at_;
      SkipBlanks();
    }
    while (!AtEnd() && line_.error.empty() && !AtComment()) {
      ReadWord();
      SkipBlanks();
    }
    return std::move(line_);
  }

 private:
  [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
  [[nodiscard]] bool AtComment() const {
    return text_[at_] == '#' && (line_.words.empty() || !NamesRows(text_.substr(at_)));
  }
  void SkipBlanks() {
    while (!AtEnd() && IsBlank(text_[at_])) ++at_;
  }

  void ReadWord() {
    Word word;
    bool may_be_key = true;
    while (!AtEnd() && !IsBlank(text_[at_]) && line_.error.empty()) {
      const char c = text_[at_++];
      if (c == '"') {
        ReadQuoted(word.text);
        may_be_key = false;
      } else if (c == '=' && may_be_key && !word.text.empty()) {
        word.key = std::move(word.text);
        word.text.clear();
        may_be_key = false;
      } else {
        word.text += c;
        may_be_key = may_be_key && IsKeyCharacter(c);
      }
    }
    line_.words.push_back(std::move(word));
  }

  void ReadQuoted(std::string& into) {
    while (!AtEnd()) {
      const char c = text_[at_++];
      if (c == '"') return;
      if (c != '\\') {
        into += c;
        continue;
      }
      const char escaped = AtEnd() ? '\0' : text_[at_++];
      switch (escaped) {
        case '"':
        case '\\':
          into += escaped;
          break;
        case 'n':
          into += '\n';
          break;
        case 't':
          into += '\t';
          break;
        default:
          line_.error = R"(a backslash between quotation marks must be \" or \\ or \n or \t)";
          return;
      }
    }
    line_.error = "a quotation mark is not closed";
  }

  std::string_view text_;
  std::size_t at_ = 0;
  Line line_;
};

}  // namespace

Line ReadWords(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.ends_with('\r')) text.remove_suffix(1);
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const std::string clean = CleanText(text);
  return Reader(clean).Read();
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    switch (c) {
      case '"':
        quoted += "\\\"";
        break;
      case '\\':
        quoted += "\\\\";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\t':
        quoted += "\\t";
        break;
      default:
        quoted += c;
    }
  }
  return quoted + '"';
}

}  // namespace tallyfold::console
