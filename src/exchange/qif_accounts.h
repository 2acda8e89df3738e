#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tallyfold {

// The account blocks of a QIF text with carriage returns. Everything refers to the text.

// The blocks in order: each from one "!Account" line to the next, or to the end.
[[nodiscard]] std::vector<std::string_view> QifAccountBlocks(std::string_view text);
// The part of a block before its first "^".
[[nodiscard]] std::string_view QifAccountHeader(std::string_view block);
// The first N line of a block's header; none without one.
[[nodiscard]] std::optional<std::string_view> QifAccountName(std::string_view block);

// Finds blocks by the beginning of any N line of their headers, however many blocks there are.
class QifAccountIndex {
 public:
  explicit QifAccountIndex(const std::vector<std::string_view>& blocks);
  // The position of the first block with an N line that begins with `name`.
  [[nodiscard]] std::optional<std::size_t> FirstWithNameStarting(std::string_view name) const;

 private:
  struct Line {
    std::string_view name;
    std::size_t block;
  };
  // By name.
  std::vector<Line> lines_;
  // first_[k][i] is the first block among the 2^k lines from i on.
  std::vector<std::vector<std::size_t>> first_;
};

}  // namespace tallyfold
