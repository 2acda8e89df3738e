#pragma once

#include "app/accounts/account_editing.h"
#include "desktop/sheets/sheet.h"

class QLabel;
class QLineEdit;

namespace tallyfold::desktop {

class AccountTextsPage;
class AccountTypesPage;
class AmountField;
class Form;
class PageList;

// An account's name, what it starts with, its password, its types and the texts it offers.
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
  AccountTextsPage* descriptions_;
  AccountTextsPage* to_froms_;

  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
