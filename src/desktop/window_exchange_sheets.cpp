#include "app/controller.h"
#include "app/desk.h"
#include "desktop/sheets/import_options_sheet.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/sheets/statement_sheet.h"
#include "desktop/sheets/summary_options_sheet.h"
#include "desktop/tabs/summary_page.h"
#include "desktop/window_sheets.h"

namespace tallyfold::desktop {

void SetUpExchangeSheets(SheetHost& host, LDGRController& app) {
  host.Set(Sheet::ImportOptions, [&app](QWidget* window) -> SheetDialog* {
    auto& import = app.sharedQIFImportController();
    if (import.IsStatement()) return new StatementSheet(import, window);
    return new ImportOptionsSheet(import, window);
  });
  host.Set(Sheet::AccountSummary, [&app](QWidget* window) {
    return new SummaryOptionsSheet(
        {.sheet = app.summarySheet(),
         .desk = app.desk(),
         .make_page = [](QWidget* parent) { return new SummaryPage(parent); },
         .show_page =
             [&app](QWidget* page, const SummaryLayout& layout) {
               static_cast<SummaryPage*>(page)->Show(layout, app.desk().preferences());
             }},
        window);
  });
}

}  // namespace tallyfold::desktop
