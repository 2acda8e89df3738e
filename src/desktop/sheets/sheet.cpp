#include "desktop/sheets/sheet.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/sheets/marked_line.h"
#include "desktop/sheets/tab_order.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kTopMargin = 18;
constexpr int kBottomMargin = 16;
// Above the buttons.
constexpr int kRuleGap = 14;
// What a sheet leaves of its screen.
constexpr int kScreenMargin = 80;
// What a table keeps where its sheet is taller than that.
constexpr int kLeastTableRows = 3;

// What a wide sheet leaves of its window, and how wide it is at least.
constexpr int kWindowMargin = 80;
constexpr int kLeastWideWidth = 780;

// Brings a widget of the sheet into sight where it stands in a part that scrolls.
void Reveal(const QWidget& sheet, QWidget& widget) {
  for (QWidget* each = widget.parentWidget(); each != nullptr && each != &sheet;
       each = each->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(each)) area->ensureWidgetVisible(&widget);
  }
}

// Lets tables be as low as they may be in a sheet that is too tall for its screen.
void LowerTables(QWidget& sheet) {
  const auto tables = sheet.findChildren<QTableView*>();
  for (QTableView* table : tables) {
    const int least = table->horizontalHeader()->sizeHint().height() +
                      kLeastTableRows * table->verticalHeader()->defaultSectionSize() +
                      2 * table->frameWidth();
    const bool is_fixed = table->minimumHeight() == table->maximumHeight();
    if (is_fixed || table->minimumHeight() <= least) continue;
    table->setMinimumHeight(least);
    // Layouts further up hear of it only when the events are through.
    for (QWidget* each = table; each != &sheet; each = each->parentWidget()) each->updateGeometry();
  }
}

}  // namespace

SheetDialog::SheetDialog(QWidget* window, const QString& title)
    : QDialog(window, Qt::Sheet | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      middle_(new QWidget(this)),
      body_(new QVBoxLayout(middle_)),
      foot_(new QVBoxLayout),
      problem_(new MarkedLine(QLatin1String("warning"), Role::Problem, this)),
      buttons_(new QWidget(this)) {
  setWindowModality(Qt::WindowModal);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && isAncestorOf(now)) Reveal(*this, *now);
  });
  setWindowTitle(QString(title).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
  problem_->SetName(QLatin1String("sheet_Problem"));
  problem_->hide();

  auto* row = new QHBoxLayout(buttons_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  row->addStretch(1);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(kSheetMargin, kTopMargin, kSheetMargin, kBottomMargin);
  whole->setSpacing(kRuleGap);
  body_->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(middle_, 1);
  whole->addWidget(problem_);
  whole->addWidget(new RuleLine(this));
  foot_->setSpacing(kWideGap);
  foot_->addWidget(buttons_);
  whole->addLayout(foot_);
}

void SheetDialog::UseWholeWidth() {
  layout()->setContentsMargins(0, 0, 0, kBottomMargin);
  layout()->setSpacing(0);
  problem_->setContentsMargins(kSheetMargin, kGap, kSheetMargin, kGap);
  foot_->setContentsMargins(kSheetMargin, kRuleGap, kSheetMargin, 0);
}

QPushButton* SheetDialog::AddButton(const char* name, const QString& title, bool is_default) {
  auto* button = new QPushButton(WithoutMnemonics(title), buttons_);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(is_default);
  button->setDefault(is_default);
  buttons_->layout()->addWidget(button);
  return button;
}

QPushButton* SheetDialog::AddLeadingButton(const char* name, const QString& title) {
  QPushButton* button = AddButton(name, title);
  static_cast<QBoxLayout*>(buttons_->layout())->insertWidget(leading_count_++, button);
  return button;
}

void SheetDialog::SetLeading(QWidget* widget, bool is_above) {
  foot_->removeWidget(widget);
  buttons_->layout()->removeWidget(widget);
  if (is_above) {
    foot_->insertWidget(0, widget);
  } else {
    static_cast<QBoxLayout*>(buttons_->layout())->insertWidget(0, widget);
  }
}

void SheetDialog::AddBeforeButtons(QWidget* widget) {
  static_cast<QBoxLayout*>(buttons_->layout())->insertWidget(leading_count_ + 1, widget);
}

void SheetDialog::ShowProblem(const QString& problem) {
  problem_->SetText(problem);
  problem_->setVisible(!problem.isEmpty());
}

void SheetDialog::Open() {
  ShowState();
  ensurePolished();
  TabInReadingOrder(*this);
  Fit();
  open();
}

void SheetDialog::ScrollMiddle(bool scrolls) {
  if (scrolls == (scrolled_ != nullptr)) return;
  auto* whole = static_cast<QVBoxLayout*>(layout());
  // Another parent takes the focus away.
  const QPointer<QWidget> focus = focusWidget();
  if (scrolls) {
    scrolled_ = new QScrollArea(this);
    scrolled_->setFrameShape(QFrame::NoFrame);
    scrolled_->setFocusPolicy(Qt::NoFocus);
    scrolled_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled_->setWidgetResizable(true);
    whole->removeWidget(middle_);
    scrolled_->setWidget(middle_);
    scrolled_->setMinimumWidth(middle_->minimumSizeHint().width() + kScrollBarExtent);
    whole->insertWidget(0, scrolled_, 1);
  } else {
    whole->removeWidget(scrolled_);
    scrolled_->takeWidget();
    whole->insertWidget(0, middle_, 1);
    middle_->show();
    scrolled_->deleteLater();
    scrolled_ = nullptr;
  }
  if (focus) focus->setFocus();
}

void SheetDialog::Fit() {
  const QWidget* window = parentWidget()->window();
  const QRect screen = window->screen()->availableGeometry();
  const int tallest = screen.height() - kScreenMargin;
  ScrollMiddle(false);
  QSize wanted = sizeHint();
  if (wanted_width_ > 0) {
    const int room = std::max(kLeastWideWidth, window->width() - kWindowMargin);
    wanted.setWidth(std::max(minimumSizeHint().width(), std::min(wanted_width_, room)));
    if (hasHeightForWidth()) wanted.setHeight(heightForWidth(wanted.width()));
  }
  if (wanted.height() > tallest) LowerTables(*this);
  const int least = hasHeightForWidth() ? layout()->totalMinimumHeightForWidth(wanted.width())
                                        : minimumSizeHint().height();
  if (least > tallest) {
    ScrollMiddle(true);
    wanted.rwidth() += kScrollBarExtent;
  }
  const QSize size(wanted.width(), std::min(wanted.height(), tallest));
  // Else the least size that it had before would hold.
  layout()->activate();
  resize(size);
  const QPoint middle = window->geometry().center();
  move(std::clamp(middle.x() - size.width() / 2, screen.left(),
                  std::max(screen.left(), screen.right() - size.width())),
       std::clamp(window->geometry().top(), screen.top(),
                  std::max(screen.top(), screen.bottom() - size.height())));
}

void SheetDialog::GrowFor(QWidget* part) {
  if (!isVisible()) return;
  // Layouts further up hear of it only when the events are through.
  for (QWidget* each = part; each != this; each = each->parentWidget()) {
    each->updateGeometry();
    QWidget* around = each->parentWidget();
    if (around != this && around->layout() != nullptr) around->layout()->activate();
  }
  if (minimumSizeHint().width() > width() || heightForWidth(width()) > height()) Fit();
}

bool SheetDialog::focusNextPrevChild(bool next) {
  // The toolkit goes in the order in which widgets were made, and loses those behind a table one of
  // whose cells was edited.
  const QList<QWidget*> widgets = TabStopsInReadingOrder(*this);
  const qsizetype count = widgets.size();
  const QWidget* focus = focusWidget();
  qsizetype at = next ? -1 : count;
  for (qsizetype i = 0; i < count && focus != nullptr; ++i) {
    if (widgets[i] == focus || widgets[i]->isAncestorOf(focus)) at = i;
  }
  for (qsizetype step = 1; step <= count; ++step) {
    QWidget* widget = widgets[(at + (next ? step : 2 * count - step)) % count];
    if (!widget->isEnabled() || !widget->isVisibleTo(this)) continue;
    widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return false;
}

void SheetDialog::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  if (was_painted_) return;
  was_painted_ = true;
  QTimer::singleShot(0, this, [this] { Painted(); });
}

void SheetDialog::closeEvent(QCloseEvent* event) {
  // The application closes it, if that is what its Cancel comes to.
  event->ignore();
  Cancel();
}

}  // namespace tallyfold::desktop
