#include "desktop/services/process_end.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <cstdlib>
#include <utility>

namespace tallyfold::desktop {
namespace {

std::function<void()>& SaveAtExit() {
  static std::function<void()> save;
  return save;
}

void RunAtExit() {
  const auto save = std::exchange(SaveAtExit(), nullptr);
  if (save) save();
}

}  // namespace

bool HasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

ProcessEnd::ProcessEnd(int descriptor, std::function<void()> by_signal,
                       std::function<void()> by_session_end)
    : notifier_(descriptor, QSocketNotifier::Read) {
  connect(&notifier_, &QSocketNotifier::activated, this, std::move(by_signal));
  connect(
      qGuiApp, &QGuiApplication::commitDataRequest, this,
      [save = std::move(by_session_end)](QSessionManager&) { save(); }, Qt::DirectConnection);
}

ExitGuard::ExitGuard(std::function<void()> save) {
  // Made before the handler is registered, and so destroyed after it has run.
  SaveAtExit() = std::move(save);
  static const bool is_registered = std::atexit(RunAtExit) == 0;
  static_cast<void>(is_registered);
}

ExitGuard::~ExitGuard() {
  SaveAtExit() = nullptr;
}

}  // namespace tallyfold::desktop
