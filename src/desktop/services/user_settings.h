#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <string>

namespace tallyfold::desktop {

// What a window keeps between runs without being asked: frames, splitters, choices. It stands in a
// file of its own beside the preferences and is written when it is flushed.
class UserSettings {
 public:
  // The file of the user whose home folder that is.
  [[nodiscard]] static std::string PathIn(const std::string& home_folder);

  // The file need not be there.
  explicit UserSettings(const std::string& path);
  UserSettings(const UserSettings&) = delete;
  UserSettings& operator=(const UserSettings&) = delete;

  // As the window, splitter or choice of that name saved it; empty for none.
  [[nodiscard]] QByteArray State(const QString& name) const;
  void SetState(const QString& name, const QByteArray& state);
  void Flush() { settings_.sync(); }

 private:
  QSettings settings_;
};

}  // namespace tallyfold::desktop
