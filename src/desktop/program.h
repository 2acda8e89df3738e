#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/controller.h"
#include "desktop/ending.h"
#include "desktop/main_window.h"
#include "desktop/services/event_watch.h"
#include "desktop/services/user_settings.h"
#include "desktop/waiting.h"
#include "desktop/window_front_end.h"
#include "platform/progress.h"

namespace tallyfold {
struct Services;
}

namespace tallyfold::desktop {

// The application with its window: what comes between the services and the event loop. Tests run it
// over other services.
class Program final : public QObject {
 public:
  struct Settings {
    // Where the window keeps its frames.
    std::string settings_path;
    // Behind the title; "" for nothing.
    QString title_ending = {};
    std::function<void()> open_example = {};
  };

  // The services must outlive the program.
  Program(const Services& services, const Settings& settings);

  // False when it ends instead.
  [[nodiscard]] bool Launch();
  // Its import begins when an account is open and nothing else is.
  void OpenFile(std::string path);
  // As Ending::Save(), with the frames of the window.
  Ending::Outcome Save(Ending::Asker asker);
  // For a program that has lost its display: saves and leaves the window alone.
  void SaveWithoutWindow();
  // What FlushUserDefaults is to do.
  void FlushSettings();

  [[nodiscard]] LDGRController& app() noexcept { return app_; }
  [[nodiscard]] MainWindow& window() noexcept { return window_; }

 private:
  void StateChanged(Qt::ApplicationState state);
  void ImportWaitingFile();

  LDGRController app_;
  UserSettings settings_;
  MainWindow window_;
  WindowFrontEnd front_end_;
  EventWatch events_;
  Ending ending_;
  Waiting waiting_;
  // None once there is no window to show anything in.
  std::optional<ScopedProgress> progress_;
  std::string waiting_file_;
};

}  // namespace tallyfold::desktop
