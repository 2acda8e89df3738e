#pragma once

#include <QString>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/face/pop_up_item.h"
#include "app/shell/preferences_sheet.h"

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QLineEdit;
class QPushButton;

namespace tallyfold::desktop {

class Form;

// Fields for settings, each read into the preferences sheet as soon as it is changed. A field is
// named "preferencesSheet_" with the name of its setting, which is also what the settings are
// called here.
class SettingFields final {
 public:
  // `sheet` must outlive the fields.
  explicit SettingFields(PreferencesSheet& sheet) noexcept : sheet_(sheet) {}
  SettingFields(const SettingFields&) = delete;
  SettingFields& operator=(const SettingFields&) = delete;

  // Rows of a form, for a setting that is yes or no, ...
  void AddMark(Form& form, const QString& title, const char* setting);
  // ... one of numbered things, the tags of the items, ...
  void AddChoice(Form& form, const QString& label, const char* setting,
                 const std::vector<PopUpItem>& items);
  // ... one of a few texts, with their titles, ...
  void AddTextChoice(Form& form, const QString& label, const char* setting,
                     const std::vector<std::pair<std::string, QString>>& texts);
  // ... any number, with what it counts behind it ("" for nothing), ...
  void AddNumber(Form& form, const QString& label, const char* setting, const QString& unit);
  // ... a family of fonts, ...
  void AddFont(Form& form, const QString& label, const char* setting);
  // ... a colour, whose parts are settings with "_Red" and so on behind this name; `behind` stands
  // behind its button.
  void AddColor(Form& form, const QString& label, const std::string& setting, QWidget* behind);

  // As the sheet has them. A field keeps a text that its setting does not take.
  void Show();

 private:
  void Read(const char* setting, const plist::Value& value);
  void ReadNumber(const QLineEdit& field, const char* setting);
  [[nodiscard]] plist::Value ValueOf(std::string_view setting) const;
  void ChooseColor(QPushButton* button, const std::string& setting);

  PreferencesSheet& sheet_;
  std::vector<std::function<void()>> show_;
};

}  // namespace tallyfold::desktop
