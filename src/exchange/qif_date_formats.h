#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfold {

// The twelve date formats of QIF files and the tags under which choices offer and accounts store
// them; the gap is deliberate.
struct QifDateFormat {
  std::int32_t tag;
  std::string_view format;
};

inline constexpr std::array<QifDateFormat, 12> kQifDateFormats = {{
    {0, "%m/%d/%y"},
    {1, "%m/%y/%d"},
    {2, "%d/%m/%y"},
    {3, "%d/%y/%m"},
    {4, "%y/%d/%m"},
    {5, "%y/%m/%d"},
    {10, "%m/%d/%Y"},
    {11, "%m/%Y/%d"},
    {12, "%d/%m/%Y"},
    {13, "%d/%Y/%m"},
    {14, "%Y/%d/%m"},
    {15, "%Y/%m/%d"},
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

// The format as people write it: "MM/DD/YY", "YYYY/MM/DD".
[[nodiscard]] inline std::string QifDateFormatTitle(std::string_view format) {
  std::string title;
  for (const char letter : format) {
    switch (letter) {
      case '%':
        break;
      case 'm':
        title += "MM";
        break;
      case 'd':
        title += "DD";
        break;
      case 'y':
        title += "YY";
        break;
      case 'Y':
        title += "YYYY";
        break;
      default:
        title += letter;
    }
  }
  return title;
}

}  // namespace tallyfold
