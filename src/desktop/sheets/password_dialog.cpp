#include "desktop/sheets/password_dialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/marked_line.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kPasswordSheetWidth = 420;
constexpr int kLockSize = 32;

}  // namespace

PasswordDialog::PasswordDialog(Parts parts, QWidget* window)
    : SheetDialog(window, Text("Password")),
      parts_(std::move(parts)),
      title_(new QLabel(this)),
      field_(new QLineEdit(this)),
      caps_(new MarkedLine(QLatin1String("warning"), Role::Warning, this)) {
  const auto name = [this](const char* part) { return parts_.name + QLatin1String(part); };
  setObjectName(parts_.name);
  auto* heading = new QLabel(this);
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  heading->setText(parts_.heading);
  heading->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  title_->setObjectName(name("_Title"));
  title_->setTextFormat(Qt::PlainText);
  title_->setWordWrap(true);
  title_->setForegroundRole(QPalette::PlaceholderText);
  title_->setMinimumWidth(kPasswordSheetWidth - 2 * kSheetMargin - kLockSize - kGroupGap);
  field_->setEchoMode(QLineEdit::Password);
  field_->installEventFilter(this);
  auto* image = new QLabel(this);
  image->setPixmap(PixmapNamed(QLatin1String("lock"), kLockSize, devicePixelRatioF(),
                               ColorsOf(palette())[Role::Accent]));
  image->setAlignment(Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->setSpacing(kTightGap);
  column->addWidget(heading);
  column->addWidget(title_);
  auto* row = new QHBoxLayout;
  row->setSpacing(kGroupGap);
  row->addWidget(image);
  row->addLayout(column, 1);
  Body().addLayout(row);
  Body().addSpacing(kGap);
  auto* form = new Form(this);
  form->Add(Text("Password"), field_, name("_Password_Field").toLatin1().constData());
  MakeCapsLine(name("_CapsLock"));
  form->AddUnlabelled(caps_);
  Body().addWidget(form);

  QPushButton* cancel = AddButton("", parts_.cancel);
  cancel->setObjectName(name("_Cancel_Button"));
  ok_ = AddButton("", Text("Unlock"), true);
  ok_->setObjectName(name("_OK_Button"));
  connect(cancel, &QPushButton::clicked, this, [this] { Cancel(); });
  connect(ok_, &QPushButton::clicked, this, [this] { parts_.ok(); });
  connect(field_, &QLineEdit::textEdited, this,
          [this](const QString& text) { parts_.typed(ToUtf8(text)); });
  field_->setFocus();
}

void PasswordDialog::MakeCapsLine(const QString& name) {
  caps_->setObjectName(name);
  caps_->SetText(Text("Caps Lock is on."));
  // Its room is there always, so that nothing moves.
  QSizePolicy policy = caps_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  caps_->setSizePolicy(policy);
  caps_->hide();
}

// The toolkit does not tell whether the lock is on; a letter in the other case than Shift says
// does.
bool PasswordDialog::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == field_ && event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const QString typed = key->text();
    const bool is_letter = typed.size() == 1 && typed.front().toLower() != typed.front().toUpper();
    if (is_letter && !key->modifiers().testFlag(Qt::ControlModifier)) {
      caps_->setVisible(typed.front().isUpper() != key->modifiers().testFlag(Qt::ShiftModifier));
    }
  }
  return SheetDialog::eventFilter(receiver, event);
}

void PasswordDialog::ShowState() {
  const PasswordSheetState& state = parts_.state();
  title_->setText(state.title.empty() ? parts_.sentence : ToQString(state.title));
  const QString typed = ToQString(state.typed.password);
  if (field_->text() != typed) field_->setText(typed);
  ok_->setEnabled(state.ok_is_enabled);
}

}  // namespace tallyfold::desktop
