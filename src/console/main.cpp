// The console: puts the computer's services together and runs one session on them.

#include <chrono>
#include <span>
#include <string>
#include <string_view>

#include "console/manual.h"
#include "console/session.h"
#include "platform/ambient.h"
#include "platform/notification_center.h"
#include "platform/version.h"
#include "system/iconv_encodings.h"
#include "system/poll_run_loop.h"
#include "system/posix_file_system.h"
#include "system/posix_terminal.h"
#include "system/process_limits.h"
#include "system/program_speech.h"
#include "system/program_update_service.h"
#include "system/standard_streams.h"
#include "system/system_clock.h"
#include "system/system_locale.h"
#include "system/system_process_launcher.h"
#include "system/termination_signals.h"

namespace {

using namespace tallyfold;

// False when a signal asks the program to end.
bool RunFor(PollRunLoop& loop, const TerminationSignals& signals, std::chrono::milliseconds time) {
  bool is_to_end = false;
  const auto watch = loop.WatchReadable(signals.descriptor(), [&] {
    is_to_end = true;
    loop.Stop();
  });
  DelayedCall end(loop);
  end.Start(time, [&loop] { loop.Stop(); });
  loop.Run();
  return !is_to_end;
}

// With what the program ends that has another task than a session.
constexpr int kNotStarted = 2;
constexpr int kOutputLost = 1;
constexpr int kEndedBySignal = 128;

int Answer(PosixTerminal& terminal, std::span<char* const> arguments) {
  const std::string_view first = arguments.front();
  if (arguments.size() == 1 && first == "--help") {
    terminal.Write(console::UsageText());
  } else if (arguments.size() == 1 && first == "--version") {
    terminal.Write("tallyfold-console " + std::string(kProgramVersion) + '\n');
  } else {
    terminal.WriteError("tallyfold-console takes --help or --version, and nothing else\n");
    return kNotStarted;
  }
  return terminal.HasLostOutput() ? kOutputLost : 0;
}

}  // namespace

int main(int argc, char** argv) {
  OpenMissingStandardStreams();
  SurviveFileSizeLimit();
#ifdef NDEBUG
  KeepMemoryPrivate();
#endif

  SystemClock clock;
  SystemLocale locale;
  const ScopedAmbient ambient(
      {.log = nullptr, .localizer = nullptr, .locale = &locale, .clock = &clock});

  PollRunLoop loop;
  TerminationSignals signals;
  PosixTerminal terminal(loop, signals);
  if (argc > 1) return Answer(terminal, std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
  PosixFileSystem files;
  SystemProcessLauncher processes;
  ProgramSpeech speech(loop);
  ProgramUpdateService updates(loop);
  NotificationCenter notifications;
  IconvEncodings encodings;

  console::Session session(
      {terminal, files, processes, speech, loop, notifications, encodings,
       [&loop](std::chrono::milliseconds time) { loop.SkipDelays(time); },
       [&](std::chrono::milliseconds time) { return RunFor(loop, signals, time); },
       std::string(kProgramVersion), &updates});
  const int status = session.Run();
  const auto signal = terminal.EndingSignal();
  return signal ? kEndedBySignal + *signal : status;
}
