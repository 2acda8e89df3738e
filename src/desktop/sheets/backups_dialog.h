#pragma once

#include "app/shell/backups_sheet.h"
#include "desktop/sheets/sheet.h"

class QLabel;

namespace tallyfold::desktop {

class LookTable;

// The backups and kept copies, what is in each and what differs from now; any can be restored.
class BackupsDialog final : public SheetDialog {
 public:
  // `backups` must outlive the sheet.
  BackupsDialog(BackupsSheet& backups, QWidget* window);

  void ShowState() override;
  void Cancel() override { backups_.Close(); }

 private:
  void MakeTables();
  void MakeButtons();
  void ShowRows();
  void ShowAccounts();
  void ShowLines();

  BackupsSheet& backups_;
  QLabel* note_;
  LookTable* list_;
  LookTable* accounts_;
  LookTable* lines_;
  QLabel* done_;
  QPushButton* restore_ = nullptr;
};

}  // namespace tallyfold::desktop
