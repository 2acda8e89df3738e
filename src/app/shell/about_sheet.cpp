#include "app/shell/about_sheet.h"

#include "platform/ambient.h"

namespace tallyfold {

bool AboutSheet::Open() {
  const Announcer::Operation operation(announcer_);
  if (!sheets_.Open(Sheet::About, [this] { Close(); })) return false;
  state_ = {.is_open = true,
            .version = host_.BundleVersion(),
            .license = LocalizedText("Free software under the MIT license"),
            .accounts_file = store_.Paths().accounts_file,
            .backup_folder = store_.Paths().backup_folder};
  announcer_.Changed(Area::AboutSheet);
  return true;
}

void AboutSheet::Close() {
  if (!state_.is_open) return;
  const Announcer::Operation operation(announcer_);
  state_ = AboutState();
  announcer_.Changed(Area::AboutSheet);
  sheets_.Close(Sheet::About);
}

}  // namespace tallyfold
