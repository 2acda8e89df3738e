#pragma once

#include <QTimer>

#include "app/exchange/qif_import_controller.h"
#include "desktop/sheets/sheet.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tallyfold::desktop {

class Form;
class ImportHead;
class LookTable;
class ProofRows;

// The options of an import of a QIF file with a proof of what they make of the file.
class ImportOptionsSheet final : public SheetDialog {
 public:
  // `import` must outlive the sheet.
  ImportOptionsSheet(LDGRQIFImportController& import, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  using SwapPopUp = LDGRQIFImportController::SwapPopUp;

  void MakeForm();
  void MakeProof();
  void Connect();
  [[nodiscard]] QComboBox* MakeSwap(const QString& label, const char* name, SwapPopUp which);
  // Fields to the state, and the proof anew after a while.
  void Read();
  void ShowProof();
  void ShowFormats(const QifImportProof& proof);
  void ShowSamples(const QifImportProof& proof);

  LDGRQIFImportController& import_;
  QTimer proof_timer_;
  QifImportProof proof_;
  ImportHead* head_;
  Form* form_;
  QComboBox* account_;
  QComboBox* format_;
  QLineEdit* decimal_;
  QLineEdit* thousands_;
  QRadioButton* as_deposits_;
  QRadioButton* as_debits_;
  QCheckBox* types_;
  QCheckBox* splits_;
  QComboBox* categories_ = nullptr;
  QComboBox* payees_ = nullptr;
  QComboBox* memos_ = nullptr;
  LookTable* encodings_;
  QLabel* formats_caption_;
  LookTable* formats_;
  ProofRows* rows_;
  QPushButton* ok_ = nullptr;
};

}  // namespace tallyfold::desktop
