#include "desktop/sheets/password_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kUnlockWidth = 420;
constexpr int kLockSize = 32;

}  // namespace

PasswordDialog::PasswordDialog(Parts parts, QWidget* window)
    : SheetDialog(window, parts.title),
      parts_(std::move(parts)),
      title_(new QLabel(this)),
      field_(new QLineEdit(this)) {
  const auto name = [this](const char* part) { return parts_.name + QLatin1String(part); };
  title_->setObjectName(name("_Title"));
  title_->setTextFormat(Qt::PlainText);
  title_->setWordWrap(true);
  title_->setBuddy(field_);
  title_->setMinimumWidth(kUnlockWidth - 2 * kSheetMargin - kLockSize - kGroupGap);
  field_->setObjectName(name("_Password_Field"));
  field_->setEchoMode(QLineEdit::Password);
  field_->setAccessibleName(Text("Password"));
  auto* image = new QLabel(this);
  image->setPixmap(PixmapNamed(QLatin1String("lock"), kLockSize, devicePixelRatioF(),
                               ColorsOf(palette())[Role::Accent]));
  image->setAlignment(Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  column->addWidget(title_);
  column->addWidget(field_);
  auto* row = new QHBoxLayout;
  row->setSpacing(kGroupGap);
  row->addWidget(image);
  row->addLayout(column, 1);
  Body().addLayout(row);

  QPushButton* cancel = AddButton("", parts_.cancel);
  cancel->setObjectName(name("_Cancel_Button"));
  ok_ = AddButton("", Text("OK"), true);
  ok_->setObjectName(name("_OK_Button"));
  connect(cancel, &QPushButton::clicked, this, [this] { Cancel(); });
  connect(ok_, &QPushButton::clicked, this, [this] { parts_.ok(); });
  connect(field_, &QLineEdit::textEdited, this,
          [this](const QString& text) { parts_.typed(ToUtf8(text)); });
  field_->setFocus();
}

void PasswordDialog::ShowState() {
  const PasswordSheetState& state = parts_.state();
  title_->setText(state.title.empty() ? parts_.question : ToQString(state.title));
  const QString typed = ToQString(state.typed.password);
  if (field_->text() != typed) field_->setText(typed);
  ok_->setEnabled(state.ok_is_enabled);
}

}  // namespace tallyfold::desktop
