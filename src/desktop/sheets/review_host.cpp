#include "desktop/sheets/review_host.h"

#include <QWidget>

#include "app/exchange/qif_import_controller.h"
#include "desktop/sheets/sheet_host.h"

namespace tallyfold::desktop {

void ReviewHost::Show() {
  if (!parts_.import.IsReviewing()) {
    if (sheet_ == nullptr) return;
    const bool had_keys = sheet_->isActiveWindow();
    sheets_.SetOver(nullptr);
    sheet_->hide();
    // It may be one of its own buttons that is pressed.
    sheet_->deleteLater();
    sheet_ = nullptr;
    if (had_keys) window_.activateWindow();
    return;
  }
  if (sheet_ != nullptr) return sheet_->ShowState();
  sheet_ = new ReviewSheet(parts_, &window_);
  sheets_.SetOver(sheet_);
  sheet_->addActions(sheets_.Actions());
  sheet_->Open();
}

void ReviewHost::Raise() {
  sheet_->raise();
  sheet_->activateWindow();
}

}  // namespace tallyfold::desktop
