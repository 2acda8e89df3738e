#pragma once

#include <QTimer>
#include <functional>
#include <optional>
#include <string>

#include "app/exchange/export_commands.h"
#include "app/shell/print_sheet.h"
#include "desktop/print/print_metric.h"
#include "desktop/sheets/sheet.h"
#include "printing/pages.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;

namespace tallyfold::desktop {

class Form;
class PagePreview;
class PageTurner;
class Printers;
class UserSettings;

// What is printed, as it will be on paper, and where to: a printer or a file.
class PrintDialog final : public SheetDialog {
 public:
  // All must outlive the sheet.
  struct Parts {
    PrintSheet& sheet;
    ExportCommands& exports;
    Printers& printers;
    UserSettings& settings;
  };

  PrintDialog(const Parts& parts, QWidget* window);

  void ShowState() override;
  void Cancel() override { parts_.sheet.Close(); }

 private:
  // What pages depend on beside the account.
  struct Wanted {
    bool only_selected = false;
    PrintChoices choices;
    friend bool operator==(const Wanted&, const Wanted&) = default;
  };

  void MakeForm();
  void LayOut();
  QCheckBox* MakeMark(const QString& title, const char* name);
  void Read();
  void MakePages();
  void ShowPages();
  // Whether there are pages, of what is wanted now.
  [[nodiscard]] bool AreReady();
  void Print();
  void SavePdf();

  Parts parts_;
  PrintMetric metric_;
  QLabel* heading_;
  QLabel* facts_;
  Form* form_;
  QRadioButton* all_;
  QRadioButton* selected_;
  QCheckBox* splits_;
  QCheckBox* notes_;
  QComboBox* paper_;
  QComboBox* orientation_;
  QLabel* no_printer_;
  PagePreview* preview_;
  PageTurner* turner_;
  QPushButton* save_ = nullptr;
  QPushButton* print_ = nullptr;
  bool has_printer_;
  std::optional<Wanted> made_for_;
  std::optional<Pages> pages_;
  // Pages are made between events: what makes them may be an operation.
  QTimer making_;
};

}  // namespace tallyfold::desktop
