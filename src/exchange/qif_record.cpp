#include "exchange/qif_record.h"

#include <cstddef>

namespace tallyfold {

QifRecord::QifRecord(std::string_view text) {
  is_blank_ = text.find_first_not_of('\r') == std::string_view::npos;
  std::size_t start = text.find('\r');
  while (start != std::string_view::npos && start + 1 < text.size()) {
    const std::size_t next = text.find('\r', start + 1);
    const std::string_view line = text.substr(start + 1, next - start - 1);
    start = next;
    if (line.empty()) continue;
    const std::string_view value = line.substr(1);
    const char code = line.front();
    if (code >= 'A' && code <= 'Z') {
      const auto letter = static_cast<std::size_t>(code - 'A');
      std::string_view& first = lines_[letter];
      if (first.data() == nullptr) {
        first = value;
      } else {
        repeated_ |= 1U << letter;
      }
    }
    if (code == 'S') split_to_froms_.push_back(value);
    if (code == 'E') split_descriptions_.push_back(value);
    if (code == '$') split_amounts_.push_back(value);
  }
}

std::optional<std::string_view> QifRecord::Line(char code) const noexcept {
  const std::string_view line = lines_[static_cast<std::size_t>(code - 'A')];
  if (line.data() == nullptr) return std::nullopt;
  return line;
}

std::optional<std::string_view> QifRecord::Value(char code) const noexcept {
  const auto line = Line(code);
  return line && !line->empty() ? line : std::nullopt;
}

}  // namespace tallyfold
