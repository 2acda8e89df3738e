// The console: puts the computer's services together and runs one session on them.

#include <chrono>
#include <string>

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

}  // namespace

int main() {
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
  return session.Run();
}
