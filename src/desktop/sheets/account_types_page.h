#pragma once

#include <QWidget>
#include <functional>

#include "app/accounts/account_editing.h"

class QComboBox;
class QPushButton;

namespace tallyfold::desktop {

class LookTable;
class TakeFromButton;

// The entry types of the account that the account sheet is open for: their names and kinds, how
// many entries have them, whether they are in use, and those that new entries begin with.
class AccountTypesPage final : public QWidget {
 public:
  // Each must outlive the page.
  AccountTypesPage(AccountEditing& editing, const Desk& desk, QWidget* parent);

  // As the sheet has them.
  void Show();
  // Takes over a name that is still being typed.
  void EndEditing();
  // The row that a refused OK is about comes before the user.
  void GoTo(int row);

 private:
  using Typed = AccountEditSheetState::Typed;

  void MakeTable();
  void MakeDefaults();
  void Change(const std::function<void(Typed&)>& change);
  void Add();
  // -1 for none.
  [[nodiscard]] int ChosenRow() const;
  void ShowButtons();

  AccountEditing& editing_;
  LookTable* table_;
  QPushButton* take_out_;
  QPushButton* bring_back_;
  TakeFromButton* take_from_;
  QComboBox* debit_ = nullptr;
  QComboBox* deposit_ = nullptr;
};

}  // namespace tallyfold::desktop
