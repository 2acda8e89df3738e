#pragma once

#include <QDialog>

#include "registers/table_state.h"

class QLabel;
class QLineEdit;

namespace tallyfold {
class Desk;
class EntryFind;
}  // namespace tallyfold

namespace tallyfold::desktop {

class RegisterView;

// Looks for entries in all accounts, and goes to the one that is chosen.
class FindPanel final : public QDialog {
 public:
  // Both must outlive this.
  FindPanel(EntryFind& find, const Desk& desk, QWidget* window);
  ~FindPanel() override;

  void Show();

 private:
  // The entries found as rows.
  class Rows final : public TableDataSource {
   public:
    Rows(EntryFind& find, const Desk& desk) noexcept : find_(find), desk_(desk) {}
    [[nodiscard]] std::size_t numberOfRowsInTableView() const override;
    [[nodiscard]] TableCell tableView(std::string_view column, std::size_t row) const override;
    [[nodiscard]] RowLook LookOfRow(std::size_t row) const override;
    [[nodiscard]] std::string SpeakableRow(std::size_t row) const override;

   private:
    EntryFind& find_;
    const Desk& desk_;
  };

  void Find();
  void ShowFound();
  void GoTo(int row);
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void reject() override;

  EntryFind& find_;
  const Desk& desk_;
  Rows rows_;
  TableState table_;
  QLineEdit* text_;
  RegisterView* view_;
  QLabel* count_;
};

}  // namespace tallyfold::desktop
