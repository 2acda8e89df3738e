#include "app/controller.h"
#include "desktop/print/kept_choices.h"
#include "desktop/print/print_dialog.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/window_sheets.h"

namespace tallyfold::desktop {

void SetUpPrintSheet(SheetHost& host, LDGRController& app, Printers& printers,
                     UserSettings& settings) {
  app.printSheet().SetChoices(KeptChoices(settings));
  host.Set(Sheet::Print, [&app, &printers, &settings](QWidget* window) {
    return new PrintDialog({app.printSheet(), app.exports(), printers, settings}, window);
  });
}

}  // namespace tallyfold::desktop
