#pragma once

#include <functional>

#include "desktop/look/palette_watch.h"

namespace tallyfold::desktop {

// The colours that a picture is taken in, whatever this computer likes.
class WishedColors final : public ColorScheme {
 public:
  explicit WishedColors(bool is_dark) : wish_(is_dark ? Wish::Dark : Wish::Light) {}
  [[nodiscard]] Wish Current() const override { return wish_; }
  void WhenChanged(std::function<void()>) override {}

 private:
  Wish wish_;
};

}  // namespace tallyfold::desktop
