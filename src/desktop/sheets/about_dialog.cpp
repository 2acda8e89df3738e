#include "desktop/sheets/about_dialog.h"

#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "platform/message.h"

// The initialiser of resources is looked up in no namespace.
static void LoadLicense() {
  Q_INIT_RESOURCE(license);
}

namespace tallyfold::desktop {
namespace {

constexpr int kAboutWidth = 420;
constexpr int kProgramIconSize = 88;
constexpr int kLicenseLines = 12;

}  // namespace

AboutDialog::AboutDialog(AboutSheet& about, const std::function<void()>& open_help, QWidget* window)
    : SheetDialog(window, Text("About Tallyfold")),
      about_(about),
      license_(new QPlainTextEdit(this)) {
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
  MakeLicense();
  connect(AddLeadingButton("aboutSheet_License_Button", Text("License")), &QPushButton::clicked,
          this, [this] {
            license_->setVisible(license_->isHidden());
            Fit();
          });
  connect(AddLeadingButton("aboutSheet_Help_Button", Text("Help")), &QPushButton::clicked, this,
          [open_help] { open_help(); });
  QPushButton* close = AddButton("aboutSheet_Close_Button", Text("Close"), true);
  connect(close, &QPushButton::clicked, this, [this] { Cancel(); });
  close->setFocus();
}

void AboutDialog::MakeLicense() {
  LoadLicense();
  QFile file(QLatin1String(":/tallyfold/LICENSE"));
  static_cast<void>(file.open(QIODevice::ReadOnly));
  license_->setObjectName(QLatin1String("aboutSheet_License_Text"));
  license_->setAccessibleName(Text("License"));
  license_->setReadOnly(true);
  license_->setTabChangesFocus(true);
  license_->setFont(SmallFont(font()));
  // Its lines are broken where the window wants them.
  QStringList paragraphs = QString::fromUtf8(file.readAll()).split(QLatin1String("\n\n"));
  for (QString& each : paragraphs) each = each.simplified();
  license_->setPlainText(paragraphs.join(QLatin1String("\n\n")));
  license_->setMinimumHeight(kLicenseLines * license_->fontMetrics().lineSpacing());
  license_->hide();
  Body().addSpacing(kGap);
  Body().addWidget(license_);
}

}  // namespace tallyfold::desktop
