#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "app/controller.h"
#include "console/command.h"
#include "console/console.h"
#include "console/console_host.h"
#include "console/console_log.h"
#include "console/printer.h"
#include "console/questions.h"
#include "platform/ambient.h"

namespace tallyfold::console {

// One run of the program: reads lines and runs them as commands until the input or the application
// ends. It writes nothing by itself but errors; commands write their answers.
class Session {
 public:
  // Exit statuses.
  static constexpr int kSuccess = 0;
  static constexpr int kFailure = 1;    // a command failed, or what was to be saved was not
  static constexpr int kDataInUse = 2;  // another copy works on the same files

  // The services must outlive the session.
  explicit Session(const ConsoleServices& services);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Runs to the end and returns the status. At most once.
  [[nodiscard]] int Run();

 private:
  // Whether the run goes on.
  bool RunLine(std::string_view text);
  // Throws CommandError.
  void RunCommand(std::span<const Word> words);
  void Launch();
  // What a person cancels by doing something else.
  void CancelOpenSheet();
  void ShutDown();
  void ReportError(std::string_view error);

  Terminal& terminal_;
  std::function<void()> skip_delays_;
  ConsoleLog log_;
  ScopedAmbient ambient_;
  Questions questions_;
  NoFilePanels panels_;
  ConsoleHost host_;
  Printer printer_;
  LDGRController controller_;
  Console console_;
  std::size_t line_number_ = 0;
  bool is_launched_ = false;
  bool has_failed_ = false;
};

}  // namespace tallyfold::console
