#include "desktop/sheets/page_list.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPainter>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kPageListWidth = 176;
constexpr int kLeastPageHeight = 400;

// A name of a page, as an account in its list.
class PageName final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const Colors& colors = ColorsOf(option.palette);
    const QRect cell = option.rect.adjusted(0, 1, 0, -1);
    QFont font = option.font;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    if (option.state.testFlag(QStyle::State_Selected)) {
      const bool has_focus = option.widget != nullptr && option.widget->hasFocus();
      DrawBox(*painter, cell, kSmallRadius, colors[Role::Selection],
              has_focus ? colors[Role::Accent] : QColor(), kRing);
      const QRect bar(cell.left(), cell.top() + kGap, kSelectionBar, cell.height() - 2 * kGap);
      painter->setBrush(colors[Role::Accent]);
      painter->drawRect(QStyle::visualRect(option.direction, cell, bar));
      font = DemiBoldFont(font);
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
      painter->setBrush(colors[Role::Hover]);
      painter->drawRoundedRect(cell, kSmallRadius, kSmallRadius);
    }
    painter->setFont(font);
    painter->setPen(colors[Role::Text]);
    const QRect text = cell.adjusted(kOuterCellPadding, 0, -kCellPadding, 0);
    painter->drawText(QStyle::visualRect(option.direction, cell, text),
                      static_cast<int>(QStyle::visualAlignment(
                          option.direction, Qt::AlignLeading | Qt::AlignVCenter)) |
                          Qt::TextSingleLine,
                      index.data().toString());
    painter->restore();
  }
};

}  // namespace

PageList::PageList(QWidget* parent, const char* name)
    : QWidget(parent), list_(new QListWidget(this)), pages_(new QStackedWidget(this)) {
  list_->setObjectName(QLatin1String(name));
  list_->setAccessibleName(Text("Pages"));
  list_->setItemDelegate(new PageName(list_));
  list_->setFrameShape(QFrame::NoFrame);
  list_->viewport()->setAutoFillBackground(false);
  list_->setMouseTracking(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  pages_->setBackgroundRole(QPalette::Base);
  pages_->setAutoFillBackground(true);
  pages_->setMinimumHeight(kLeastPageHeight);
  auto* names = new QVBoxLayout;
  names->setContentsMargins(kGap, kWideGap, kGap, kGap);
  names->addWidget(list_);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addLayout(names);
  // The rule before the pages.
  row->addSpacing(1);
  row->addWidget(pages_, 1);
  connect(list_, &QListWidget::currentRowChanged, this, [this](int to) { Select(to); });
  const auto turn = [this](const QKeySequence& keys, int by) {
    auto* shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, [this, by] { GoBy(by); });
  };
  turn(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
  turn(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
  turn(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
  turn(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1);
  turn(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
}

void PageList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect page = pages_->geometry();
  const int x = layoutDirection() == Qt::LeftToRight ? page.left() - 1 : page.right() + 1;
  DrawRuleBefore(painter, QRect(x, 0, 1, height()), ColorsOf(palette())[Role::Rule]);
}

void PageList::GoBy(int pages) {
  list_->setCurrentRow((list_->currentRow() + list_->count() + pages) % list_->count());
}

void PageList::Add(std::string_view identifier, const QString& title, QWidget* page) {
  auto* whole = new QWidget(pages_);
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(kColumnGap, kSheetMargin, kColumnGap, kSheetMargin);
  column->addWidget(page);
  if (!page->sizePolicy().expandingDirections().testFlag(Qt::Vertical)) column->addStretch(1);
  pages_->addWidget(whole);
  identifiers_.emplace_back(identifier);
  const QSignalBlocker blocker(list_);
  auto* item = new QListWidgetItem(title, list_);
  item->setSizeHint(QSize(0, kAccountRowHeight));
  list_->setMinimumHeight(list_->count() * kAccountRowHeight);
  const int width =
      QFontMetrics(DemiBoldFont(list_->font())).horizontalAdvance(title) + 2 * kOuterCellPadding;
  list_->setFixedWidth(std::max({kPageListWidth - 2 * kGap, width, list_->minimumWidth()}));
  if (identifiers_.size() == 1) list_->setCurrentRow(0);
}

void PageList::Select(int row) {
  if (row < 0) return;
  if (!may_ || may_(identifiers_[static_cast<std::size_t>(row)])) {
    pages_->setCurrentIndex(row);
    return;
  }
  // The list is still busy with the choice.
  QMetaObject::invokeMethod(
      this,
      [this] {
        const QSignalBlocker blocker(list_);
        list_->setCurrentRow(pages_->currentIndex());
      },
      Qt::QueuedConnection);
}

void PageList::ShowPage(std::string_view identifier) {
  const auto found = std::ranges::find(identifiers_, identifier);
  if (found == identifiers_.end()) return;
  const auto row = static_cast<int>(found - identifiers_.begin());
  if (row == pages_->currentIndex()) return;
  const QSignalBlocker blocker(list_);
  list_->setCurrentRow(row);
  pages_->setCurrentIndex(row);
}

std::string PageList::PageOf(const QWidget* widget) const {
  for (int i = 0; i < pages_->count(); ++i) {
    if (pages_->widget(i)->isAncestorOf(widget)) return identifiers_[static_cast<std::size_t>(i)];
  }
  return {};
}

}  // namespace tallyfold::desktop
