#pragma once

#include <QPalette>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tallyfold::desktop {

// What the desktop says of light and dark beside its palette.
class ColorScheme {
 public:
  enum class Wish : std::uint8_t { None, Light, Dark };
  virtual ~ColorScheme() = default;
  [[nodiscard]] virtual Wish Current() const = 0;
  // Called whenever the wish has changed; replaces the former one.
  virtual void WhenChanged(std::function<void()> changed) = 0;
};

// The setting of the desktop's portal; null where there is none to ask.
[[nodiscard]] std::unique_ptr<ColorScheme> PortalColorScheme();

// The palette to put in force; none to leave the platform's own, which then is followed by the
// toolkit. `platform` is null where the platform has no palette of its own.
[[nodiscard]] std::optional<QPalette> PaletteToUse(const QPalette* platform,
                                                   ColorScheme::Wish wish);

// Puts our colours in force where the desktop has none of its own, light or dark as it wishes, and
// follows that wish. One for the life of the application object.
class PaletteWatch {
 public:
  // To be made before anything else has set a palette. Null for a desktop that says nothing.
  explicit PaletteWatch(std::unique_ptr<ColorScheme> scheme);
  PaletteWatch(const PaletteWatch&) = delete;
  PaletteWatch& operator=(const PaletteWatch&) = delete;

 private:
  void Apply();

  std::unique_ptr<ColorScheme> scheme_;
  std::optional<QPalette> platform_;
};

}  // namespace tallyfold::desktop
