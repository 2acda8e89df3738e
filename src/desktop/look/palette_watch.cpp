#include "desktop/look/palette_watch.h"

#include <QApplication>
#include <QPixmapCache>
#include <QStyle>
#include <utility>

#include "desktop/look/colors.h"

namespace tallyfold::desktop {
namespace {

// Without a platform theme the palette in force is the style's own.
std::optional<QPalette> PaletteOfPlatform() {
  const QPalette given = QApplication::palette();
  const QPalette own = QApplication::style()->standardPalette();
  const auto differs = [&](QPalette::ColorRole role) {
    return given.color(role).rgb() != own.color(role).rgb();
  };
  const bool is_platforms =
      differs(QPalette::Window) || differs(QPalette::WindowText) || differs(QPalette::Highlight);
  return is_platforms ? std::optional(given) : std::nullopt;
}

}  // namespace

std::optional<QPalette> PaletteToUse(const QPalette* platform, ColorScheme::Wish wish) {
  if (platform != nullptr) return std::nullopt;
  return PaletteOf(wish == ColorScheme::Wish::Dark ? DarkColors() : LightColors());
}

PaletteWatch::PaletteWatch(std::unique_ptr<ColorScheme> scheme)
    : scheme_(std::move(scheme)), platform_(PaletteOfPlatform()) {
  if (scheme_ != nullptr) scheme_->WhenChanged([this] { Apply(); });
  Apply();
}

void PaletteWatch::Apply() {
  const auto wish = scheme_ != nullptr ? scheme_->Current() : ColorScheme::Wish::None;
  if (const auto palette = PaletteToUse(platform_ ? &*platform_ : nullptr, wish)) {
    QPixmapCache::clear();
    QApplication::setPalette(*palette);
  }
}

}  // namespace tallyfold::desktop
