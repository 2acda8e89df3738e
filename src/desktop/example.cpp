#include "desktop/example.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <vector>

#include "desktop/texts.h"
#include "platform/process_launcher.h"

// A library keeps its resources to itself until it is asked for them, which has to be done outside
// of any namespace.
static void InitResources() {
  Q_INIT_RESOURCE(example);
}

namespace tallyfold::desktop {

bool OpenExample(ProcessLauncher& processes, const std::string& program) {
  InitResources();
  QTemporaryDir home(QDir::tempPath() + QLatin1String("/tallyfold-example-XXXXXX"));
  // The other process goes on with it.
  home.setAutoRemove(false);
  const QString folder = home.filePath(QLatin1String("Library/Tallyfold"));
  const QString file = folder + QLatin1String("/Accounts.plist");
  if (!home.isValid() || !QDir().mkpath(folder) ||
      !QFile::copy(QLatin1String(":/examples/Accounts.plist"), file)) {
    return false;
  }
  // The copy of a file that is part of the program is read-only.
  QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
  std::vector<std::string> arguments{"HOME=" + ToUtf8(home.path())};
  // What lets a process open windows stands in the home folder where nothing else is said.
  if (qEnvironmentVariableIsEmpty("XAUTHORITY")) {
    arguments.push_back("XAUTHORITY=" +
                        ToUtf8(QDir::home().filePath(QLatin1String(".Xauthority"))));
  }
  arguments.push_back(program);
  arguments.emplace_back(kExampleArgument);
  return processes.Launch("/usr/bin/env", arguments);
}

}  // namespace tallyfold::desktop
