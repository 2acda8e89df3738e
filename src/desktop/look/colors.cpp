#include "desktop/look/colors.h"

#include <algorithm>
#include <cmath>

namespace tallyfold::desktop {
namespace {

constexpr double kReadable = 4.5;
constexpr double kVisible = 3.0;
constexpr double kReadableDim = 4.6;
constexpr double kReadableInk = 5.0;
constexpr double kStep = 0.02;
// More colours than a register has on all its grounds; stored ones come and go with preferences.
constexpr qsizetype kMostInks = 64;

constexpr std::array<QRgb, kRoleCount> kLight = {
    0xF2F4F3, 0xFFFFFF, 0xFFFFFF, 0x1A2021, 0x566163, 0x828C8D, 0xE4E8E7, 0xCBD2D1,
    0x868F90, 0x0B6A72, 0xFFFFFF, 0xD3E7E6, 0xE6EAE9, 0xF3F7F6, 0xB3261E, 0xFCEDEB,
    0x8A5200, 0xFDF3E1, 0x1F6E2E, 0xE8F4E9, 0xE8F2F2, 0x488F95, 0xDB625D};
constexpr std::array<QRgb, kRoleCount> kDark = {
    0x1D2223, 0x15191A, 0x252B2C, 0xE4E9E9, 0xA2ADAE, 0x758082, 0x272D2E, 0x3B4446,
    0x6F7A7B, 0x63C2C6, 0x082528, 0x17454A, 0x2A3132, 0x1C2223, 0xFF8F86, 0x3A2120,
    0xF0B65C, 0x352A17, 0x7CCB86, 0x1B3020, 0x173033, 0x48878A, 0xAC4E4C};
// Say the same in every palette.
constexpr Role kFixed[] = {Role::Problem, Role::ProblemFill, Role::Warning, Role::WarningFill,
                           Role::Good,    Role::GoodFill,    Role::Bar,     Role::NegativeBar};

Colors ColorsFrom(const std::array<QRgb, kRoleCount>& values) {
  Colors colors;
  for (std::size_t i = 0; i < kRoleCount; ++i) {
    colors.Set(static_cast<Role>(i), QColor(values[i]));
  }
  return colors;
}

double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

// Mixes more and more of `with` into `color`, from that share on, until it stands out so far.
QColor MixedUntil(const QColor& color, const QColor& with, double share, const QColor& ground,
                  double contrast) {
  QColor mixed = MixOf(color, with, share);
  while (share < 1.0 && ContrastBetween(mixed, ground) < contrast) {
    share = std::min(1.0, share + kStep);
    mixed = MixOf(color, with, share);
  }
  return mixed;
}

// Of two grounds the one that leaves less contrast to a text.
QColor HarderOf(const QColor& a, const QColor& b, const QColor& text) {
  return ContrastBetween(a, text) < ContrastBetween(b, text) ? a : b;
}

QRgb Rgb(const QPalette& palette, QPalette::ColorRole role) {
  return palette.color(QPalette::Active, role).rgb();
}

bool IsPaletteOf(const QPalette& palette, const Colors& colors) {
  return Rgb(palette, QPalette::Window) == colors[Role::Window].rgb() &&
         Rgb(palette, QPalette::WindowText) == colors[Role::Text].rgb() &&
         Rgb(palette, QPalette::Highlight) == colors[Role::Accent].rgb();
}

}  // namespace

bool Colors::IsDark() const noexcept {
  return (*this)[Role::Window].lightness() < (*this)[Role::Text].lightness();
}

QColor Colors::Mixed(Role role, Role with, double share) const {
  return MixOf((*this)[role], (*this)[with], share);
}

double ContrastBetween(const QColor& a, const QColor& b) {
  const double first = Luminance(a);
  const double second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor MixOf(const QColor& color, const QColor& with, double share) {
  const auto mix = [share](int from, int to) {
    return static_cast<int>(std::lround(from + (to - from) * share));
  };
  return {mix(color.red(), with.red()), mix(color.green(), with.green()),
          mix(color.blue(), with.blue())};
}

const Colors& LightColors() {
  static const Colors colors = ColorsFrom(kLight);
  return colors;
}

const Colors& DarkColors() {
  static const Colors colors = ColorsFrom(kDark);
  return colors;
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() <
         palette.color(QPalette::Active, QPalette::WindowText).lightness();
}

Colors MixedColors(const QPalette& palette) {
  const bool is_dark = IsDark(palette);
  Colors colors;
  const auto take = [&](Role role, QPalette::ColorRole from) {
    colors.Set(role, QColor(Rgb(palette, from)));
  };
  take(Role::Window, QPalette::Window);
  take(Role::Base, QPalette::Base);
  take(Role::Raised, QPalette::Button);
  take(Role::Text, QPalette::Text);
  const QColor base = colors[Role::Base];
  const QColor text = colors[Role::Text];
  const QColor harder = HarderOf(base, colors[Role::Window], text);
  colors.Set(Role::Hair, MixOf(base, text, 0.11));
  colors.Set(Role::Rule, MixOf(base, text, 0.20));
  colors.Set(Role::Edge, MixedUntil(base, text, 0.50, harder, kVisible));
  const QColor highlight(Rgb(palette, QPalette::Highlight));
  const QColor selection = MixOf(base, highlight, is_dark ? 0.35 : 0.18);
  const QColor hardest = HarderOf(harder, selection, text);
  colors.Set(Role::Selection, selection);
  colors.Set(Role::Dim, MixedUntil(base, text, 0.70, hardest, kReadableDim));
  colors.Set(Role::Off, MixedUntil(base, text, 0.52, harder, kVisible));
  colors.Set(Role::Hover, MixOf(base, text, 0.03));
  colors.Set(Role::InactiveSelection, MixOf(base, text, 0.10));
  const QColor accent = MixedUntil(highlight, text, 0.0, hardest, kReadable);
  colors.Set(Role::Accent, accent);
  const QColor given(Rgb(palette, QPalette::HighlightedText));
  const bool base_reads = ContrastBetween(base, accent) >= ContrastBetween(text, accent);
  colors.Set(Role::OnAccent, ContrastBetween(given, accent) >= kReadable ? given
                             : base_reads                                ? base
                                                                         : text);
  colors.Set(Role::HintFill, MixOf(base, accent, is_dark ? 0.20 : 0.10));
  const Colors& fixed = is_dark ? DarkColors() : LightColors();
  for (const Role role : kFixed) colors.Set(role, fixed[role]);
  return colors;
}

QPalette PaletteOf(const Colors& colors) {
  QPalette palette;
  const auto set = [&palette](QPalette::ColorRole role, const QColor& color) {
    palette.setColor(QPalette::All, role, color);
  };
  set(QPalette::Window, colors[Role::Window]);
  set(QPalette::Base, colors[Role::Base]);
  set(QPalette::Button, colors[Role::Raised]);
  set(QPalette::ToolTipBase, colors[Role::Raised]);
  for (const auto role :
       {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText}) {
    set(role, colors[Role::Text]);
    palette.setColor(QPalette::Disabled, role, colors[Role::Off]);
  }
  set(QPalette::PlaceholderText, colors[Role::Dim]);
  palette.setColor(QPalette::Disabled, QPalette::PlaceholderText, colors[Role::Off]);
  set(QPalette::Light, colors[Role::Raised]);
  set(QPalette::Midlight, colors[Role::Hair]);
  set(QPalette::Mid, colors[Role::Rule]);
  set(QPalette::Dark, colors[Role::Edge]);
  set(QPalette::Shadow, colors[Role::Edge]);
  set(QPalette::Highlight, colors[Role::Accent]);
  set(QPalette::HighlightedText, colors[Role::OnAccent]);
  set(QPalette::Link, colors[Role::Accent]);
  set(QPalette::LinkVisited, colors[Role::Accent]);
  set(QPalette::AlternateBase, colors[Role::Hover]);
  set(QPalette::BrightText, colors[Role::Problem]);
  return palette;
}

const Colors& ColorsOf(const QPalette& palette) {
  if (IsPaletteOf(palette, LightColors())) return LightColors();
  if (IsPaletteOf(palette, DarkColors())) return DarkColors();
  using Values = std::array<QRgb, 7>;
  static Values mixed_from = {};
  static Colors mixed = LightColors();
  const Values values = {Rgb(palette, QPalette::Window),    Rgb(palette, QPalette::WindowText),
                         Rgb(palette, QPalette::Base),      Rgb(palette, QPalette::Text),
                         Rgb(palette, QPalette::Highlight), Rgb(palette, QPalette::HighlightedText),
                         Rgb(palette, QPalette::Button)};
  if (values != mixed_from) {
    mixed_from = values;
    mixed = MixedColors(palette);
  }
  return mixed;
}

QColor InkOn(const QColor& stored, const QColor& ground, const Colors& colors) {
  const QColor opaque = MixOf(ground, stored, stored.alphaF());
  const QColor muted = colors.IsDark() ? MixOf(opaque, colors[Role::Dim], 0.36)
                                       : MixOf(opaque, colors[Role::Text], 0.08);
  return MixedUntil(muted, colors[Role::Text], 0.0, ground, kReadableInk);
}

QColor InkCache::Ink(const QColor& stored, const QColor& ground, const Colors& colors) {
  const Key key{stored.rgba(), ground.rgb(), colors[Role::Text].rgb()};
  if (const auto known = inks_.constFind(key); known != inks_.constEnd()) return *known;
  if (inks_.size() >= kMostInks) inks_.clear();
  return *inks_.insert(key, InkOn(stored, ground, colors));
}

}  // namespace tallyfold::desktop
