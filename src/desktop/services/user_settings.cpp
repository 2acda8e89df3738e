#include "desktop/services/user_settings.h"

#include "desktop/texts.h"

namespace tallyfold::desktop {

std::string UserSettings::PathIn(const std::string& home_folder) {
  return home_folder + "/Library/Preferences/Quorva/Tallyfold Window";
}

UserSettings::UserSettings(const std::string& path)
    : settings_(ToQString(path), QSettings::IniFormat) {}

QByteArray UserSettings::State(const QString& name) const {
  return settings_.value(name).toByteArray();
}

void UserSettings::SetState(const QString& name, const QByteArray& state) {
  if (State(name) != state) settings_.setValue(name, state);
}

}  // namespace tallyfold::desktop
