#pragma once

#include "app/accounts/account_editing.h"
#include "desktop/sheets/sheet.h"

class QLabel;
class QLineEdit;

namespace tallyfold::desktop {

class AccountTypesPage;
class AmountField;
class Form;
class PageList;

// An account's name, what it starts with, its password and its types. Its lists of texts stay as
// they are.
class AccountDialog final : public SheetDialog {
 public:
  // `editing` must outlive the sheet.
  AccountDialog(AccountEditing& editing, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;
  void Cancel() override { editing_.AccountEditSheet_Cancel(); }

 private:
  void Read();
  void ShowRefused();

  AccountEditing& editing_;
  PageList* pages_;
  Form* form_;
  QLineEdit* name_;
  AmountField* balance_;
  QLineEdit* check_number_;
  QLineEdit* password_;
  QLineEdit* again_;
  QLabel* note_;
  AccountTypesPage* types_;

  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
