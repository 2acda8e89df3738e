#pragma once

#include <QWidget>

#include "desktop/register/entry_details.h"
#include "filters/register_search.h"
#include "model/account_entry.h"

class QPushButton;

namespace tallyfold {
class AccountSelection;
class Desk;
class EntryEditing;
class Registers;
class ShownEntries;
}  // namespace tallyfold

namespace tallyfold::desktop {

class DetailsLine;
class EmptyPage;
class RegisterView;

// A register with its details line, and what stands in its place while it has no rows.
class RegisterPage final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    Registers& registers;
    ShownEntries& shown;
    EntryEditing& editing;
    const AccountSelection& selection;
    const Desk& desk;
  };
  RegisterPage(RegisterKind kind, const Parts& parts, QWidget* parent);

  // Another line above the table.
  void AddAbove(QWidget* widget);
  void Show();
  void ShowDetails();
  // Whether there is a line for them; at first there is.
  void SetHasDetails(bool has_details);
  // The entries of the selected rows, in the order of the rows.
  [[nodiscard]] EntryList SelectedEntries() const;
  // Selects the rows of those entries, the last of them the current one; those that are not shown
  // are left out.
  void SelectEntries(const EntryList& entries);
  // Draws everything as the preferences want it now.
  void ShowLook();
  void FocusTable();
  [[nodiscard]] RegisterView* Table() const noexcept { return table_; }

 signals:
  // What the buttons of an empty register order.
  void EntryWanted();
  void ImportWanted();
  void ExampleWanted();
  // And those of a window without an account.
  void AccountWanted();
  void UnlockWanted();
  // What keys, clicks and the menu of the selected row order.
  void EditWanted();
  void RemoveWanted();
  void MarkAndMoveOnWanted();
  void RowMenuWanted(const QPoint& place);
  // Other rows are selected than before.
  void SelectionChanged();
  // The user is done with the rows.
  void Left();

 private:
  void FillEmptyPages();
  void ConnectTable();
  void TurnMark(int row);

  const RegisterKind kind_;
  Parts parts_;
  EntryDetails glyphs_;
  RegisterView* table_;
  DetailsLine* details_;
  EmptyPage* first_;
  EmptyPage* hidden_;
  EmptyPage* none_;
  EmptyPage* locked_;
  QPushButton* show_all_;
  QPushButton* unlock_;
};

}  // namespace tallyfold::desktop
