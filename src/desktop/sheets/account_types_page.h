#pragma once

#include <QWidget>
#include <functional>

#include "app/accounts/account_editing.h"

class QComboBox;
class QPushButton;
class QTableWidget;

namespace tallyfold::desktop {

// The entry types of the account that the account sheet is open for: their names and kinds, and
// those that new entries begin with.
class AccountTypesPage final : public QWidget {
 public:
  // `editing` must outlive the page.
  AccountTypesPage(AccountEditing& editing, QWidget* parent);

  // As the sheet has them.
  void Show();
  // Takes over a name that is still being typed.
  void EndEditing();

 private:
  using Typed = AccountEditSheetState::Typed;

  void Change(const std::function<void(Typed&)>& change);
  void Add();
  void TakeOut();
  void SetKind(int kind);
  void ShowButtons();

  AccountEditing& editing_;
  QTableWidget* table_;
  QComboBox* kind_;
  QPushButton* take_out_;
  QComboBox* debit_;
  QComboBox* deposit_;
};

}  // namespace tallyfold::desktop
