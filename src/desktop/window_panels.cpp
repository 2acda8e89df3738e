#include "desktop/window_panels.h"

#include "app/controller.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/sheets/export_rows.h"

namespace tallyfold::desktop {

void SetUpPanels(QtFilePanels& panels, LDGRController& app) {
  panels.SetAccessory(PanelAccessory::QifExport, [&app](QWidget* panel) {
    return MakeQifExportRows(app.exports().sharedQIFExportAccessoryView(), panel);
  });
  panels.SetAccessory(PanelAccessory::TextExport, [&app](QWidget* panel) {
    return MakeTextExportRows(app.exports().exportAccessoryManager(), panel);
  });
  panels.SetAccessory(PanelAccessory::QifImport, [&app](QWidget* panel) {
    return MakeImportRows(app.importCommand().Encodings(), panel);
  });
}

}  // namespace tallyfold::desktop
