// The window: puts the computer's services together and opens one window on them.

#include <QApplication>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/services.h"
#include "desktop/arguments.h"
#include "desktop/example.h"
#include "desktop/look/icons.h"
#include "desktop/look/palette_watch.h"
#include "desktop/look/style.h"
#include "desktop/program.h"
#include "desktop/services/process_end.h"
#include "desktop/services/qt_alerts.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/services/qt_host.h"
#include "desktop/services/qt_run_loop.h"
#include "desktop/text_keys.h"
#include "desktop/texts.h"
#include "desktop/window_panels.h"
#include "platform/ambient.h"
#include "platform/notification_center.h"
#include "platform/version.h"
#include "system/iconv_encodings.h"
#include "system/posix_file_system.h"
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
using desktop::Arguments;
using desktop::Ending;

class StandardErrorLog final : public SystemLog {
 public:
  void Write(std::string_view line) override {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
  }
};

// The status where another copy has the accounts, or an argument is not understood.
constexpr int kNotStarted = 2;
// As the desktop file is named.
constexpr const char* kDesktopFileName = "org.tallyfold.Tallyfold";

int Run(QApplication& application, const Arguments& arguments) {
  QGuiApplication::setDesktopFileName(QLatin1String(kDesktopFileName));
  desktop::PaletteWatch palette(desktop::PortalColorScheme());
  desktop::InstallStyle(application);
  QApplication::setWindowIcon(desktop::ApplicationIcon());
  QApplication::setQuitOnLastWindowClosed(false);

  StandardErrorLog log;
  SystemClock clock;
  SystemLocale locale;
  const ScopedAmbient ambient(
      {.log = &log, .localizer = nullptr, .locale = &locale, .clock = &clock});
  desktop::QtRunLoop loop;
  desktop::QtAlerts alerts;
  desktop::QtFilePanels panels;
  desktop::QtHost host{std::string(kProgramVersion)};
  PosixFileSystem files;
  SystemProcessLauncher processes;
  ProgramSpeech speech(loop);
  ProgramSpeech field_speech(loop);
  ProgramUpdateService updates(loop);
  NotificationCenter notifications;
  IconvEncodings encodings;
  TerminationSignals termination;
  desktop::TextKeys text_keys;

  desktop::Program program(
      Services{files, alerts, panels, processes, speech, field_speech, loop, notifications, host,
               encodings, &updates},
      {.settings_path = desktop::UserSettings::PathIn(files.HomeFolder()),
       .title_ending = arguments.is_example ? desktop::Text("(Example)") : QString(),
       .open_example = [&processes] {
         desktop::OpenExample(processes, desktop::ToUtf8(QCoreApplication::applicationFilePath()));
       }});

  desktop::SetUpPanels(panels, program.app());
  std::optional<int> status;
  const auto end = [&](Ending::Asker asker) {
    const bool is_saved = program.Save(asker) == Ending::Outcome::Saved;
    status = is_saved ? 0 : 1;
    QCoreApplication::exit(*status);
  };
  const auto end_unasked = [&] { end(Ending::Asker::Nobody); };
  host.SetFlush([&program] { program.FlushSettings(); });
  host.SetTerminate([&end] { end(Ending::Asker::User); });
  const desktop::ProcessEnd process_end(
      termination.descriptor(),
      [&] {
        static_cast<void>(termination.Take());
        end_unasked();
      },
      [&program] { program.Save(Ending::Asker::Nobody); });
  // A question that is up stands in the middle of something that must not be written half done.
  const desktop::ExitGuard guard([&] {
    if (!alerts.IsUp() && !panels.IsUp()) program.SaveWithoutWindow();
  });

  if (!program.Launch()) {
    const int refused = host.Status().value_or(0);
    if (refused == kNotStarted && !arguments.file.empty()) {
      alerts.Run({.title = LocalizedText("The file was not imported."),
                  .message = LocalizedText("Choose Import in the copy that is open."),
                  .buttons = {LocalizedText("OK")}});
    }
    return refused;
  }
  // The launch looks at events as well.
  if (status) return *status;
  if (!arguments.file.empty()) program.OpenFile(arguments.file);
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  OpenMissingStandardStreams();
  SurviveFileSizeLimit();
#ifdef NDEBUG
  KeepMemoryPrivate();
#endif
  const auto words = [&] {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
  };
  // The toolkit's own options are gone from these once it has started, which needs a display.
  const Arguments asked = desktop::ReadArguments(words());
  if (asked.wants_help || asked.wants_version) {
    const std::string text = asked.wants_help ? desktop::UsageText()
                                              : "Tallyfold " + std::string(kProgramVersion) + '\n';
    std::fputs(text.c_str(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
  }
  if (!desktop::HasDisplay()) {
    std::fputs("tallyfold: there is no display to open a window on; use tallyfold-console\n",
               stderr);
    return 1;
  }
  QApplication application(argc, argv);
  const Arguments arguments = desktop::ReadArguments(words());
  if (!arguments.unknown.empty()) {
    std::fprintf(stderr, "tallyfold: %s is not understood\n%s", arguments.unknown.c_str(),
                 desktop::UsageText().c_str());
    return kNotStarted;
  }
  return Run(application, arguments);
}
