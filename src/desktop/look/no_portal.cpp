#include "desktop/look/palette_watch.h"

namespace tallyfold::desktop {

std::unique_ptr<ColorScheme> PortalColorScheme() {
  return nullptr;
}

}  // namespace tallyfold::desktop
