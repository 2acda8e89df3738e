// From the start of a process to the first painted window with 100,000 entries, off-screen, and the
// memory that takes. The yardstick, taken in turn with it, is the load alone and the start of an
// empty window: "times" is the window's share of their sum, of which at most 1.5 are wanted. Over
// the memory of the same application without a window at most 60 MB are. Each run is a process.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "app/controller.h"
#include "app/services.h"
#include "app/shell/lifecycle.h"
#include "benchmarks/generator.h"
#include "desktop/look/style.h"
#include "desktop/program.h"
#include "desktop/services/qt_run_loop.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "fakes/temporary_folder.h"
#include "platform/notification_center.h"
#include "system/iconv_encodings.h"
#include "system/posix_file_system.h"

extern char** environ;

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kEntries = 100'000;

// --- What the processes do

struct Computer {
  FakeAmbient ambient;
  PosixFileSystem files;
  FakeAlerts alerts;
  FakeFilePanels panels;
  FakeProcessLauncher processes;
  FakeSpeech speech;
  FakeSpeech field_speech;
  NotificationCenter notifications;
  FakeHost host;
  IconvEncodings encodings;

  [[nodiscard]] Services With(RunLoop& loop) {
    return {files,        alerts, panels,        processes, speech,
            field_speech, loop,   notifications, host,      encodings};
  }
};

// Hears when a widget is painted for the first time.
class FirstPaint final : public QObject {
 public:
  explicit FirstPaint(QString name) : name_(std::move(name)) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  // Runs the event loop until then, and until all that is painted with it is.
  void Await() const {
    while (!is_seen_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    is_seen_ = is_seen_ || (event->type() == QEvent::Paint && receiver->objectName() == name_);
    return false;
  }

  QString name_;
  bool is_seen_ = false;
};

void LoadAlone() {
  Computer computer;
  FakeRunLoop loop(&computer.ambient.clock);
  LDGRController app(computer.With(loop));
  if (!app.lifecycle().applicationDidFinishLaunching()) std::_Exit(EXIT_FAILURE);
  std::_Exit(EXIT_SUCCESS);
}

void OpenEmptyWindow(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setObjectName(QLatin1String("empty"));
  window.resize(1200, 760);
  const FirstPaint paint(window.objectName());
  window.show();
  paint.Await();
  std::_Exit(EXIT_SUCCESS);
}

void OpenWindow(int argc, char** argv) {
  QApplication application(argc, argv);
  desktop::InstallStyle(application);
  Computer computer;
  desktop::QtRunLoop loop;
  desktop::Program program(
      computer.With(loop),
      {.settings_path = desktop::UserSettings::PathIn(computer.files.HomeFolder())});
  const FirstPaint paint(QLatin1String("details_Label"));
  if (!program.Launch()) std::_Exit(EXIT_FAILURE);
  paint.Await();
  std::_Exit(EXIT_SUCCESS);
}

// --- What is measured of them

struct Process {
  double seconds = 0.0;    // processor time, with that of the loader
  double megabytes = 0.0;  // at most
};

Process Run(const char* what) {
  char program[] = "/proc/self/exe";
  std::string word(what);
  char* arguments[] = {program, word.data(), nullptr};
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0 ||
      wait4(child, &status, 0, &usage) != child || status != 0) {
    std::abort();
  }
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024.0};
}

void StartToPaintedWindow(benchmark::State& state) {
  const TemporaryFolder home;
  const std::filesystem::path folder = home / "Library/Tallyfold";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "Accounts.plist", std::ios::binary)
      << HouseholdFile({.entries = kEntries, .accounts = 1});
  setenv("HOME", home.path().c_str(), 1);
  Process window, load, empty;
  for ([[maybe_unused]] auto _ : state) {
    for (const auto& [what, sum] :
         {std::pair{"--window", &window}, {"--load", &load}, {"--empty", &empty}}) {
      const Process run = Run(what);
      sum->seconds += run.seconds;
      sum->megabytes = std::max(sum->megabytes, run.megabytes);
      if (sum == &window) state.SetIterationTime(run.seconds);
    }
  }
  const auto runs = static_cast<double>(state.iterations());
  state.counters["load_ms"] = 1000 * load.seconds / runs;
  state.counters["empty_ms"] = 1000 * empty.seconds / runs;
  state.counters["times"] = window.seconds / (load.seconds + empty.seconds);
  state.counters["MB_more"] = window.megabytes - load.megabytes;
}
BENCHMARK(StartToPaintedWindow)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks

int main(int argc, char** argv) {
  using namespace tallyfold::benchmarks;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const std::string_view what = argc > 1 ? argv[1] : "";
  if (what == "--load") LoadAlone();
  if (what == "--empty") OpenEmptyWindow(argc, argv);
  if (what == "--window") OpenWindow(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
