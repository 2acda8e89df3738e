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
#include "desktop/fields/search_field.h"
#include "desktop/filter_menu.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"

namespace tallyfold::desktop {
namespace {

constexpr std::int32_t kUnresolved = 81;

}  // namespace

SearchStrip::SearchStrip(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      unresolved_(new QCheckBox(this)),
      label_(new QLabel(this)),
      field_(new SearchField(this)) {
  unresolved_->setObjectName(QLatin1String("showUnresolved_CheckBox"));
  unresolved_->setText(Text("Show Unresolved"));
  label_->setObjectName(QLatin1String("search_Label"));
  label_->setTextFormat(Qt::PlainText);
  label_->setFont(SmallFont(font()));
  label_->setForegroundRole(QPalette::PlaceholderText);
  label_->setBuddy(&field_->Field());
  field_->SetFilterMenu(new FilterMenu(parts_.search, this));
  field_->Field().setPlaceholderText(Text("Search entries"));
  field_->Field().installEventFilter(this);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, kWideGap, 0);
  row->setSpacing(kWideGap);
  // What is hidden for want of room must not keep the window wide.
  setMinimumWidth(field_->minimumSizeHint().width() + kWideGap);
  row->addStretch(1);
  row->addWidget(unresolved_);
  row->addWidget(label_);
  row->addWidget(field_, 10);

  connect(&field_->Field(), &QLineEdit::textEdited, this, [this](const QString& text) {
    parts_.text_editing.controlTextDidChange(TextEditing::TypedField::search_Field, ToUtf8(text));
    Show();
  });
  connect(&field_->ClearButton(), &QToolButton::clicked, this,
          [this] { parts_.search.Search_Cancel(); });
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
  QLineEdit& field = field_->Field();
  const QString text = ToQString(state.text);
  if (field.text() != text) field.setText(text);
  // The name of a filter is read from its beginning.
  if (!state.is_enabled) field.setCursorPosition(0);
  const bool had_focus = field.hasFocus();
  field_->SetTakesText(state.is_enabled);
  if (had_focus && !state.is_enabled) emit Left();
  field.setAccessibleName(state.label.empty() ? Text("Search") : ToQString(state.label));
  ShowLabel();
  const bool has_account = parts_.desk.SelectedAccount() != nullptr;
  const QString name = NameOfFilterType(type);
  field_->SetFilterName(name.isEmpty() ? Text("Filter") : name);
  field_->FilterButton().setEnabled(has_account);
  field_->SetCanClear(has_account && (!state.is_enabled || !state.text.empty()));
  unresolved_->setEnabled(has_account);
  unresolved_->setChecked(type == kUnresolved);
}

void SearchStrip::ShowLabel() {
  const SearchFieldState& state = State();
  label_->setText(ToQString(state.label));
  label_->setEnabled(state.label_is_enabled);
  // Where the window is narrow the label is the first to go, which the field has as its name all
  // the same; then the field gives way; then the check box goes, whose filter is in the menu.
  const bool is_reconcile = parts_.tabs.ShownRegister() == RegisterKind::Reconcile;
  const int box = is_reconcile ? unresolved_->sizeHint().width() + kWideGap : 0;
  unresolved_->setVisible(is_reconcile &&
                          width() >= box + field_->minimumSizeHint().width() + kWideGap);
  const int needed = label_->sizeHint().width() + field_->maximumWidth() + 2 * kWideGap + box;
  label_->setVisible(!state.label.empty() && width() >= needed);
}

void SearchStrip::FocusField() {
  QLineEdit& field = field_->Field();
  if (field.isEnabled() && isVisible()) field.setFocus(Qt::OtherFocusReason);
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
