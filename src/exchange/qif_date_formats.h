#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tallyfold {

// The twelve date formats of QIF files and the tags under which choices offer and accounts store
// them; the gap is deliberate.
struct QifDateFormat {
  std::int32_t tag;
  std::string_view format;
  std::string_view title;  // English key: the format as people write it
};

inline constexpr std::array<QifDateFormat, 12> kQifDateFormats = {{
    {0, "%m/%d/%y", "MM/DD/YY"},
    {1, "%m/%y/%d", "MM/YY/DD"},
    {2, "%d/%m/%y", "DD/MM/YY"},
    {3, "%d/%y/%m", "DD/YY/MM"},
    {4, "%y/%d/%m", "YY/DD/MM"},
    {5, "%y/%m/%d", "YY/MM/DD"},
    {10, "%m/%d/%Y", "MM/DD/YYYY"},
    {11, "%m/%Y/%d", "MM/YYYY/DD"},
    {12, "%d/%m/%Y", "DD/MM/YYYY"},
    {13, "%d/%Y/%m", "DD/YYYY/MM"},
    {14, "%Y/%d/%m", "YYYY/DD/MM"},
    {15, "%Y/%m/%d", "YYYY/MM/DD"},
}};

// "%m/%y/%d" for a tag that does not exist.
[[nodiscard]] constexpr std::string_view QifDateFormatForTag(std::int32_t tag) noexcept {
  for (const QifDateFormat& each : kQifDateFormats) {
    if (each.tag == tag) return each.format;
  }
  return "%m/%y/%d";
}

// None for a text that is not among the twelve.
[[nodiscard]] constexpr std::optional<std::int32_t> QifDateFormatTag(
    std::string_view format) noexcept {
  for (const QifDateFormat& each : kQifDateFormats) {
    if (each.format == format) return each.tag;
  }
  return std::nullopt;
}

}  // namespace tallyfold
