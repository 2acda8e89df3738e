#pragma once

#include "app/accounts/account_editing.h"
#include "desktop/sheets/sheet.h"

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
  // Both must outlive the sheet.
  AccountDialog(AccountEditing& editing, const Desk& desk, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;
  void Cancel() override { editing_.AccountEditSheet_Cancel(); }

 private:
  void MakeGeneral();
  void MakeSecurity();
  void OK();
  void Read();
  void ShowRefused();

  AccountEditing& editing_;
  PageList* pages_;
  Form* general_;
  Form* security_;
  QLineEdit* name_;
  AmountField* balance_;
  QLineEdit* check_number_;
  QLineEdit* password_;
  QLineEdit* again_;
  AccountTypesPage* types_;
  AccountTextsPage* descriptions_;
  AccountTextsPage* to_froms_;

  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
