#pragma once

#include <functional>

#include "app/shell/about_sheet.h"
#include "desktop/sheets/sheet.h"

class QPlainTextEdit;

namespace tallyfold::desktop {

// What the program is, which version, and where it keeps the user's files.
class AboutDialog final : public SheetDialog {
 public:
  // `about` must outlive the sheet. `open_help` shows the guide.
  AboutDialog(AboutSheet& about, const std::function<void()>& open_help, QWidget* window);

  void ShowState() override {}
  void Cancel() override { about_.Close(); }

 private:
  void MakeLicense();

  AboutSheet& about_;
  // Out of sight until it is asked for.
  QPlainTextEdit* license_;
};

}  // namespace tallyfold::desktop
