#pragma once

#include <array>

#include "app/exchange/qif_import_controller.h"
#include "desktop/sheets/sheet.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tallyfold::desktop {

class Chip;
class FileLines;
class ImportHead;
class ProofRows;
class QuestionBar;

// The options of an import of a bank's file: those that apply to it, what it asks, the lines of a
// table, what the balances prove, and the first entries as they will come in.
class StatementSheet final : public SheetDialog {
 public:
  // `import` must outlive the sheet.
  StatementSheet(LDGRQIFImportController& import, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  struct Shown {
    StatementSetting setting;
    QWidget* whole;  // with its label
    QComboBox* pop_up;
  };

  void LayOut();
  void Connect();
  [[nodiscard]] QComboBox* AddPopUp(const QString& title, const char* name, QWidget* whole);
  void Choose(StatementSetting setting, std::int32_t value);
  void ReadChecks();
  void ShowFacts();
  void ShowSettings();
  void ShowQuestions();
  [[nodiscard]] QString TextOfQuestion(const StatementQuestion& question) const;
  [[nodiscard]] QStringList AnswersTo(const StatementQuestion& question) const;
  void ShowLines();
  void ShowProof();
  // False where there are none.
  bool ShowLeftOut();

  LDGRQIFImportController& import_;
  ImportHead* head_;
  QWidget* account_row_;
  QComboBox* account_ = nullptr;
  std::vector<Shown> settings_;
  QVBoxLayout* question_lines_;
  std::vector<QuestionBar*> questions_;  // more than are asked where fewer are than before
  FileLines* lines_;
  std::size_t shown_reading_ = 0;  // see StatementOptionsState::reading
  QWidget* proof_;
  QLabel* proof_icon_;
  QLabel* proof_text_;
  Chip* disagreeing_;
  Chip* left_out_;
  ProofRows* rows_;
  QCheckBox* types_;
  QCheckBox* spending_;
  QCheckBox* zero_;
  QPushButton* ok_ = nullptr;
};

}  // namespace tallyfold::desktop
