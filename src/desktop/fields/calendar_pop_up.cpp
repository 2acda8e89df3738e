#include "desktop/fields/calendar_pop_up.h"

#include <QCalendarWidget>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QScreen>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kDayWidth = 32;
constexpr int kDayHeight = 28;
constexpr int kColumnWidth = 40;
constexpr int kLineHeight = 29;
constexpr double kTodayRing = 1.5;

// Days on the ground of a pop-up: one chosen, one today, those of other months pale.
class Days final : public QCalendarWidget {
 public:
  Days(const QDate& today, QWidget* parent) : QCalendarWidget(parent), today_(today) {
    setNavigationBarVisible(false);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
    setFirstDayOfWeek(QLocale().firstDayOfWeek());
    setGridVisible(false);
    setMinimumSize(7 * kColumnWidth, 7 * kLineHeight);
    // Weekends are days like others; their names are all that is drawn by these.
    const Colors& colors = ColorsOf(palette());
    QTextCharFormat plain;
    plain.setForeground(colors[Role::Dim]);
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
      setWeekdayTextFormat(static_cast<Qt::DayOfWeek>(day), plain);
    }
    QTextCharFormat head;
    head.setForeground(colors[Role::Dim]);
    head.setBackground(colors[Role::Raised]);
    setHeaderTextFormat(head);
    if (auto* table = findChild<QTableView*>()) {
      table->setFrameShape(QFrame::NoFrame);
      QPalette ground = table->palette();
      ground.setColor(QPalette::Base, colors[Role::Raised]);
      table->setPalette(ground);
    }
  }

 private:
  void paintCell(QPainter* painter, const QRect& rect, QDate day) const override {
    const Colors& colors = ColorsOf(palette());
    PainterState state(*painter);
    painter->fillRect(rect, colors[Role::Raised]);
    const QRect box =
        CenteredIn(rect, std::min(kDayWidth, rect.width()), std::min(kDayHeight, rect.height()));
    const bool is_chosen = day == selectedDate();
    const bool is_today = day == today_;
    if (is_chosen) {
      DrawBox(*painter, box, kRadius, colors[Role::Accent], {});
    } else if (is_today) {
      DrawBox(*painter, box, kRadius, {}, colors[Role::Accent], kTodayRing);
    }
    Role ink = Role::Text;
    if (is_chosen) {
      ink = Role::OnAccent;
    } else if (day.month() != monthShown()) {
      ink = Role::Off;
    }
    painter->setPen(colors[ink]);
    if (is_chosen || is_today) painter->setFont(DemiBoldFont(painter->font()));
    painter->drawText(rect, Qt::AlignCenter, locale().toString(day.day()));
  }

  QDate today_;
};

}  // namespace

CalendarPopUp::CalendarPopUp(const QDate& day, const QDate& today, QWidget* field)
    : QFrame(field, Qt::Popup), month_(new QLabel(this)), calendar_(new Days(today, this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("calendar_PopUp"));
  month_->setTextFormat(Qt::PlainText);
  month_->setFont(DemiBoldFont(font()));
  setAccessibleName(Text("Calendar"));
  calendar_->setAccessibleName(Text("Calendar"));
  if (auto* days = calendar_->findChild<QTableView*>()) days->setAccessibleName(Text("Calendar"));
  calendar_->setSelectedDate(day);
  auto* line = new QHBoxLayout;
  line->setContentsMargins(kGap, 0, 0, 0);
  line->addWidget(month_, 1);
  const auto add = [&](const QString& name, Qt::ArrowType arrow, void (QCalendarWidget::*turn)()) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setIconSize({kIconSize, kIconSize});
    button->setAutoRaise(true);
    button->setAccessibleName(name);
    button->setToolTip(name);
    connect(button, &QToolButton::clicked, calendar_, turn);
    line->addWidget(button);
  };
  const bool is_left_to_right = isLeftToRight();
  add(Text("Previous Month"), is_left_to_right ? Qt::LeftArrow : Qt::RightArrow,
      &QCalendarWidget::showPreviousMonth);
  add(Text("Next Month"), is_left_to_right ? Qt::RightArrow : Qt::LeftArrow,
      &QCalendarWidget::showNextMonth);
  auto* note = new QLabel(Text("+ and \u2212 step a day, t is today"), this);
  note->setTextFormat(Qt::PlainText);
  note->setFont(SmallFont(font()));
  note->setForegroundRole(QPalette::PlaceholderText);
  note->setContentsMargins(kGap, 0, kGap, 0);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kGap, kGap, kGap, kGap);
  column->setSpacing(kTightGap);
  column->addLayout(line);
  column->addWidget(calendar_);
  column->addWidget(note);
  connect(calendar_, &QCalendarWidget::currentPageChanged, this, &CalendarPopUp::ShowMonth);
  const auto choose = [this](const QDate& chosen) {
    emit Chosen(chosen);
    close();
  };
  connect(calendar_, &QCalendarWidget::clicked, this, choose);
  connect(calendar_, &QCalendarWidget::activated, this, choose);
  ShowMonth();
  calendar_->setFocus();
}

void CalendarPopUp::ShowMonth() {
  const QDate first(calendar_->yearShown(), calendar_->monthShown(), 1);
  month_->setText(QLocale().toString(first, QStringLiteral("MMMM yyyy")));
}

void CalendarPopUp::ShowAt(const QWidget& field) {
  resize(sizeHint());
  QPoint place = field.mapToGlobal(QPoint(0, field.height() + 2));
  if (const QScreen* screen = field.screen()) {
    const QRect room = screen->availableGeometry();
    if (place.y() + height() > room.bottom()) {
      place.setY(field.mapToGlobal(QPoint(0, 0)).y() - height() - 2);
    }
    place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() - width())));
  }
  move(place);
  show();
}

void CalendarPopUp::keyPressEvent(QKeyEvent* event) {
  const QString key = event->text();
  int step = 0;
  if (key == QLatin1String("+")) step = 1;
  if (key == QLatin1String("-")) step = -1;
  if (step != 0) {
    calendar_->setSelectedDate(calendar_->selectedDate().addDays(step));
  } else if (key == QLatin1String("t")) {
    emit Chosen(QDate());
    close();
  } else {
    QFrame::keyPressEvent(event);
  }
}

void CalendarPopUp::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  painter.fillRect(rect(), colors[Role::Raised]);
  DrawFrame(painter, rect(), colors[Role::Rule]);
}

}  // namespace tallyfold::desktop
