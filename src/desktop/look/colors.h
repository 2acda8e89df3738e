#pragma once

#include <QColor>
#include <QHash>
#include <QPalette>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tallyfold::desktop {

// What a colour is for. Nothing in the window names a colour in any other way.
enum class Role : std::uint8_t {
  Window,             // bars, drawer, sheets
  Base,               // pages, tables, fields
  Raised,             // buttons, menus, pop-ups
  Text,               // all first-rank text
  Dim,                // captions, labels, headers, glyphs
  Off,                // disabled text and icons
  Hair,               // rules between rows
  Rule,               // rules between areas and months, frames of tables
  Edge,               // outline of fields and check boxes
  Accent,             // focus, marks, current tab, default button, links
  OnAccent,           // text on accent
  Selection,          // selected row with the focus
  InactiveSelection,  // and without it
  Hover,              // row under the pointer
  Problem,
  ProblemFill,
  Warning,
  WarningFill,
  Good,
  GoodFill,
  HintFill,
  Bar,          // bars of summaries to the right
  NegativeBar,  // and to the left
};
inline constexpr std::size_t kRoleCount = static_cast<std::size_t>(Role::NegativeBar) + 1;

// A colour for each role.
class Colors {
 public:
  [[nodiscard]] const QColor& operator[](Role role) const noexcept {
    return colors_[static_cast<std::size_t>(role)];
  }
  void Set(Role role, const QColor& color) noexcept {
    colors_[static_cast<std::size_t>(role)] = color;
  }
  [[nodiscard]] bool IsDark() const noexcept;
  // The colour of `role` with that share of the colour `with` in it.
  [[nodiscard]] QColor Mixed(Role role, Role with, double share) const;
  // The outline of a button.
  [[nodiscard]] QColor ButtonOutline() const { return Mixed(Role::Rule, Role::Text, 0.12); }

  friend bool operator==(const Colors&, const Colors&) = default;

 private:
  std::array<QColor, kRoleCount> colors_;
};

// The W3C's measure, 1 to 21; the order of the two has no effect.
[[nodiscard]] double ContrastBetween(const QColor& a, const QColor& b);
// `share` (0 to 1) of `with` in `color`, each part rounded.
[[nodiscard]] QColor MixOf(const QColor& color, const QColor& with, double share);

[[nodiscard]] const Colors& LightColors();
[[nodiscard]] const Colors& DarkColors();
// What a palette of somebody else's comes to: window, base, text and accent from its roles, the
// rest mixed from them until it can be read.
[[nodiscard]] Colors MixedColors(const QPalette& palette);

[[nodiscard]] QPalette PaletteOf(const Colors& colors);
// The colours behind a palette: ours for one of ours, mixed for any other. The reference is good
// until the next call with a palette of other colours.
[[nodiscard]] const Colors& ColorsOf(const QPalette& palette);
[[nodiscard]] bool IsDark(const QPalette& palette);

// A stored register colour as it is drawn on a ground: toward the text until it can be read there.
[[nodiscard]] QColor InkOn(const QColor& stored, const QColor& ground, const Colors& colors);

// Keeps what InkOn() answered. What it is asked for decides alone, so that an answer is never
// stale.
class InkCache {
 public:
  [[nodiscard]] QColor Ink(const QColor& stored, const QColor& ground, const Colors& colors);
  void Clear() { inks_.clear(); }

 private:
  struct Key {
    QRgb stored;
    QRgb ground;
    QRgb text;
    friend bool operator==(const Key&, const Key&) = default;
    friend size_t qHash(const Key& key, size_t seed) {
      return qHashMulti(seed, key.stored, key.ground, key.text);
    }
  };
  QHash<Key, QColor> inks_;
};

}  // namespace tallyfold::desktop
