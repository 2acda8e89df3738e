#pragma once

#include "app/entries/transfer_sheet.h"
#include "desktop/sheets/edit_dialog.h"

class QLabel;

namespace tallyfold::desktop {

class BalanceCard;

// The transfer sheet, and what the transfer comes to.
class TransferDialog final : public EditDialog {
 public:
  // Each must outlive the sheet.
  TransferDialog(const Parts& parts, TransferSheet& sheet, QWidget* window);

  void ShowState() override;

 private:
  void Read() override;
  void ShowCard();

  TransferSheet& sheet_;
  QComboBox* direction_;
  QComboBox* account_;
  QLabel* note_;
  BalanceCard* card_;
};

}  // namespace tallyfold::desktop
