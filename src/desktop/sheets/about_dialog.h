#pragma once

#include "app/shell/about_sheet.h"
#include "desktop/sheets/sheet.h"

class QVBoxLayout;

namespace tallyfold::desktop {

// What the program is, which version, and where it keeps the user's files.
class AboutDialog final : public SheetDialog {
 public:
  // `about` must outlive the sheet.
  AboutDialog(AboutSheet& about, QWidget* window);

  void ShowState() override {}
  void Cancel() override { about_.Close(); }

 private:
  AboutSheet& about_;
};

}  // namespace tallyfold::desktop
