#pragma once

#include <cstdint>

#include "printing/page.h"

namespace tallyfold {

struct Margins {
  double left = 0.0;
  double right = 0.0;
  double top = 0.0;
  double bottom = 0.0;
};

// A sheet in both ways it can be turned, in points. The margins stay with the sides of the page,
// however it is turned.
struct Paper {
  PaperSize portrait;
  PaperSize landscape;
  Margins margins;
};

// Automatic turns the sheet when its columns want more width.
enum class Orientation : std::uint8_t { Automatic, Portrait, Landscape };

[[nodiscard]] inline Paper PaperOfSize(PaperSize portrait, const Margins& margins) noexcept {
  return {portrait, {portrait.height, portrait.width}, margins};
}

// With half an inch of margin.
inline constexpr Margins kPaperMargins = {36.0, 36.0, 36.0, 36.0};
[[nodiscard]] inline Paper LetterPaper() noexcept {
  return PaperOfSize({612.0, 792.0}, kPaperMargins);
}
[[nodiscard]] inline Paper A4Paper() noexcept {
  return PaperOfSize({595.0, 842.0}, kPaperMargins);
}

}  // namespace tallyfold
