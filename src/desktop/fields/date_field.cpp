#include "desktop/fields/date_field.h"

#include <QDate>
#include <QKeyEvent>
#include <QStyle>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "desktop/fields/calendar_pop_up.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/text_length.h"
#include "desktop/texts.h"
#include "model/date_format.h"
#include "model/typed_day.h"
#include "platform/ambient.h"

namespace tallyfold::desktop {
namespace {

constexpr DateNumber kFirstDay = 10101;
constexpr DateNumber kLastDay = 99991231;

QDate DateOf(DateNumber day) {
  return {day / 10000, day / 100 % 100, day % 100};
}

DateNumber NumberOf(const QDate& date) {
  return date.year() * 10000 + date.month() * 100 + date.day();
}

bool WritesNames(const std::string& format) {
  return format.find_first_of("aAbB") != std::string::npos;
}

bool HoldsLetters(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar each) { return each.isLetter(); });
}

}  // namespace

DateField::DateField(QWidget* parent)
    : QLineEdit(parent),
      button_(new QToolButton(this)),
      format_(CurrentLocale().ShortDateFormat()),
      day_(TodaysDateNumber()) {
  setMaxLength(kAnyLength);
  button_->setIcon(IconNamed(QLatin1String("schedule-small"), Role::Dim));
  button_->setIconSize({kGlyphSize, kGlyphSize});
  button_->setAutoRaise(true);
  button_->setCursor(Qt::ArrowCursor);
  button_->setFocusPolicy(Qt::NoFocus);
  button_->setAccessibleName(Text("Calendar"));
  button_->setToolTip(Text("Calendar"));
  connect(button_, &QToolButton::clicked, this, &DateField::OpenCalendar);
  connect(this, &QLineEdit::textChanged, this, [this] { SetProblem(this, false); });
  connect(this, &QLineEdit::textEdited, this, [this] {
    if (Day()) emit DayChanged();
  });
  setText(Written(day_));
}

QString DateField::Written(DateNumber day) const {
  return ToQString(FormatDate(DateNumberToNSCalendarDate(day), format_));
}

void DateField::SetFormat(std::string format) {
  format_ = std::move(format);
  setText(Written(day_));
}

void DateField::SetDay(DateNumber day) {
  if (Day() == day && text() == Written(day)) return;
  day_ = day;
  setText(Written(day));
}

std::optional<DateNumber> DateField::Day() const {
  // A format need not be one that can be read back.
  if (text() == Written(day_)) return day_;
  return ReadTypedDay(ToUtf8(text().trimmed()), format_, day_);
}

void DateField::TakeDay(DateNumber day) {
  day_ = day;
  setText(Written(day));
  selectAll();
  emit DayChanged();
}

void DateField::Step(int days) {
  const auto day = Day();
  if (!day) return;
  const DateNumber other = DateNumberOfDayCount(DayCountOf(*day) + days);
  if (other >= kFirstDay && other <= kLastDay) TakeDay(other);
}

void DateField::OpenCalendar() {
  if (isReadOnly() || !isEnabled()) return;
  setFocus(Qt::PopupFocusReason);
  const QDate today = DateOf(TodaysDateNumber());
  auto* calendar = new CalendarPopUp(DateOf(Day().value_or(day_)), today, this);
  connect(calendar, &CalendarPopUp::Chosen, this,
          [this, today](const QDate& day) { TakeDay(NumberOf(day.isValid() ? day : today)); });
  calendar->ShowAt(*this);
}

void DateField::keyPressEvent(QKeyEvent* event) {
  if (isReadOnly()) return QLineEdit::keyPressEvent(event);
  const bool is_whole = !text().isEmpty() && selectedText() == text();
  const auto keys = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  event->accept();
  if (event->key() == Qt::Key_Down && keys == Qt::AltModifier) return OpenCalendar();
  if (keys == Qt::NoModifier) {
    if (event->key() == Qt::Key_Up) return Step(1);
    if (event->key() == Qt::Key_Down) return Step(-1);
    const QString typed = event->text();
    if (is_whole && typed == QLatin1String("+")) return Step(1);
    if (is_whole && typed == QLatin1String("-")) return Step(-1);
    // In a format with names a t may be a letter of one, in a word it is one.
    const bool is_letter = WritesNames(format_) || HoldsLetters(text());
    if (typed.compare(QLatin1String("t"), Qt::CaseInsensitive) == 0 &&
        (is_whole || text().isEmpty() || !is_letter)) {
      return TakeDay(TodaysDateNumber());
    }
  }
  QLineEdit::keyPressEvent(event);
}

void DateField::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    if (const auto day = Day()) {
      day_ = *day;
      if (text() != Written(day_)) setText(Written(day_));
    }
  }
  QLineEdit::focusOutEvent(event);
}

void DateField::resizeEvent(QResizeEvent* event) {
  QLineEdit::resizeEvent(event);
  const int size = height() - 4;
  const QRect place(width() - size - 2, 2, size, size);
  setTextMargins(isLeftToRight() ? QMargins(0, 0, kGlyphSize, 0) : QMargins(kGlyphSize, 0, 0, 0));
  button_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
}

}  // namespace tallyfold::desktop
