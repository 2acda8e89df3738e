#include "desktop/fields/combo_box_cell.h"

#include <QEvent>
#include <QKeyEvent>
#include <utility>

#include "desktop/look/measures.h"
#include "desktop/look/text_length.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

// What a text has behind as many characters as were typed; folding case keeps their number.
QString RestOf(const QString& text, const QString& typed) {
  const QList<uint> characters = text.toUcs4();
  const qsizetype taken = typed.toUcs4().size();
  if (taken >= characters.size()) return {};
  return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()) + taken,
                           characters.size() - taken);
}

}  // namespace

LDGRComboBoxCell::LDGRComboBoxCell(QWidget* parent)
    : QLineEdit(parent), list_(new CompletionList(this)) {
  setMaxLength(kAnyLength);
  list_->hide();
  connect(this, &QLineEdit::textEdited, this, &LDGRComboBoxCell::TakeEdit);
  connect(this, &QLineEdit::textChanged, this, [this] {
    SetProblem(this, false);
    // What is told may be the text before it was completed.
    if (!completed_.isNull() && text() == completed_) return;
    completed_ = QString();
    typed_length_ = text().size();
  });
  connect(list_, &CompletionList::Taken, this, &LDGRComboBoxCell::Take);
}

void LDGRComboBoxCell::SetTexts(FormerTexts texts) {
  texts_ = std::move(texts);
  list_->hide();
}

void LDGRComboBoxCell::SetNotes(CompletionList::NoteOf notes) {
  list_->SetNotes(std::move(notes));
}

QString LDGRComboBoxCell::Typed() const {
  const bool is_completed = !completed_.isNull() && text() == completed_ && hasSelectedText() &&
                            selectionStart() == typed_length_;
  return is_completed ? text().left(typed_length_) : text();
}

void LDGRComboBoxCell::TakeEdit(const QString& edited) {
  // A text that became shorter was being deleted from: completing would bring it back.
  const bool grew = edited.size() > typed_length_ && cursorPosition() == edited.size();
  typed_length_ = edited.size();
  const std::string typed = ToUtf8(edited);
  if (grew && !edited.isEmpty()) {
    if (const auto found = FirstCompletion(texts_, typed)) {
      const QString rest = RestOf(ToQString(*found), edited);
      if (!rest.isEmpty()) {
        completed_ = edited + rest;
        setText(completed_);
        setSelection(static_cast<int>(edited.size()), static_cast<int>(rest.size()));
      }
    }
  }
  if (IsListOpen()) OpenList();
}

void LDGRComboBoxCell::OpenList() {
  const QString typed = Typed();
  list_->Show(Completions(texts_, ToUtf8(typed)), typed, 0);
}

void LDGRComboBoxCell::Take(const QString& text) {
  list_->hide();
  setText(text);
  typed_length_ = text.size();
  completed_ = QString();
  end(false);
  emit textEdited(text);
  emit Completed(text);
}

void LDGRComboBoxCell::TakeOffered() {
  if (IsListOpen() && !list_->Highlighted().isNull()) {
    Take(list_->Highlighted());
  } else {
    TakeCompletion();
  }
}

void LDGRComboBoxCell::TakeCompletion() {
  if (Typed() == text()) return;
  // As it is spelled in the list.
  const auto found = FirstCompletion(texts_, ToUtf8(text()));
  Take(found ? ToQString(*found) : text());
}

bool LDGRComboBoxCell::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    // Tab is the toolkit's before it is a key of the field. It takes what is offered and goes on.
    const auto* key = static_cast<const QKeyEvent*>(event);
    if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier) TakeOffered();
  }
  return QLineEdit::event(event);
}

void LDGRComboBoxCell::keyPressEvent(QKeyEvent* event) {
  event->accept();
  switch (event->key()) {
    case Qt::Key_Down:
      if (isReadOnly()) break;
      if (IsListOpen()) return list_->Step(1);
      return OpenList();
    case Qt::Key_Up:
      if (!IsListOpen()) break;
      return list_->Step(-1);
    case Qt::Key_Escape:
      if (!IsListOpen()) break;
      return list_->hide();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (IsListOpen() && !list_->Highlighted().isNull()) return Take(list_->Highlighted());
      // Before the key's event goes on to the default button.
      TakeCompletion();
      break;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void LDGRComboBoxCell::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    list_->hide();
    // To another program the user goes and comes back.
    if (event->reason() != Qt::ActiveWindowFocusReason) TakeCompletion();
  }
  QLineEdit::focusOutEvent(event);
}

void LDGRComboBoxCell::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) list_->hide();
  QLineEdit::changeEvent(event);
}

}  // namespace tallyfold::desktop
