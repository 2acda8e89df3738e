#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QStyle>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/palette_watch.h"
#include "desktop/look/style.h"

namespace tallyfold::desktop {
namespace {

// Of a desktop with a style of its own.
QPalette ForeignPalette(QRgb window, QRgb text, QRgb base, QRgb accent, QRgb on_accent) {
  QPalette palette;
  for (const auto& [role, color] : {std::pair{QPalette::Window, window},
                                    {QPalette::WindowText, text},
                                    {QPalette::Base, base},
                                    {QPalette::Text, text},
                                    {QPalette::Button, base},
                                    {QPalette::Highlight, accent},
                                    {QPalette::HighlightedText, on_accent}}) {
    palette.setColor(role, QColor(color));
  }
  return palette;
}

// Ours, and those of two such desktops.
std::vector<Colors> AllColors() {
  return {LightColors(), DarkColors(),
          MixedColors(ForeignPalette(0xEFF0F1, 0x232629, 0xFCFCFC, 0x3DAEE9, 0xFCFCFC)),
          MixedColors(ForeignPalette(0x2A2E32, 0xFCFCFC, 0x1B1E20, 0x3DAEE9, 0xFCFCFC))};
}

constexpr Role kRowGrounds[] = {Role::Base, Role::Hover, Role::Selection, Role::InactiveSelection};

TEST(Colors, CanBeReadOnTheirGrounds) {
  struct Case {
    Role ink;
    std::vector<Role> grounds;
    double least;
  };
  const Case cases[] = {
      {Role::Text,
       {Role::Window, Role::Base, Role::Raised, Role::Hover, Role::Selection,
        Role::InactiveSelection, Role::HintFill, Role::ProblemFill, Role::WarningFill,
        Role::GoodFill},
       4.5},
      {Role::Dim,
       {Role::Window, Role::Base, Role::Raised, Role::Hover, Role::Selection,
        Role::InactiveSelection, Role::HintFill},
       4.5},
      {Role::Accent, {Role::Window, Role::Base, Role::Raised, Role::Selection}, 4.5},
      {Role::OnAccent, {Role::Accent}, 4.5},
      {Role::Problem, {Role::ProblemFill, Role::Base, Role::Window}, 4.5},
      {Role::Warning, {Role::WarningFill, Role::Base, Role::Window, Role::Raised}, 4.5},
      {Role::Good, {Role::GoodFill, Role::Base, Role::Window}, 4.5},
      {Role::Edge, {Role::Window, Role::Base}, 3.0},
      {Role::Accent, {Role::InactiveSelection, Role::HintFill}, 3.0},
      {Role::Bar, {Role::Base}, 3.0},
      {Role::NegativeBar, {Role::Base}, 3.0},
      {Role::Off, {Role::Window, Role::Base}, 3.0},
  };
  int scheme = 0;
  for (const Colors& colors : AllColors()) {
    for (const Case& each : cases) {
      for (const Role ground : each.grounds) {
        // To the decimal that contrasts are given in.
        EXPECT_GE(ContrastBetween(colors[each.ink], colors[ground]), each.least - 0.05)
            << static_cast<int>(each.ink) << " on " << static_cast<int>(ground) << " of scheme "
            << scheme;
      }
    }
    // A default button under the pointer, and pressed.
    for (const double share : {0.10, 0.18}) {
      const Role with = colors.IsDark() ? Role::OnAccent : Role::Text;
      EXPECT_GE(ContrastBetween(colors[Role::OnAccent], colors.Mixed(Role::Accent, with, share)),
                4.5)
          << share << " of scheme " << scheme;
    }
    ++scheme;
  }
  const QPalette foreign = ForeignPalette(0xEFF0F1, 0x232629, 0xFCFCFC, 0x3DAEE9, 0xFCFCFC);
  EXPECT_EQ(ColorsOf(foreign)[Role::Window], QColor(0xEFF0F1));
  EXPECT_EQ(ColorsOf(foreign)[Role::Problem], LightColors()[Role::Problem]);
}

TEST(RegisterInks, CanBeReadWhateverColorIsStored) {
  for (const QRgb stored : {0xFFFFFFFFU, 0xFF000000U, 0xFFFFFF00U, 0xFF808080U, 0xFF00FFFFU,
                            0x10FF0000U, 0xFF15191AU}) {
    for (const Colors& colors : AllColors()) {
      for (const Role ground : kRowGrounds) {
        EXPECT_GE(ContrastBetween(InkOn(QColor::fromRgba(stored), colors[ground], colors),
                                  colors[ground]),
                  5.0)
            << std::hex << stored << " on " << static_cast<int>(ground);
      }
    }
  }
}

TEST(Colors, ComeBackFromTheirPalettes) {
  for (const Colors& colors : {LightColors(), DarkColors()}) {
    EXPECT_EQ(ColorsOf(PaletteOf(colors)), colors);
    EXPECT_EQ(IsDark(PaletteOf(colors)), colors.IsDark());
  }
}

TEST(RegisterInks, AreShiftedUntilTheyCanBeRead) {
  struct Case {
    QRgb stored;
    Role ground;
    QRgb light;
    QRgb dark;
  };
  const QRgb debit = QColor::fromRgbF(1.0F, 0.1882F, 0.1608F).rgb();
  const QRgb deposit = QColor::fromRgbF(0.2549F, 0.6392F, 0.0039F).rgb();
  const QRgb transfer = QColor::fromRgbF(0.0F, 0.3922F, 0.9098F).rgb();
  const Case cases[] = {
      {debit, Role::Base, 0xFFCF2D27, 0xFFDE605C},
      {deposit, Role::Base, 0xFF367E0A, 0xFF64A73F},
      {transfer, Role::Base, 0xFF025FD8, 0xFF4E8BD6},
      {debit, Role::Selection, 0xFFB22B26, 0xFFE1A3A1},
      {deposit, Role::Selection, 0xFF306B0F, 0xFF92BF7C},
      {transfer, Role::Selection, 0xFF0459C6, 0xFF92B6DE},
  };
  // Shades so close that no eye tells them apart.
  const auto is_close = [](const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) <= 8 && std::abs(a.green() - b.green()) <= 8 &&
           std::abs(a.blue() - b.blue()) <= 8;
  };
  InkCache cache;
  for (const Case& each : cases) {
    for (const Colors& colors : {LightColors(), DarkColors()}) {
      const QColor ground = colors[each.ground];
      const QColor ink = cache.Ink(QColor(each.stored), ground, colors);
      EXPECT_GE(ContrastBetween(ink, ground), 5.0) << ink.name().toStdString();
      EXPECT_EQ(ink, InkOn(QColor(each.stored), ground, colors));
      EXPECT_EQ(ink, cache.Ink(QColor(each.stored), ground, colors));
      const QColor expected(colors.IsDark() ? each.dark : each.light);
      EXPECT_TRUE(is_close(ink, expected))
          << ink.name().toStdString() << " for " << expected.name().toStdString();
    }
  }
}

TEST(Measures, FollowTheFont) {
  struct Case {
    double font_pixels;
    double factor;
  };
  for (const Case& each : {Case{8, 1.0}, {11, 1.0}, {13, 13.0 / 11}, {22, 2.0}, {0, 1.0}}) {
    EXPECT_DOUBLE_EQ(ColumnFactor(each.font_pixels), each.factor);
  }
  QFont font = QApplication::font();
  int former = 0;
  for (const int points : {6, 9, 10, 14, 24, 40}) {
    font.setPointSize(points);
    const QFontMetrics metrics(font);
    EXPECT_EQ(RowHeight(metrics) % 2, 0);
    EXPECT_GE(RowHeight(metrics), std::max(24, metrics.height() + 9));
    EXPECT_GE(ControlHeight(metrics), std::max(30, metrics.height() + 12));
    EXPECT_GE(RowHeight(metrics), former);
    EXPECT_GE(SmallFont(font).pointSizeF(), 8.5);
    former = RowHeight(metrics);
  }
  for (const auto& [scale, thickness] :
       {std::pair{1.0, 1}, {1.25, 1}, {1.5, 1}, {2.0, 2}, {3.0, 3}, {0.5, 1}}) {
    EXPECT_EQ(RuleThickness(scale), thickness) << scale;
  }
}

TEST(Figures, StandOnDigitsOfOneWidthInAnyFont) {
  for (const char* family : {"Inter", "DejaVu Sans", "no such font"}) {
    const Figures figures(QFont(QLatin1String(family), 10));
    const double width = figures.Width(QStringLiteral("-$1,111.11"));
    for (const char* text : {"-$8,888.88", "-$4,040.17", "-$9,999.99"}) {
      EXPECT_DOUBLE_EQ(figures.Width(QLatin1String(text)), width) << family << text;
    }
  }
  EXPECT_EQ(WithMinus(QStringLiteral("-1-2")), QStringLiteral("\u22121-2"));
  EXPECT_EQ(WithMinus(QString()), QString());
}

TEST(Icons, TakeTheColourOfTheirRoleInThePaletteInForce) {
  const QPalette former = QApplication::palette();
  const auto middle_ink = [](const QIcon& icon, QIcon::Mode mode) {
    // The tick passes its corner at the lowest point of the drawing.
    const QImage image = icon.pixmap(QSize(24, 24), mode).toImage();
    QColor found;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y).alpha() == 255) found = image.pixelColor(x, y);
      }
    }
    return found;
  };
  const QIcon icon = IconNamed(QLatin1String("tick"), Role::Accent);
  for (const Colors& colors : {LightColors(), DarkColors()}) {
    QApplication::setPalette(PaletteOf(colors));
    EXPECT_EQ(middle_ink(icon, QIcon::Normal), colors[Role::Accent]);
    EXPECT_EQ(middle_ink(icon, QIcon::Disabled), colors[Role::Off]);
  }
  QApplication::setPalette(former);
  EXPECT_TRUE(IconNamed(QLatin1String("no such icon")).isNull());
  EXPECT_FALSE(ApplicationIcon().pixmap(48).isNull());
  // Pictures of the toolkit's dialogs are ours where we have one.
  const Style style;
  EXPECT_EQ(style.standardIcon(QStyle::SP_DirIcon, nullptr, nullptr).name(),
            QLatin1String("folder"));
  EXPECT_EQ(style.standardIcon(QStyle::SP_MessageBoxWarning, nullptr, nullptr).name(),
            QLatin1String("warning"));
  EXPECT_FALSE(style.standardIcon(QStyle::SP_MediaPlay, nullptr, nullptr).isNull());
}

class FakeScheme final : public ColorScheme {
 public:
  [[nodiscard]] Wish Current() const override { return wish; }
  void WhenChanged(std::function<void()> changed) override { changed_ = std::move(changed); }
  void Become(Wish other) {
    wish = other;
    if (changed_) changed_();
  }

  Wish wish = Wish::None;

 private:
  std::function<void()> changed_;
};

TEST(Palettes, AreThePlatformsElseAsTheDesktopWishes) {
  using Wish = ColorScheme::Wish;
  const QPalette platform(Qt::darkCyan);
  for (const Wish wish : {Wish::None, Wish::Light, Wish::Dark}) {
    EXPECT_EQ(PaletteToUse(&platform, wish), std::nullopt);
    const auto palette = PaletteToUse(nullptr, wish);
    ASSERT_TRUE(palette.has_value());
    EXPECT_EQ(IsDark(*palette), wish == Wish::Dark);
  }
  const QPalette former = QApplication::palette();
  QApplication::setPalette(QApplication::style()->standardPalette());
  {
    auto owned = std::make_unique<FakeScheme>();
    FakeScheme& scheme = *owned;
    const PaletteWatch watch(std::move(owned));
    EXPECT_EQ(ColorsOf(QApplication::palette()), LightColors());
    scheme.Become(Wish::Dark);
    EXPECT_EQ(ColorsOf(QApplication::palette()), DarkColors());
    scheme.Become(Wish::None);
    EXPECT_EQ(ColorsOf(QApplication::palette()), LightColors());
  }
  QApplication::setPalette(former);
}

}  // namespace
}  // namespace tallyfold::desktop
