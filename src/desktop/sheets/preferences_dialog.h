#pragma once

#include <string>
#include <vector>

#include "app/face/pop_up_item.h"
#include "app/shell/preferences_sheet.h"
#include "desktop/sheets/setting_fields.h"
#include "desktop/sheets/sheet.h"

class QLineEdit;

namespace tallyfold::desktop {

class Form;
class InkSample;
class PageList;
class PreferencesSampleTable;

// Every setting, by pages, and the password of the application.
class PreferencesDialog final : public SheetDialog {
 public:
  // What the pop-ups offer that the core knows; tags are what the settings store.
  struct Items {
    std::vector<PopUpItem> accounts;
    std::vector<PopUpItem> balance_modes;
    std::vector<PopUpItem> export_accounts;
    std::vector<PopUpItem> encodings;
    // Titles of the formats that PreferencesSheet takes for the export, in that order.
    std::vector<PopUpItem> export_date_formats;
  };

  // `sheet` must outlive the dialog.
  PreferencesDialog(PreferencesSheet& sheet, const Items& items, QWidget* window);

  void ShowState() override;
  void Cancel() override { sheet_.Cancel(); }

 private:
  // `below` stands below the fields; null for nothing.
  Form& AddPage(std::string_view identifier, const QString& title, QWidget* below = nullptr);
  void AddEntries();
  void AddWindow(const Items& items);
  void AddRegisters();
  void AddFormats();
  void AddSchedules();
  void AddSpeech();
  void AddFiles(const Items& items);
  void AddSecurity();
  void ReadPasswords();
  void ShowSample();
  void OK();

  PreferencesSheet& sheet_;
  SettingFields fields_;
  PageList* pages_;
  std::vector<Form*> forms_;
  QLineEdit* password_ = nullptr;
  QLineEdit* again_ = nullptr;
  PreferencesSampleTable* rows_sample_;
  PreferencesSampleTable* formats_sample_;
  // Of debits, deposits and transfers.
  std::vector<InkSample*> inks_;
  QPushButton* defaults_;
  QPushButton* ok_;
};

}  // namespace tallyfold::desktop
