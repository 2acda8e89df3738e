#include "desktop/sheets/setting_fields.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPixmap>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "desktop/look/assistive.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

constexpr int kSettingPopUpWidth = 200;
constexpr QSize kSwatchSize(48, 18);

QByteArray NameOf(std::string_view setting) {
  return "preferencesSheet_" + QByteArray(setting.data(), static_cast<int>(setting.size()));
}

QLocale NumberLocale() {
  QLocale locale;
  locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
  return locale;
}

std::optional<double> NumberIn(const QLineEdit& field) {
  bool is_number = false;
  const double number = NumberLocale().toDouble(field.text().trimmed(), &is_number);
  return is_number ? std::optional(number) : std::nullopt;
}

// Numbers are stored in single precision.
QString NumberText(double number) {
  return NumberLocale().toString(number, 'g', number == std::trunc(number) ? 12 : 6);
}

// The toolkit leaves its grids of colours without a role, and without names where no label is.
void NameWells(const QColorDialog& dialog) {
  for (QWidget* widget : dialog.findChildren<QWidget*>()) {
    if (!QByteArray(widget->metaObject()->className()).endsWith("WellArray")) continue;
    SetAccessibleRole(*widget, QAccessible::Table);
    widget->setAccessibleName(Text("Colors"));
  }
}

}  // namespace

plist::Value SettingFields::ValueOf(std::string_view setting) const {
  const auto& settings = sheet_.State().typed.settings;
  return settings == nullptr ? plist::Value() : settings->FieldValue(setting);
}

void SettingFields::Read(const char* setting, const plist::Value& value) {
  // A value that is not taken is told when OK is pressed.
  static_cast<void>(sheet_.Read(setting, value));
}

void SettingFields::Show() {
  for (const auto& each : show_) each();
}

void SettingFields::AddMark(Form& form, const QString& title, const char* setting) {
  auto* box = new QCheckBox(title, &form);
  box->setObjectName(QLatin1String(NameOf(setting)));
  box->setAccessibleName(title);
  form.AddUnlabelled(box);
  QObject::connect(box, &QCheckBox::toggled, box,
                   [this, setting](bool is_set) { Read(setting, plist::Value(is_set)); });
  show_.emplace_back([this, box, setting] {
    const QSignalBlocker blocker(box);
    box->setChecked(ValueOf(setting).BooleanValue());
  });
}

void SettingFields::AddChoice(Form& form, const QString& label, const char* setting,
                              const std::vector<PopUpItem>& items) {
  auto* pop_up = new QComboBox(&form);
  form.Add(label, pop_up, NameOf(setting).constData(), kSettingPopUpWidth);
  ShowItems(*pop_up, items, kNoItem);
  QObject::connect(pop_up, &QComboBox::currentIndexChanged, pop_up, [this, pop_up, setting] {
    Read(setting, plist::Value(static_cast<std::int32_t>(pop_up->currentData().toInt())));
  });
  show_.emplace_back([this, pop_up, setting, items] {
    ShowItem(*pop_up, IndexOfItemTagged(items, ValueOf(setting).IntegerValue()));
  });
}

void SettingFields::AddTextChoice(Form& form, const QString& label, const char* setting,
                                  const std::vector<std::pair<std::string, QString>>& texts) {
  auto* pop_up = new QComboBox(&form);
  form.Add(label, pop_up, NameOf(setting).constData(), kSettingPopUpWidth);
  for (const auto& [text, title] : texts) pop_up->addItem(title, ToQString(text));
  QObject::connect(pop_up, &QComboBox::currentIndexChanged, pop_up, [this, pop_up, setting] {
    Read(setting, plist::Value(ToUtf8(pop_up->currentData().toString())));
  });
  show_.emplace_back([this, pop_up, setting] {
    ShowItem(*pop_up, pop_up->findData(ToQString(ValueOf(setting).StringValue())));
  });
}

void SettingFields::AddNumber(Form& form, const QString& label, const char* setting,
                              const QString& unit) {
  auto* field = new QLineEdit(&form);
  field->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  form.Add(label, field, NameOf(setting).constData(), kNumberFieldWidth);
  form.SetNote(field, unit);
  QObject::connect(field, &QLineEdit::textEdited, field,
                   [this, field, setting] { ReadNumber(*field, setting); });
  const auto shown = std::make_shared<std::optional<double>>();
  show_.emplace_back([this, field, setting, shown] {
    const double stored = ValueOf(setting).DoubleValue();
    if (*shown == stored) return;
    const auto typed = NumberIn(*field);
    if (!typed || static_cast<float>(*typed) != static_cast<float>(stored)) {
      field->setText(NumberText(stored));
    }
    *shown = stored;
  });
}

void SettingFields::ReadNumber(const QLineEdit& field, const char* setting) {
  const auto number = NumberIn(field);
  Read(setting, number ? plist::Value(*number) : plist::Value());
}

void SettingFields::AddFont(Form& form, const QString& label, const char* setting) {
  auto* families = new QFontComboBox(&form);
  families->setEditable(false);
  form.Add(label, families, NameOf(setting).constData(), kSettingPopUpWidth);
  QObject::connect(families, &QComboBox::currentIndexChanged, families, [this, families, setting] {
    if (families->currentIndex() < 0) return;
    Read(setting, plist::Value(ToUtf8(families->currentText())));
  });
  show_.emplace_back([this, families, setting] {
    const QString family = ToQString(ValueOf(setting).StringValue());
    // One that is not installed stays as it is.
    families->setPlaceholderText(family);
    ShowItem(*families, families->findText(family));
  });
}

void SettingFields::AddColor(Form& form, const QString& label, const std::string& setting,
                             QWidget* behind) {
  auto* button = new QPushButton(&form);
  button->setObjectName(QLatin1String(NameOf(setting)));
  button->setAccessibleName(label);
  button->setAutoDefault(false);
  button->setIconSize(kSwatchSize);
  button->setFixedWidth(kSwatchSize.width() + 2 * kGap);
  form.AddRow(label, {button, behind});
  QObject::connect(button, &QPushButton::clicked, button,
                   [this, button, setting] { ChooseColor(button, setting); });
  show_.emplace_back([this, button, setting] {
    const auto part = [this, &setting](const char* name) {
      return std::clamp(static_cast<float>(ValueOf(setting + name).DoubleValue()), 0.0F, 1.0F);
    };
    const QColor color =
        QColor::fromRgbF(part("_Red"), part("_Green"), part("_Blue"), part("_Alpha"));
    if (button->property("color").value<QColor>() == color) return;
    button->setProperty("color", color);
    const double ratio = button->devicePixelRatioF();
    QPixmap swatch(kSwatchSize * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(color);
    button->setIcon(swatch);
    button->setToolTip(color.name());
    button->setAccessibleDescription(color.name());
  });
}

void SettingFields::ChooseColor(QPushButton* button, const std::string& setting) {
  const auto before = button->property("color").value<QColor>();
  auto* dialog = new QColorDialog(before, button);
  dialog->setObjectName(QStringLiteral("preferencesSheet_Color"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
  NameWells(*dialog);
  QObject::connect(dialog, &QColorDialog::colorSelected, button,
                   [this, before, setting](const QColor& color) {
                     if (color == before) return;
                     const std::pair<const char*, float> parts[] = {{"_Red", color.redF()},
                                                                    {"_Green", color.greenF()},
                                                                    {"_Blue", color.blueF()},
                                                                    {"_Alpha", color.alphaF()}};
                     for (const auto& [name, part] : parts) {
                       Read((setting + name).c_str(), plist::Value(static_cast<double>(part)));
                     }
                   });
  // Not every window manager gives the keys back.
  QObject::connect(dialog, &QDialog::finished, button,
                   [button] { button->window()->activateWindow(); });
  dialog->open();
}

}  // namespace tallyfold::desktop
