#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "app/controller.h"
#include "console/command_aids.h"
#include "console/console.h"
#include "console/console_host.h"
#include "console/console_log.h"
#include "console/console_panels.h"
#include "console/due_notice.h"
#include "console/line_history.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/save_notes.h"
#include "console/spoken_text.h"
#include "console/words.h"
#include "platform/ambient.h"

namespace tallyfold::console {

// One run of the program: reads lines and runs them as commands until the input or the application
// ends.
class Session {
 public:
  // The services, and the ambient locale, localizer and clock, must outlive the session.
  explicit Session(const ConsoleServices& services);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Runs to the end, at most once. The status for the system: 0 for a normal end, 1 when a command
  // failed (nothing is saved then that was not saved before) or the last save did, when an import
  // was left under review or output was lost, else the one that the application chose when it ended
  // the process.
  [[nodiscard]] int Run();

 private:
  // False when the run ends here.
  bool RunLine(std::string_view text);
  // What went wrong; "" for nothing.
  std::string RunCommand(std::span<const Word> words);
  // Before the first command that needs it. False when the program ends instead.
  bool Launch(const Command& first);
  // Has a password asked for that is missing. False when the program ends instead; throws
  // CommandError when it stays locked.
  bool Unlock();
  // Sheets that the command has no business with.
  void CancelSheets(const Command& command);
  void TellWhatWasSetAside();
  // Once a run.
  void TellWhatWasFound();
  // Keeps the line for later, unless somebody could read a password in it.
  void Remember(std::string_view line);
  void SaveHistory();
  // Whether everything is on the disk that is to be.
  bool ShutDown();
  // Saves, again as long as a person wants to try. Whether nothing is left unsaved.
  bool SaveAll();
  // What a person chose to do about a save that failed; false to leave it at that.
  bool AskToSaveAgain();
  void SaveElsewhere();
  void ReportError(std::string_view error);

  Terminal& terminal_;
  std::function<void(std::chrono::milliseconds)> skip_delays_;
  std::function<bool(std::chrono::milliseconds)> wait_;
  SpokenText spoken_;
  ConsoleLog log_;
  ScopedAmbient ambient_;
  Questions questions_;
  ConsolePanels panels_;
  ConsoleHost host_;
  Printer printer_;
  LDGRController controller_;
  KeptNotes kept_notes_;
  DueNotice due_notice_;
  Console console_;
  LineHistory history_;
  CommandAids aids_;
  std::size_t line_number_ = 0;
  bool is_launched_ = false;
  bool has_told_shared_numbers_ = false;
  bool had_password_ = false;
};

}  // namespace tallyfold::console
