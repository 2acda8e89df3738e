#pragma once

#include <QWidget>

#include "filters/register_search.h"

class QPushButton;

namespace tallyfold {
class AccountsStore;
class Desk;
class EntryEditing;
class Registers;
}  // namespace tallyfold

namespace tallyfold::desktop {

class DetailsLine;
class EmptyPage;
class PlainTable;

// A register with its details line, and what stands in its place while it has no rows.
class RegisterPage final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    Registers& registers;
    RegisterSearch& search;
    const Desk& desk;
  };
  RegisterPage(RegisterKind kind, const Parts& parts, QWidget* parent);

  // Another line above the table.
  void AddAbove(QWidget* widget);
  void Show();
  void ShowDetails();
  void FocusTable();
  [[nodiscard]] PlainTable* Table() const noexcept { return table_; }

 signals:
  // What the buttons of an empty register order.
  void EntryWanted();
  void ImportWanted();
  void ExampleWanted();
  // The row is to be edited; it is the selected one.
  void EditWanted();

 private:
  void ShowNothingFound(std::size_t hidden);

  const RegisterKind kind_;
  Parts parts_;
  PlainTable* table_;
  DetailsLine* details_;
  EmptyPage* first_;
  EmptyPage* hidden_;
  QPushButton* show_all_;
};

}  // namespace tallyfold::desktop
