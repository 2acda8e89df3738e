#include "desktop/fields/amount_field.h"

#include <QKeyEvent>
#include <algorithm>

#include "desktop/look/measures.h"
#include "desktop/look/text_length.h"
#include "desktop/texts.h"
#include "model/amount_input.h"
#include "model/amount_sum.h"
#include "registers/register_look.h"
#include "registers/speaking_text_field.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {

std::optional<double> AmountIn(const QString& text) {
  const std::string typed = ToUtf8(text);
  if (const auto sum = SumOfTypedAmounts(typed)) return sum;
  return ParsePlainOrUsersAmount(typed);
}

QString TextOfAmount(double amount) {
  return ToQString(FieldAmountText(amount, LDGRPreferences::sharedPreferences()));
}

AmountField::AmountField(QWidget* parent) : QLineEdit(parent) {
  setMaxLength(kAnyLength);
  setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  connect(this, &QLineEdit::textEdited, this, &AmountField::TakeEdit);
  connect(this, &QLineEdit::textChanged, this, [this] {
    SetProblem(this, false);
    // What is told may be a text that was refused.
    spoken_ = text();
  });
}

std::optional<double> AmountField::Amount() const {
  return AmountIn(text());
}

void AmountField::AddUp() {
  if (const auto sum = SumOfTypedAmounts(ToUtf8(text()))) setText(TextOfAmount(*sum));
}

void AmountField::SetAside(bool is_aside) {
  if (is_aside != isEnabled()) return;
  setEnabled(!is_aside);
  if (is_aside) {
    unread_ = Amount() || text().trimmed().isEmpty() ? QString() : text();
  } else if (!unread_.isNull()) {
    setText(unread_);
  }
}

void AmountField::TakeEdit(const QString& text) {
  if (speaking_ == nullptr || text == spoken_) return;
  // What stands between the parts that stayed was replaced.
  const QString former = spoken_;
  const qsizetype shorter = std::min(text.size(), former.size());
  const auto [differs, of_former] =
      std::mismatch(text.begin(), text.begin() + shorter, former.begin());
  const qsizetype start = differs - text.begin();
  qsizetype same_end = 0;
  while (same_end < shorter - start &&
         text[text.size() - 1 - same_end] == former[former.size() - 1 - same_end]) {
    ++same_end;
  }
  const QString replacement = text.mid(start, text.size() - same_end - start);
  const LDGRSpeakingTextField::TextRange range{
      static_cast<std::size_t>(start), static_cast<std::size_t>(former.size() - same_end - start)};
  if (speaking_->textView(range, ToUtf8(replacement))) return;
  const int cursor = static_cast<int>(start);
  setText(former);
  setCursorPosition(cursor);
}

void AmountField::focusOutEvent(QFocusEvent* event) {
  AddUp();
  QLineEdit::focusOutEvent(event);
}

void AmountField::keyPressEvent(QKeyEvent* event) {
  // Before the key's event goes on to the default button.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) AddUp();
  QLineEdit::keyPressEvent(event);
}

}  // namespace tallyfold::desktop
