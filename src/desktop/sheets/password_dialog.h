#pragma once

#include <functional>
#include <string>

#include "app/face/password_sheet_state.h"
#include "desktop/sheets/sheet.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace tallyfold::desktop {

class MarkedLine;

// Asks for the password of the application or of an account. OK can only be pressed with the right
// one.
class PasswordDialog final : public SheetDialog {
 public:
  struct Parts {
    // Names of the controls: "authenticationSheet" or "accountAuthenticationSheet".
    QString name;
    QString heading;
    // Where the state has no title.
    QString sentence;
    QString cancel;
    std::function<const PasswordSheetState&()> state;
    std::function<void(const std::string& typed)> typed;
    std::function<void()> ok;
    std::function<void()> cancelled;
  };

  PasswordDialog(Parts parts, QWidget* window);

  void ShowState() override;
  void Cancel() override { parts_.cancelled(); }

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void MakeCapsLine(const QString& name);

  Parts parts_;
  QLabel* title_;
  QLineEdit* field_;
  MarkedLine* caps_;
  QPushButton* ok_;
};

}  // namespace tallyfold::desktop
