#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/desk.h"
#include "app/exchange/encoding_menu.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/shell/idle_watch.h"
#include "app/shell/tabs.h"
#include "app/views/account_summary_tab.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "platform/alerts.h"
#include "platform/file_panels.h"
#include "registers/entry_speaker.h"

namespace tallyfold {

class FileSystem;
class TextEncodings;

// The command that imports a file into the selected account: asks for the file, runs the import and
// brings everything up to date behind it. Schedules are not looked after meanwhile.
class QifImportCommand {
 public:
  // All must outlive this.
  QifImportCommand(Desk& desk, Ledger& ledger, const SheetSlot& sheets, const Tabs& tabs,
                   AccountSummaryTab& summary, EntrySpeaker& speaker,
                   LDGRQIFImportController& import, const TextEncodings& encodings,
                   FilePanels& panels, IdleWatch& idle, Refresh& refresh, Announcer& announcer,
                   const FileSystem& files, Alerts& alerts) noexcept
      : desk_(desk),
        ledger_(ledger),
        sheets_(sheets),
        tabs_(tabs),
        summary_(summary),
        speaker_(speaker),
        import_(import),
        encodings_(encodings),
        panels_(panels),
        idle_(idle),
        refresh_(refresh),
        announcer_(announcer),
        files_(files),
        alerts_(alerts) {}
  QifImportCommand(const QifImportCommand&) = delete;
  QifImportCommand& operator=(const QifImportCommand&) = delete;

  // Leaves the options sheet open for the chosen file. False when there is no account, a sheet is
  // open, an import runs, or the panel was given up; also, after an alert that says so, when the
  // file is one that cannot be read.
  bool QIFImport();
  // The same for a file that is known already, in the encoding of the last import of the account.
  bool QIFImportFile(const std::string& path);
  // The import that was started is over, or the panel was given up.
  void Ended();

  // The last file was refused, and an alert has said why.
  [[nodiscard]] bool HasRefused() const noexcept { return has_refused_; }
  // Whether a file that is there is one of a bank (CSV, OFX, CAMT), by its content.
  [[nodiscard]] bool IsStatement(const std::string& path) const;

  // What the panel shows beside the files. A bank's file is read in an encoding that was chosen
  // there only where it is another one than the account's.
  [[nodiscard]] EncodingMenu& Encodings() noexcept { return menu_; }

 private:
  // False where no import can begin.
  [[nodiscard]] bool Begin();
  [[nodiscard]] bool Run(const std::string& path);
  void Refuse(std::string_view why);

  Desk& desk_;
  Ledger& ledger_;
  const SheetSlot& sheets_;
  const Tabs& tabs_;
  AccountSummaryTab& summary_;
  EntrySpeaker& speaker_;
  LDGRQIFImportController& import_;
  const TextEncodings& encodings_;
  FilePanels& panels_;
  IdleWatch& idle_;
  Refresh& refresh_;
  Announcer& announcer_;
  const FileSystem& files_;
  Alerts& alerts_;
  EncodingMenu menu_;
  bool has_refused_ = false;
  std::chrono::milliseconds until_next_tick_ = IdleWatch::kInterval;
};

}  // namespace tallyfold
