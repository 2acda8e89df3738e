#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/desk.h"
#include "app/exchange/export_accessory_manager.h"
#include "app/exchange/qif_export_accessory_view.h"
#include "app/shell/saving.h"
#include "app/shell/tabs.h"
#include "filters/register_search.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "platform/alerts.h"
#include "platform/file_panels.h"
#include "registers/entry_speaker.h"

namespace tallyfold {

class FileSystem;
class TextEncodings;

// What became of a command that asks for a file and writes it.
enum class WriteResult : std::uint8_t {
  NotAsked,   // there was nothing to write
  Cancelled,  // the panel was given up; nothing has changed
  Written,
  Failed,  // the file is as it was before
};

// The commands that write files of the user's choice: the exports, Save As, and Save.
class ExportCommands final : private FileNameCheck {
 public:
  // All must outlive this.
  ExportCommands(Desk& desk, Ledger& ledger, Saving& saving, const Tabs& tabs,
                 EntrySpeaker& speaker, FileSystem& files, const TextEncodings& encodings,
                 FilePanels& panels, Alerts& alerts) noexcept
      : desk_(desk),
        ledger_(ledger),
        saving_(saving),
        tabs_(tabs),
        speaker_(speaker),
        files_(files),
        encodings_(encodings),
        panels_(panels),
        alerts_(alerts) {}
  ExportCommands(const ExportCommands&) = delete;
  ExportCommands& operator=(const ExportCommands&) = delete;

  // Tags of the items of the export menu; any other does nothing.
  static constexpr std::int32_t kQifItem = 1;
  static constexpr std::int32_t kTextItem = 2;
  void export_MenuItem(std::int32_t tag);

  // Each asks for a file, remembers what was chosen beside its name (for the application and for
  // the selected account) and writes it. Nothing is reported to the user.
  WriteResult ExportQIF();
  WriteResult ExportText();
  // UTF-8 that was made for a file, under the name that is proposed for it. Nothing is remembered.
  WriteResult ExportMade(const std::string& text, const std::string& name);
  // Asks for a file first and then has the bytes made, in which pages were drawn. Where they cannot
  // be written the user is told why.
  WriteResult SavePDF(const std::string& name, const std::function<std::string()>& make);
  // The whole accounts file under another name.
  WriteResult SaveAs();
  // The accounts and then the preferences into their own files. False when either failed.
  bool Save();

  // What the panels of the two exports show beside the name.
  // The encodings that an export offers.
  [[nodiscard]] EncodingMenu OfferedEncodings() const;
  [[nodiscard]] LDGRQIFExportAccessoryView& sharedQIFExportAccessoryView() noexcept { return qif_; }
  [[nodiscard]] LDGRExportAccessoryManager& exportAccessoryManager() noexcept { return text_; }

  // A name that stands for a file already is taken when the user chooses to overwrite a file that
  // can be written, any other when its folder can be; the program's own files count as such that
  // cannot. Else the user is told and asked again; a name
  // that is not yet confirmed is fine.
  [[nodiscard]] std::optional<std::string> userEnteredFilename(const std::string& folder,
                                                               const std::string& name,
                                                               bool confirmed) override;

 private:
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountToWrite();
  void PrepareQIFAccessory(const LDGRAccount& account);
  [[nodiscard]] std::shared_ptr<const LDGRFilter> ShownFilter(const LDGRAccount& account) const;
  [[nodiscard]] std::string QIFText(const LDGRAccount& current, std::int32_t scope) const;
  // The program's own files are not to be replaced, whatever the panel allowed.
  [[nodiscard]] bool IsOwn(const std::string& path) const;
  WriteResult Write(const std::string& path, const std::string& text, std::int32_t encoding);

  Desk& desk_;
  Ledger& ledger_;
  Saving& saving_;
  const Tabs& tabs_;
  EntrySpeaker& speaker_;
  FileSystem& files_;
  const TextEncodings& encodings_;
  FilePanels& panels_;
  Alerts& alerts_;
  LDGRQIFExportAccessoryView qif_;
  LDGRExportAccessoryManager text_;
};

}  // namespace tallyfold
