#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tallyfold {

// The lines of one QIF record, told apart by their first letter. A line starts behind a carriage
// return; what stands before the first is no line. Refers to the text.
class QifRecord {
 public:
  explicit QifRecord(std::string_view text);

  // True when the record has nothing but line ends.
  [[nodiscard]] bool IsBlank() const noexcept { return is_blank_; }
  // The first line with that code, an empty one included.
  [[nodiscard]] std::optional<std::string_view> Line(char code) const noexcept;
  // The same, but an empty value counts as none.
  [[nodiscard]] std::optional<std::string_view> Value(char code) const noexcept;

  // Whether a further line has that code.
  [[nodiscard]] bool IsRepeated(char code) const noexcept {
    return (repeated_ >> static_cast<unsigned>(code - 'A') & 1U) != 0;
  }

  // The values of all S, E and $ lines in order, empty ones included.
  [[nodiscard]] const std::vector<std::string_view>& split_to_froms() const noexcept {
    return split_to_froms_;
  }
  [[nodiscard]] const std::vector<std::string_view>& split_descriptions() const noexcept {
    return split_descriptions_;
  }
  [[nodiscard]] const std::vector<std::string_view>& split_amounts() const noexcept {
    return split_amounts_;
  }

 private:
  // By capital letter; a null view for a code that does not occur.
  std::array<std::string_view, 26> lines_{};
  std::vector<std::string_view> split_to_froms_;
  std::vector<std::string_view> split_descriptions_;
  std::vector<std::string_view> split_amounts_;
  std::uint32_t repeated_ = 0;  // a bit for each capital letter
  bool is_blank_ = true;
};

// Calls `visit` with each piece of the text before a "^"; what follows the last is ignored.
template <typename Visit>
void ForEachQifRecord(std::string_view text, Visit visit) {
  std::size_t start = 0;
  for (std::size_t end = text.find('^'); end != std::string_view::npos;
       end = text.find('^', start)) {
    visit(text.substr(start, end - start));
    start = end + 1;
  }
}

}  // namespace tallyfold
