#include "app/controller.h"
#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_date_items.h"
#include "app/exchange/qif_export_accessory_view.h"
#include "app/shell/about_sheet.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "app/views/balance_field.h"
#include "desktop/sheets/about_dialog.h"
#include "desktop/sheets/backups_dialog.h"
#include "desktop/sheets/preferences_dialog.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/texts.h"
#include "desktop/window_sheets.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

PreferencesDialog::Items ItemsOfPreferences(LDGRController& app) {
  constexpr std::int32_t kNoAccount = -1;
  const auto& accounts = app.desk().accounts();
  PreferencesDialog::Items items;
  items.accounts = {{ToUtf8(Text("None")), kNoAccount}};
  for (const auto& each : accounts) items.accounts.push_back({each->GetName(), each->GetNumber()});
  items.balance_modes = app.balanceField().State().mode_items;
  LDGRQIFExportAccessoryView choices;
  choices.populateExportAccountsButton(&accounts);
  items.export_accounts = choices.exportAccounts();
  items.export_accounts.insert(
      items.export_accounts.begin(),
      {ToUtf8(Text("Account that shows")), LDGRQIFExportAccessoryView::kCurrentAccount});
  items.encodings = app.exports().OfferedEncodings().items();
  items.export_date_formats = QifDateItems();
  return items;
}

}  // namespace

void SetUpPreferenceSheets(SheetHost& host, LDGRController& app,
                           const std::function<void()>& open_help) {
  host.Set(Sheet::Backups,
           [&app](QWidget* window) { return new BackupsDialog(app.backupsSheet(), window); });
  host.Set(Sheet::About, [&app, open_help](QWidget* window) {
    return new AboutDialog(app.about(), open_help, window);
  });
  host.Set(Sheet::Preferences, [&app](QWidget* window) {
    return new PreferencesDialog(app.preferencesSheet(), ItemsOfPreferences(app), window);
  });
}

}  // namespace tallyfold::desktop
