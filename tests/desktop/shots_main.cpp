// Pictures of the window in its states, to be looked at: tallyfold_desktop_shots FOLDER [dark].
// Another scale by QT_SCALE_FACTOR, longer texts by a word "long", right to left by "rtl", a style
// of the platform's own by "foreign", only pictures whose names begin so by "only=NAME".
// Beside the sheet for printing stands what it saves as PDF.

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QPixmap>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "desktop/look/palette_watch.h"
#include "desktop/look/style.h"
#include "desktop/main_window.h"
#include "desktop/shots.h"
#include "desktop/wished_colors.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

constexpr QSize kSize(1280, 832);

void Save(const QPixmap& picture, const QString& folder, const QString& name) {
  if (!picture.save(QDir(folder).filePath(name + QLatin1String(".png")))) {
    std::fprintf(stderr, "%s.png could not be written\n", name.toUtf8().constData());
  }
}

// The window in a state, and the sheet over it where one is open.
void Grab(const QString& folder, const QString& name, const std::string& accounts,
          const std::function<void(TestWindow&)>& prepare) {
  const QStringList only = QApplication::arguments().filter(QLatin1String("only="));
  if (!only.isEmpty() && !name.startsWith(only.first().mid(5))) return;
  TestWindow test(accounts, QApplication::arguments().contains(QLatin1String("long")));
  static_cast<void>(test.Launch());
  test.program->window().resize(kSize);
  auto& preferences = test.program->app().desk().preferences();
  preferences.SetAccountsDrawerPreferredEdge(0);
  preferences.SetEntryFontSize(10);
  test.program->window().ShowDrawer();
  test.program->window().ShowLook();
  prepare(test);
  // Twice, for what waits until a sheet is in sight.
  for (int i = 0; i < 2; ++i) TestWindow::Settle();
  const QPixmap picture = test.program->window().grab();
  if (QWidget* sheet = QApplication::activeWindow(); sheet != &test.program->window() && sheet) {
    Save(sheet->grab(), folder, name + QLatin1String("-sheet"));
  }
  Save(picture, folder, name);
  if (test.program->app().sheets().Current() != Sheet::Print) return;
  // The pages themselves as well.
  test.panels.Answer("/home/user/pages.pdf");
  test.Click("printSheet_SaveAsPDF_Button");
  if (const auto pages = test.files.Read("/home/user/pages.pdf")) {
    std::ofstream(folder.toStdString() + '/' + name.toStdString() + ".pdf", std::ios::binary)
        << pages->view();
  }
}

}  // namespace
}  // namespace tallyfold::desktop

int main(int argc, char** argv) {
  using namespace tallyfold::desktop;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) {
    std::fputs("tallyfold_desktop_shots FOLDER [dark]\n", stderr);
    return 1;
  }
  QApplication::setQuitOnLastWindowClosed(false);
  if (QFontDatabase::hasFamily(QLatin1String("Inter"))) {
    QApplication::setFont(QFont(QLatin1String("Inter"), 10));
  }
  const bool is_dark = arguments.contains(QLatin1String("dark"));
  const PaletteWatch palette(std::make_unique<WishedColors>(is_dark));
  if (arguments.contains(QLatin1String("foreign")))
    QApplication::setStyle(QLatin1String("windows"));
  if (arguments.contains(QLatin1String("rtl"))) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
  }
  InstallStyle(application);
  const QString& folder = arguments[1];
  QDir().mkpath(folder);
  ForEachShot(
      [&folder](const QString& name, const std::string& accounts,
                const std::function<void(TestWindow&)>& prepare) {
        Grab(folder, name, accounts, prepare);
      },
      [&folder](const QString& name, QWidget& panel) { Save(panel.grab(), folder, name); });
  return 0;
}
