#include "app/exchange/qif_import_command.h"

#include "ledger/change.h"
#include "platform/ambient.h"

namespace tallyfold {

bool QifImportCommand::Begin() {
  speaker_.StopSpeech();
  if (desk_.SelectedAccount() == nullptr || !desk_.IsUnlocked() || !sheets_.IsFree() ||
      import_.IsRunning()) {
    return false;
  }
  until_next_tick_ = idle_.Pause();
  menu_.Populate(encodings_);
  menu_.setEncoding(desk_.SelectedAccount()->GetQIFImportEncoding());
  return true;
}

bool QifImportCommand::Run(const std::string& path) {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return false;
  Change change(ledger_);
  change.EditSettings(account).SetQIFImportEncoding(menu_.encoding());
  change.Close();
  import_.ImportOptions_InitWithFile(path, menu_.encoding());
  return import_.Run();
}

bool QifImportCommand::QIFImport() {
  const Announcer::Operation operation(announcer_);
  if (!Begin()) return false;
  const auto path = panels_.Open({.title = LocalizedText("Import"),
                                  .button = LocalizedText("Import"),
                                  .accessory = PanelAccessory::QifImport});
  if (path && Run(*path)) return true;
  Ended();
  return false;
}

bool QifImportCommand::QIFImportFile(const std::string& path) {
  const Announcer::Operation operation(announcer_);
  if (!Begin()) return false;
  if (Run(path)) return true;
  Ended();
  return false;
}

void QifImportCommand::Ended() {
  const Announcer::Operation operation(announcer_);
  refresh_.ImportEnded();
  if (tabs_.State().selected == Tab::Summary) summary_.Show();
  refresh_.AccountsList_Redraw();
  idle_.Resume(until_next_tick_);
}

}  // namespace tallyfold
