#include "desktop/sheets/about_dialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kAboutWidth = 420;
constexpr int kProgramIconSize = 88;

}  // namespace

AboutDialog::AboutDialog(AboutSheet& about, QWidget* window)
    : SheetDialog(window, Text("About Tallyfold")), about_(about) {
  setObjectName(QLatin1String("aboutSheet"));
  const AboutState& state = about_.State();
  auto* icon = new QLabel(this);
  icon->setPixmap(ApplicationIcon().pixmap(kProgramIconSize));
  icon->setAlignment(Qt::AlignCenter);
  Body().addWidget(icon);
  const auto add = [this](const QString& text, const char* name) {
    auto* label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QLatin1String(name));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setText(text);
    label->setMinimumWidth(kAboutWidth - 2 * kSheetMargin);
    Body().addWidget(label);
    return label;
  };
  add(Text("Tallyfold"), "aboutSheet_Title")
      ->setFont(MediumFont(LargerFont(font(), kHeadlinePoints)));
  add(ToQString(Message("Version {1}", {state.version})), "aboutSheet_Version")
      ->setForegroundRole(QPalette::PlaceholderText);
  Body().addSpacing(kGap);
  add(Text("A check register for your desktop. Your accounts are one file in your own folder; "
           "nothing of them leaves this computer."),
      "aboutSheet_Text");
  Body().addSpacing(kGap);
  const std::pair<const char*, std::string> notes[] = {
      {"aboutSheet_License", state.license},
      {"aboutSheet_AccountsFile", Message("Accounts: {1}", {state.accounts_file})},
      {"aboutSheet_BackupFolder", Message("Backups: {1}", {state.backup_folder})}};
  for (const auto& [name, note] : notes) {
    QLabel* label = add(ToQString(note), name);
    label->setFont(SmallFont(font()));
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  connect(AddButton("aboutSheet_Close_Button", Text("Close"), true), &QPushButton::clicked, this,
          [this] { Cancel(); });
}

}  // namespace tallyfold::desktop
