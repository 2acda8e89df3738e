#include "desktop/print/kept_choices.h"

#include <QLocale>
#include <array>
#include <cstddef>

#include "desktop/services/user_settings.h"

namespace tallyfold::desktop {
namespace {

constexpr std::array kOrientationNames = {"automatic", "portrait", "landscape"};
const auto kPaperKey = QLatin1String("print_Paper");
const auto kOrientationKey = QLatin1String("print_Orientation");
const auto kSplitsKey = QLatin1String("print_Splits");
const auto kNotesKey = QLatin1String("print_Notes");
const QByteArray kYes = "yes";
const QByteArray kNo = "no";

}  // namespace

PrintChoices KeptChoices(const UserSettings& settings) {
  PrintChoices choices;
  const bool has_inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  const QByteArray paper = settings.State(kPaperKey);
  choices.paper = paper.isEmpty() ? (has_inches ? "letter" : "a4") : paper.toStdString();
  const QByteArray orientation = settings.State(kOrientationKey);
  for (std::size_t i = 0; i < kOrientationNames.size(); ++i) {
    if (orientation == kOrientationNames[i]) choices.orientation = static_cast<Orientation>(i);
  }
  choices.splits = settings.State(kSplitsKey) == kYes;
  choices.notes = settings.State(kNotesKey) == kYes;
  return choices;
}

void KeepChoices(const PrintChoices& choices, UserSettings& settings) {
  settings.SetState(kPaperKey, QByteArray::fromStdString(choices.paper));
  settings.SetState(kOrientationKey,
                    kOrientationNames[static_cast<std::size_t>(choices.orientation)]);
  settings.SetState(kSplitsKey, choices.splits ? kYes : kNo);
  settings.SetState(kNotesKey, choices.notes ? kYes : kNo);
}

}  // namespace tallyfold::desktop
