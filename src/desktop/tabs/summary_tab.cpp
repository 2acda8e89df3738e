#include "desktop/tabs/summary_tab.h"

#include <QListWidget>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/desk.h"
#include "app/views/account_summary_tab.h"
#include "desktop/look/measures.h"
#include "desktop/tabs/summary_list_delegate.h"
#include "desktop/tabs/summary_page.h"
#include "desktop/texts.h"
#include "summaries/account_summary.h"

namespace tallyfold::desktop {
namespace {

constexpr int kListWidth = 216;

}  // namespace

SummaryTab::SummaryTab(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      splitter_(new QSplitter(Qt::Horizontal, this)),
      list_(new QListWidget(splitter_)),
      page_(nullptr) {
  splitter_->setObjectName(QLatin1String("summary_Splitter"));
  splitter_->setChildrenCollapsible(false);
  list_->setObjectName(QLatin1String("summary_Table"));
  list_->setAccessibleName(Text("Summaries"));
  list_->setFrameShape(QFrame::NoFrame);
  list_->setItemDelegate(new SummaryListDelegate(list_));
  list_->setMouseTracking(true);
  list_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
  auto* area = new QScrollArea(splitter_);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  // Its tables take the keys.
  area->setFocusPolicy(Qt::NoFocus);
  area->setAccessibleName(Text("Summary"));
  page_ = new SummaryPage(area);
  area->setWidget(page_);
  splitter_->setStretchFactor(1, 1);
  splitter_->setSizes({kListWidth, 3 * kListWidth});
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(splitter_);

  connect(page_, &SummaryPage::EntriesWanted, this, [this](const SummaryLine& line) {
    const EntryList entries = parts_.summaries.ShowEntries(line);
    if (!entries.empty()) emit EntriesShown(entries);
  });
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!is_showing_ && row >= 0) parts_.summaries.Select(static_cast<std::size_t>(row));
  });
  connect(list_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    if (is_showing_) return;
    // Only the selected one can be edited.
    parts_.summaries.Rename(ToUtf8(item->text()));
    Show();
  });
}

void SummaryTab::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Show();
}

void SummaryTab::FocusList() {
  list_->setFocus(Qt::OtherFocusReason);
}

void SummaryTab::Show() {
  // To compute it for another tab would cost a look at every entry.
  if (!isVisible()) return;
  const AccountSummaryTabState& state = parts_.summaries.State();
  is_showing_ = true;
  const int count = static_cast<int>(state.summaries.size());
  while (list_->count() > count) delete list_->takeItem(list_->count() - 1);
  for (int i = 0; i < count; ++i) {
    if (i == list_->count()) {
      auto* item = new QListWidgetItem(list_);
      item->setFlags(item->flags() | Qt::ItemIsEditable);
      item->setSizeHint({0, RowHeight(list_->fontMetrics())});
    }
    const QString name = ToQString(state.summaries[static_cast<std::size_t>(i)]->name());
    if (list_->item(i)->text() != name) list_->item(i)->setText(name);
  }
  list_->setCurrentRow(state.selected_row);
  if (state.selected_row >= 0) {
    page_->Show(state.layout, parts_.desk.preferences());
  } else {
    page_->Clear();
  }
  is_showing_ = false;
}

}  // namespace tallyfold::desktop
