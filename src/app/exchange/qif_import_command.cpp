#include "app/exchange/qif_import_command.h"

#include "exchange/import_content.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/file_system.h"

namespace tallyfold {

bool QifImportCommand::Begin() {
  speaker_.StopSpeech();
  has_refused_ = false;
  if (desk_.SelectedAccount() == nullptr || !desk_.IsUnlocked() || !sheets_.IsFree() ||
      import_.IsRunning()) {
    return false;
  }
  until_next_tick_ = idle_.Pause();
  menu_.Populate(encodings_);
  menu_.setEncoding(desk_.SelectedAccount()->GetQIFImportEncoding());
  return true;
}

namespace {

// Files that are read as QIF although nothing speaks for it have an empty review, which says so.
bool IsForQif(ImportContent content) noexcept {
  return content == ImportContent::Qif || content == ImportContent::Empty ||
         content == ImportContent::Foreign;
}

}  // namespace

bool QifImportCommand::IsStatement(const std::string& path) const {
  const auto contents = files_.Read(path);
  if (!contents) return false;
  const ImportContent content = ContentOf(contents->view());
  return !IsForQif(content) && RefusalOf(content).empty();
}

void QifImportCommand::Refuse(std::string_view why) {
  has_refused_ = true;
  static_cast<void>(
      alerts_.Run({LocalizedText("Import"), LocalizedText(why), {LocalizedText("OK")}}));
}

bool QifImportCommand::Run(const std::string& path) {
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return false;
  auto contents = files_.Read(path);
  const ImportContent content = contents ? ContentOf(contents->view()) : ImportContent::Qif;
  if (!IsForQif(content)) {
    if (const std::string_view refusal = RefusalOf(content); !refusal.empty()) {
      Refuse(refusal);
      return false;
    }
    const bool is_chosen =
        menu_.selected() != kNoItem && menu_.encoding() != account->GetQIFImportEncoding();
    import_.StatementOptions_InitWithFile(
        path, *std::move(contents), is_chosen ? std::optional(menu_.encoding()) : std::nullopt);
    return import_.Run();
  }
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
