#pragma once

#include "app/entries/entry_editing.h"
#include "app/entries/entry_sheet.h"
#include "desktop/sheets/edit_dialog.h"

class QLabel;
class QPushButton;

namespace tallyfold {
class TextEditing;
}

namespace tallyfold::desktop {

class SplitTable;
class SuggestionLine;

// The debit sheet and the deposit sheet. Wide with the lines of a split, else narrow.
class EntryDialog final : public EditDialog {
 public:
  // Each must outlive the sheet.
  EntryDialog(const Parts& parts, EntrySheet& sheet, TextEditing& editing, QWidget* window);

  void ShowState() override;
  [[nodiscard]] bool EndEditing() override;

 private:
  using Typed = EntrySheetState::Typed;

  void MakeForm();
  void MakeNumberRow();
  void MakeSplit();
  void Read() override;
  void Begin(const EntrySheetState& state);
  void SetWide(bool is_wide);
  void ShowSuggestion(const EntrySheetState& state);
  void ShowTotal(const EntrySheetState& state);
  void EndDescription();
  void showEvent(QShowEvent* event) override;
  void Painted() override { Entries().Gather(); }
  bool eventFilter(QObject* object, QEvent* event) override;
  [[nodiscard]] bool IsDebit() const { return sheet_.Which() == Sheet::Debit; }

  EntrySheet& sheet_;
  TextEditing& editing_;
  QCheckBox* check_ = nullptr;
  QLineEdit* number_ = nullptr;
  QPushButton* next_ = nullptr;
  QComboBox* type_ = nullptr;
  QPushButton* split_button_ = nullptr;
  QPushButton* clear_all_ = nullptr;
  QLabel* amount_note_ = nullptr;
  SuggestionLine* suggestion_ = nullptr;
  LDGRComboBoxCell* to_from_ = nullptr;
  QWidget* split_panel_ = nullptr;
  SplitTable* split_ = nullptr;
  QPushButton* fill_ = nullptr;
  QLabel* target_ = nullptr;
  QLabel* total_ = nullptr;
  bool is_wide_ = false;
};

}  // namespace tallyfold::desktop
