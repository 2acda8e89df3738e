#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// How a line may go on.
struct LineCompletion {
  // Where in the line the word begins that goes on, in bytes.
  std::size_t from = 0;
  // What is to stand from there to the cursor: what stands there already where nothing is certain.
  std::string text;
  // What the word may become, to be shown where nothing is certain; empty when it is known or
  // nothing fits.
  std::vector<std::string> choices;
};

// What is offered to a person who types a line.
class LineAids {
 public:
  virtual ~LineAids() = default;
  // Lines typed before, the oldest first.
  [[nodiscard]] virtual std::vector<std::string> Earlier() const = 0;
  // `before` is the line up to the cursor, in UTF-8 but for bytes that were typed as none.
  [[nodiscard]] virtual LineCompletion Complete(std::string_view before) const = 0;
};

}  // namespace tallyfold
