#include "app/exchange/export_commands.h"

#include "exchange/export_options.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/file_system.h"
#include "platform/message.h"
#include "platform/progress.h"
#include "platform/text_encodings.h"
#include "storage/own_files.h"
#include "storage/preferences.h"
#include "storage/save_failure.h"

namespace tallyfold {

void ExportCommands::export_MenuItem(std::int32_t tag) {
  if (tag == kQifItem) ExportQIF();
  if (tag == kTextItem) ExportText();
}

std::shared_ptr<LDGRAccount> ExportCommands::AccountToWrite() {
  speaker_.StopSpeech();
  return desk_.IsUnlocked() ? desk_.SelectedAccount() : nullptr;
}

// --- QIF ----------------------------------------------------------------------------------------

WriteResult ExportCommands::ExportQIF() {
  const auto account = AccountToWrite();
  if (account == nullptr) return WriteResult::NotAsked;
  PrepareQIFAccessory(*account);
  const auto path = panels_.Save({.title = LocalizedText("Export QIF"),
                                  .name = LocalizedText("Tallyfold QIF Export") + ".qif",
                                  .name_label = LocalizedText("Export as:"),
                                  .button = LocalizedText("Export"),
                                  .accessory = PanelAccessory::QifExport,
                                  .check = this});
  if (!path) return WriteResult::Cancelled;
  LDGRPreferences& preferences = desk_.preferences();
  preferences.setQIFExportDateFormat(qif_.exportDateFormat());
  preferences.setQIFExportAccount(qif_.exportAccount());
  preferences.setQIFExportEncoding(static_cast<std::int32_t>(qif_.encoding()));
  return Write(*path, QIFText(*account, qif_.exportAccount()), preferences.GetQIFExportEncoding());
}

EncodingMenu ExportCommands::OfferedEncodings() const {
  EncodingMenu menu;
  menu.Populate(encodings_);
  return menu;
}

void ExportCommands::PrepareQIFAccessory(const LDGRAccount& account) {
  const LDGRPreferences& preferences = desk_.preferences();
  qif_.populateDateFormats();
  qif_.populateEncodingMenu(encodings_);
  qif_.populateExportAccountsButton(&desk_.accounts());

  std::int32_t scope = preferences.GetQIFExportAccount();
  const auto stored = scope >= 0 ? desk_.AccountWithNumber(scope) : nullptr;
  const bool is_gone = scope >= 0 && (stored == nullptr || !stored->IsAuthenticated());
  if (is_gone || scope == LDGRQIFExportAccessoryView::kCurrentAccount) scope = account.GetNumber();
  qif_.setExportAccount(scope);
  qif_.setExportDateFormat(preferences.GetQIFExportDateFormat());
  qif_.setEncoding(static_cast<std::uint32_t>(preferences.GetQIFExportEncoding()));
}

std::string ExportCommands::QIFText(const LDGRAccount& current, std::int32_t scope) const {
  ExportOptions options;
  options.date_format = qif_.exportDateFormat();
  if (scope == LDGRQIFExportAccessoryView::kAllAccounts) {
    std::size_t entries = 0;
    for (const auto& account : desk_.accounts()) {
      if (account->IsAuthenticated()) entries += account->GetEntries().size();
    }
    LongOperation operation(LongWork::Exporting, entries);
    std::string text;
    for (const auto& account : desk_.accounts()) {
      if (account->IsAuthenticated()) text += account->asQIFStringWithOptions(options);
    }
    operation.Finish();
    return text;
  }
  if (scope == LDGRQIFExportAccessoryView::kShownEntries) {
    options.export_filter = ShownFilter(current);
    return current.asQIFStringWithOptions(options);
  }
  const auto account = scope >= 0 ? desk_.AccountWithNumber(scope) : nullptr;
  return account != nullptr && account->IsAuthenticated() ? account->asQIFStringWithOptions(options)
                                                          : current.asQIFStringWithOptions(options);
}

// --- Text ---------------------------------------------------------------------------------------

WriteResult ExportCommands::ExportText() {
  const auto account = AccountToWrite();
  if (account == nullptr) return WriteResult::NotAsked;
  text_.exportTypes_Populate();
  text_.encodingPopUp_Populate(encodings_);
  text_.setExportType(account->textExport_ExportType());
  text_.setEncoding(static_cast<std::uint32_t>(account->textExport_Encoding()));
  const auto path = panels_.Save({.title = LocalizedText("Export Text"),
                                  .name = account->GetName() + ".txt",
                                  .name_label = LocalizedText("Export as:"),
                                  .button = LocalizedText("Export"),
                                  .accessory = PanelAccessory::TextExport,
                                  .check = this});
  if (!path) return WriteResult::Cancelled;
  Change change(ledger_);
  change.EditSettings(account).setTextExport_ExportType(text_.exportType());
  account->setTextExport_Encoding(static_cast<std::int32_t>(text_.encoding()));
  change.Close();
  ExportOptions options;
  if (text_.exportType() == LDGRExportAccessoryManager::kShownEntries) {
    options.export_filter = ShownFilter(*account);
  }
  return Write(*path, account->asTabDelimitedStringWithOptions(options),
               account->textExport_Encoding());
}

// --- What others made ---------------------------------------------------------------------------

WriteResult ExportCommands::ExportMade(const std::string& text, const std::string& name) {
  speaker_.StopSpeech();
  if (!desk_.IsUnlocked()) return WriteResult::NotAsked;
  const auto path = panels_.Save({.title = LocalizedText("Export"),
                                  .name = name,
                                  .name_label = LocalizedText("Export as:"),
                                  .button = LocalizedText("Export"),
                                  .check = this});
  if (!path) return WriteResult::Cancelled;
  if (IsOwn(*path)) return WriteResult::Failed;
  return files_.WriteAtomically(*path, NewFileMode::ByUmask, text) ? WriteResult::Written
                                                                   : WriteResult::Failed;
}

WriteResult ExportCommands::SavePDF(const std::string& name,
                                    const std::function<std::string()>& make) {
  speaker_.StopSpeech();
  if (!desk_.IsUnlocked()) return WriteResult::NotAsked;
  const auto path = panels_.Save({.title = LocalizedText("Save as PDF"),
                                  .name = name,
                                  .name_label = LocalizedText("Save As:"),
                                  .button = LocalizedText("Save"),
                                  .check = this});
  if (!path || !desk_.IsUnlocked()) return WriteResult::Cancelled;
  const auto refuse = [this, &path](const std::string& reason) {
    alerts_.Run({LocalizedText("The PDF Was Not Saved"),
                 Message("{1} could not be written.\n{2}", {*path, reason}),
                 {LocalizedText("OK")}});
    return WriteResult::Failed;
  };
  if (IsOwn(*path)) return refuse(LocalizedText("It is a file of the program's own."));
  const std::string pages = make();
  if (pages.empty()) return refuse(LocalizedText("The pages could not be drawn."));
  const WriteReport report = files_.WriteAtomically(*path, NewFileMode::ByUmask, pages);
  return report ? WriteResult::Written : refuse(SaveFailureOf(*report.failure).Text());
}

// --- All of them
// ---------------------------------------------------------------------------------------

std::shared_ptr<const LDGRFilter> ExportCommands::ShownFilter(const LDGRAccount& account) const {
  return tabs_.ShownRegister() == RegisterKind::Entry ? account.entryFilter()
                                                      : account.reconcileFilter();
}

WriteResult ExportCommands::Write(const std::string& path, const std::string& text,
                                  std::int32_t encoding) {
  auto bytes = encodings_.Encode(text, static_cast<TextEncoding>(encoding));
  if (!bytes) {
    bytes =
        encodings_.Encode(text, static_cast<TextEncoding>(CurrentLocale().DefaultTextEncoding()));
  }
  if (IsOwn(path)) return WriteResult::Failed;
  const std::string& content = bytes ? *bytes : text;
  return files_.WriteAtomically(path, NewFileMode::ByUmask, content) ? WriteResult::Written
                                                                     : WriteResult::Failed;
}

// --- The accounts file --------------------------------------------------------------------------

WriteResult ExportCommands::SaveAs() {
  if (!desk_.IsUnlocked() || desk_.SelectedAccount() == nullptr) return WriteResult::NotAsked;
  const auto path = panels_.Save({.title = LocalizedText("Save As..."),
                                  .name = "Accounts.plist",
                                  .name_label = LocalizedText("Save As:"),
                                  .check = this});
  if (!path) return WriteResult::Cancelled;
  if (IsOwn(*path)) return WriteResult::Failed;
  return saving_.Accounts_SaveToFilePath(*path) ? WriteResult::Written : WriteResult::Failed;
}

bool ExportCommands::Save() {
  const bool accounts_are_saved = saving_.Accounts_Save();
  return saving_.Preferences_Save() && accounts_are_saved;
}

bool ExportCommands::IsOwn(const std::string& path) const {
  return IsOwnFile(files_, DataPaths(files_.HomeFolder()), path);
}

std::optional<std::string> ExportCommands::userEnteredFilename(const std::string& folder,
                                                               const std::string& name,
                                                               bool confirmed) {
  if (!confirmed) return name;
  const std::string path = folder + '/' + name;
  const auto refuse = [this](const std::string& why) {
    alerts_.Run({"Error", why, {"OK"}});
    return std::nullopt;
  };
  if (files_.Exists(path)) {
    const std::size_t answer =
        alerts_.Run({"File Already Exists",
                     "The selected filename already exists at the specified path",
                     {"OK", "Overwrite"}});
    if (answer == 0) return std::nullopt;
    if (files_.IsWritable(path) && !IsOwn(path)) return name;
    return refuse("Unable to write file using the specified path and filename");
  }
  if (files_.IsWritable(folder) && !IsOwn(path)) return name;
  return refuse("Unable to write file at the specified path");
}

}  // namespace tallyfold
