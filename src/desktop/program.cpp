#include "desktop/program.h"

#include <QAction>
#include <QGuiApplication>
#include <QTimer>
#include <utility>

#include "app/exchange/qif_import_command.h"
#include "app/services.h"
#include "app/shell/lifecycle.h"
#include "desktop/command_actions.h"

namespace tallyfold::desktop {

Program::Program(const Services& services, const Settings& settings)
    : app_(services),
      settings_(settings.settings_path),
      window_(app_, settings_),
      front_end_(window_),
      events_(app_.application()),
      ending_(app_, services.alerts),
      waiting_(window_),
      progress_(std::in_place, waiting_) {
  window_.SetTitleEnding(settings.title_ending);
  window_.SetOpenExample(settings.open_example);
  app_.SetFrontEnd(&front_end_);
  app_.SetWindowHooks(&front_end_);
  connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &Program::StateChanged);
}

bool Program::Launch() {
  app_.lifecycle().awakeFromNib();
  return app_.lifecycle().applicationDidFinishLaunching();
}

void Program::OpenFile(std::string path) {
  waiting_file_ = std::move(path);
  // Whatever is told of its state stands in the middle of an operation.
  connect(window_.pieces().actions->Named("QIFImport"), &QAction::changed, this,
          [this] { QTimer::singleShot(0, this, &Program::ImportWaitingFile); });
  QTimer::singleShot(0, this, &Program::ImportWaitingFile);
}

void Program::ImportWaitingFile() {
  if (waiting_file_.empty() || !window_.isVisible()) return;
  if (!window_.pieces().actions->Named("QIFImport")->isEnabled()) return;
  app_.importCommand().QIFImportFile(std::exchange(waiting_file_, {}));
}

Ending::Outcome Program::Save(Ending::Asker asker) {
  // What is being typed counts.
  if (QWidget* focus = window_.focusWidget()) focus->clearFocus();
  return ending_.Save(asker);
}

void Program::SaveWithoutWindow() {
  progress_.reset();
  app_.SetFrontEnd(nullptr);
  app_.SetWindowHooks(nullptr);
  static_cast<void>(ending_.Save(Ending::Asker::Nobody));
}

void Program::FlushSettings() {
  if (!progress_) return;
  window_.SaveFrames();
  settings_.Flush();
}

void Program::StateChanged(Qt::ApplicationState state) {
  if (state == Qt::ApplicationActive) {
    app_.lifecycle().applicationWillBecomeActive();
  } else {
    app_.lifecycle().applicationWillResignActive();
  }
}

}  // namespace tallyfold::desktop
