#include "desktop/search_strip.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "app/desk.h"
#include "app/shell/tabs.h"
#include "app/shell/text_editing.h"
#include "desktop/filter_menu.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"

namespace tallyfold::desktop {
namespace {

constexpr std::int32_t kUnresolved = 81;
constexpr int kLeastFieldWidth = 200;
constexpr int kFieldWidth = 316;

}  // namespace

SearchStrip::SearchStrip(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      unresolved_(new QCheckBox(this)),
      label_(new QLabel(this)),
      filter_(new QToolButton(this)),
      field_(new QLineEdit(this)),
      cancel_(new QToolButton(this)) {
  unresolved_->setObjectName(QLatin1String("showUnresolved_CheckBox"));
  unresolved_->setText(Text("Show Unresolved"));
  label_->setObjectName(QLatin1String("search_Label"));
  label_->setTextFormat(Qt::PlainText);
  label_->setFont(SmallFont(font()));
  filter_->setObjectName(QLatin1String("filter_PopUp"));
  filter_->setPopupMode(QToolButton::InstantPopup);
  filter_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  filter_->setFocusPolicy(Qt::TabFocus);
  filter_->setMenu(new FilterMenu(parts_.search, filter_));
  field_->setObjectName(QLatin1String("search_Field"));
  field_->setPlaceholderText(Text("Search entries"));
  field_->addAction(IconNamed(QLatin1String("search"), Role::Dim), QLineEdit::LeadingPosition);
  field_->installEventFilter(this);
  cancel_->setObjectName(QLatin1String("search_Cancel_Button"));
  cancel_->setIcon(IconNamed(QLatin1String("close"), Role::Dim));
  cancel_->setAccessibleName(Text("Cancel Search"));
  cancel_->setToolTip(Text("Cancel Search"));
  cancel_->setAutoRaise(true);
  cancel_->setFocusPolicy(Qt::TabFocus);

  auto* group = new QWidget(this);
  auto* fields = new QHBoxLayout(group);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->setSpacing(0);
  fields->addWidget(filter_);
  fields->addWidget(field_, 1);
  fields->addWidget(cancel_);
  group->setMinimumWidth(kLeastFieldWidth);
  group->setMaximumWidth(kFieldWidth);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, kWideGap, 0);
  row->setSpacing(kWideGap);
  row->addStretch(1);
  row->addWidget(unresolved_);
  row->addWidget(label_);
  row->addWidget(group, 10);

  connect(field_, &QLineEdit::textEdited, this, [this](const QString& text) {
    parts_.text_editing.controlTextDidChange(TextEditing::TypedField::Search, ToUtf8(text));
    Show();
  });
  connect(cancel_, &QToolButton::clicked, this, [this] { parts_.search.Search_Cancel(); });
  connect(unresolved_, &QCheckBox::clicked, this, [this](bool is_on) {
    parts_.search.Filter_Select(is_on ? kUnresolved : filter_type::kGeneral);
  });
}

const SearchFieldState& SearchStrip::State() const {
  const RegisterSearchState& state = parts_.search.State();
  return parts_.tabs.ShownRegister() == RegisterKind::Reconcile ? state.reconcile : state.entry;
}

void SearchStrip::Show() {
  const RegisterKind shown = parts_.tabs.ShownRegister();
  const SearchFieldState& state = State();
  const std::int32_t type = parts_.search.State().menu_type;
  setVisible(shown != RegisterKind::Other);
  const QString text = ToQString(state.text);
  if (field_->text() != text) field_->setText(text);
  field_->setEnabled(state.is_enabled);
  field_->setAccessibleName(state.label.empty() ? Text("Search") : ToQString(state.label));
  ShowLabel();
  const bool has_account = parts_.desk.SelectedAccount() != nullptr;
  const QString name = NameOfFilterType(type);
  filter_->setText(WithoutMnemonics(name.isEmpty() ? Text("Filter") : name));
  filter_->setAccessibleName(Text("Filter") + QLatin1String(" ") + name);
  filter_->setEnabled(has_account);
  cancel_->setVisible(has_account && (!state.is_enabled || !state.text.empty()));
  unresolved_->setVisible(shown == RegisterKind::Reconcile);
  unresolved_->setEnabled(has_account);
  unresolved_->setChecked(type == kUnresolved);
}

void SearchStrip::ShowLabel() {
  const SearchFieldState& state = State();
  label_->setText(ToQString(state.label));
  label_->setEnabled(state.label_is_enabled);
  // The first to go where the window is narrow; the field has it as its name all the same.
  const int needed = label_->sizeHint().width() + kFieldWidth + 2 * kWideGap +
                     (unresolved_->isVisibleTo(this) ? unresolved_->sizeHint().width() : 0);
  label_->setVisible(!state.label.empty() && width() >= needed);
}

void SearchStrip::FocusField() {
  if (field_->isEnabled() && isVisible()) field_->setFocus(Qt::OtherFocusReason);
}

void SearchStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ShowLabel();
}

bool SearchStrip::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(receiver, event);
  switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit Left();
      return true;
    case Qt::Key_Escape:
      if (State().text.empty()) {
        emit Left();
      } else {
        parts_.search.Search_Cancel();
      }
      return true;
    default:
      return false;
  }
}

}  // namespace tallyfold::desktop
