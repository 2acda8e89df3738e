#include "desktop/sheets/update_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "app/desk.h"
#include "app/shell/update_check.h"
#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

using Status = UpdateState::Status;

constexpr int kUpdateWidth = 440;
constexpr int kPictureSize = 32;

struct Told {
  QLatin1String icon;
  Role ink = Role::Text;
  std::string heading;
  std::string text;
  bool may_try_again = false;
};

Told WordsFor(const UpdateState& state) {
  switch (state.status) {
    case Status::UpToDate:
      return {QLatin1String("tick"), Role::Good, LocalizedText("You have the latest version"),
              Message("It is Tallyfold {1}.", {state.latest_version})};
    case Status::NewerVersion:
      return {QLatin1String("hint"), Role::Accent,
              Message("Tallyfold {1} is there", {state.latest_version}),
              LocalizedText("Tallyfold fetches and installs nothing by itself.")};
    case Status::NoAddress:
      return {QLatin1String("warning"), Role::Warning,
              LocalizedText("This build cannot look for updates"),
              LocalizedText("It knows no address to ask.")};
    default:
      return {QLatin1String("warning"), Role::Warning, LocalizedText("No answer"),
              LocalizedText("Nobody answered. You may try again later."), true};
  }
}

}  // namespace

UpdateWindow::UpdateWindow(const Parts& parts, QWidget* window)
    : SheetDialog(window, Text("Updates")),
      parts_(parts),
      icon_(new QLabel(this)),
      heading_(new QLabel(this)),
      text_(new QLabel(this)),
      at_launch_(new QCheckBox(Text("Check at every launch"), this)) {
  setObjectName(QLatin1String("updateCheck_Window"));
  heading_->setObjectName(QLatin1String("updateCheck_Title"));
  text_->setObjectName(QLatin1String("updateCheck_Text"));
  at_launch_->setObjectName(QLatin1String("updateCheck_AtLaunch_CheckBox"));
  at_launch_->setAccessibleName(at_launch_->text());
  for (QLabel* label : {heading_, text_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  heading_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  text_->setForegroundRole(QPalette::PlaceholderText);
  text_->setMinimumWidth(kUpdateWidth - 2 * kSheetMargin - kPictureSize - kGroupGap);
  auto* column = new QVBoxLayout;
  column->setSpacing(kTightGap);
  column->addWidget(heading_);
  column->addWidget(text_);
  auto* row = new QHBoxLayout;
  row->setSpacing(kGroupGap);
  row->addWidget(icon_, 0, Qt::AlignTop);
  row->addLayout(column, 1);
  Body().addLayout(row);
  Body().addSpacing(kGap);
  Body().addWidget(at_launch_);
  connect(at_launch_, &QCheckBox::toggled, this,
          [this](bool is_set) { parts_.desk.preferences().SetCheckForUpdates(is_set); });
  close_ = AddButton("updateCheck_Close_Button", Text("Close"), true);
  again_ = AddButton("updateCheck_TryAgain_Button", Text("Try Again"));
  connect(close_, &QPushButton::clicked, this, [this] { Cancel(); });
  connect(again_, &QPushButton::clicked, this, [this] {
    parts_.updates.CloseWindow();
    parts_.updates.CheckForUpdates();
  });
}

void UpdateWindow::ShowState() {
  const UpdateState& state = parts_.updates.State();
  const Told told = WordsFor(state);
  icon_->setPixmap(
      PixmapNamed(told.icon, kPictureSize, devicePixelRatioF(), ColorsOf(palette())[told.ink]));
  heading_->setText(ToQString(told.heading));
  text_->setText(ToQString(told.text));
  at_launch_->setChecked(parts_.desk.preferences().GetCheckForUpdates());
  at_launch_->setVisible(state.status != Status::NoAddress);
  again_->setVisible(told.may_try_again);
  (told.may_try_again ? again_ : close_)->setDefault(true);
}

void UpdateWindow::Cancel() {
  parts_.updates.CloseWindow();
}

void UpdateWindowHost::Show() {
  if (!parts_.updates.State().window_is_open) {
    if (shown_ == nullptr) return;
    const bool had_keys = shown_->isActiveWindow();
    shown_->hide();
    shown_->deleteLater();
    shown_ = nullptr;
    // Not every window manager gives them to the window below.
    if (had_keys) window_.activateWindow();
    return;
  }
  if (shown_ != nullptr) return shown_->ShowState();
  // Somebody may be typing there.
  if (QApplication::activeModalWidget() != nullptr) return;
  shown_ = new UpdateWindow(parts_, &window_);
  shown_->Open();
}

}  // namespace tallyfold::desktop
