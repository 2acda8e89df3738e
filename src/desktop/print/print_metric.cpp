#include "desktop/print/print_metric.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/figures.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

// In points.
struct PrintStyle {
  TextStyle style;
  double size;
  double line;
  bool is_demi_bold = false;
  bool is_italic = false;
};
constexpr PrintStyle kPrintStyles[] = {
    {TextStyle::Title, 14.0, 20.0, true},
    {TextStyle::Subtitle, 8.5, 13.0},
    {TextStyle::ColumnTitle, 8.0, 13.0, true},
    {TextStyle::Body, 8.5, 13.0},
    {TextStyle::Italic, 8.5, 13.0, false, true},
    {TextStyle::Strong, 8.5, 13.0, true},
    {TextStyle::Foot, 7.5, 10.0},
};
constexpr double kRuleBand = 6.0;
constexpr double kPrintColumnGap = 10.0;

constexpr std::size_t kMostKnownCharacters = 4096;
constexpr std::size_t kLongestCharacter = 4;

QFont FontOfStyle(const QFont& font, const PrintStyle& style) {
  QFont styled(font);
  styled.setPixelSize(static_cast<int>(std::lround(style.size * PrintMetric::kUnitsPerPoint)));
  // Hinting fits glyphs to the dots of one device, and with them their widths.
  styled.setHintingPreference(QFont::PreferNoHinting);
  // The toolkit finds the characters of a file's glyphs by the font: of those that a font only puts
  // in for the looks of it, none would be read out again.
  styled.setStyleStrategy(QFont::PreferNoShaping);
  styled.setWeight(style.is_demi_bold ? QFont::DemiBold : QFont::Normal);
  styled.setItalic(style.is_italic);
  return styled;
}

}  // namespace

PrintMetric::PrintMetric(const QFont& font) {
  for (const PrintStyle& style : kPrintStyles) inks_.emplace_back(FontOfStyle(font, style));
}

QString PrintMetric::Shown(std::string_view text) {
  constexpr std::string_view kSigns = ".,$'";
  const bool is_amount =
      text.size() > 1 && text.front() == '-' && std::ranges::all_of(text.substr(1), [&](char c) {
        return (c >= '0' && c <= '9') || kSigns.find(c) != std::string_view::npos;
      });
  return is_amount ? WithMinus(ToQString(text)) : ToQString(text);
}

double PrintMetric::Width(std::string_view text, TextStyle style) const {
  const Ink& ink = InkOf(style);
  const auto measured = [&] { return ink.metrics.horizontalAdvance(Shown(text)) / kUnitsPerPoint; };
  if (text.size() > kLongestCharacter) return measured();
  std::string character(text);
  const auto found = ink.characters.find(character);
  if (found != ink.characters.end()) return found->second;
  if (ink.characters.size() >= kMostKnownCharacters) ink.characters.clear();
  return ink.characters.emplace(std::move(character), measured()).first->second;
}

double PrintMetric::LineHeight(TextStyle style) const {
  return kPrintStyles[static_cast<std::size_t>(style)].line;
}

double PrintMetric::RuleHeight() const {
  return kRuleBand;
}

double PrintMetric::ColumnGap() const {
  return kPrintColumnGap;
}

double PrintMetric::Baseline(TextStyle style) const {
  const QFontMetricsF& metrics = InkOf(style).metrics;
  const double above = (LineHeight(style) * kUnitsPerPoint - metrics.height()) / 2;
  return std::round(above + metrics.ascent());
}

}  // namespace tallyfold::desktop
