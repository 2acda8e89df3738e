#include "desktop/sheets/sheet_host.h"

#include "app/face/sheet_slot.h"
#include "desktop/sheets/sheet.h"

namespace tallyfold::desktop {

void SheetHost::Show() {
  const Sheet wanted = slot_.Current();
  if (wanted == shown_) {
    if (dialog_) dialog_->ShowState();
    return;
  }
  shown_ = wanted;
  if (dialog_) {
    const bool had_keys = dialog_->isActiveWindow();
    dialog_->hide();
    // It may be one of its own buttons that is pressed.
    dialog_->deleteLater();
    dialog_ = nullptr;
    // Not every window manager gives them to the window below.
    if (had_keys) Below().activateWindow();
  }
  if (wanted == Sheet::None) return;
  dialog_ = makers_.at(wanted)(&Below());
  dialog_->addActions(actions_);
  dialog_->Open();
}

bool SheetHost::EndEditing(Sheet sheet) {
  return sheet != shown_ || dialog_ == nullptr || dialog_->EndEditing();
}

void SheetHost::Raise() {
  if (dialog_ == nullptr) return;
  dialog_->raise();
  dialog_->activateWindow();
}

}  // namespace tallyfold::desktop
