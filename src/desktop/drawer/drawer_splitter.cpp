#include "desktop/drawer/drawer_splitter.h"

#include <QResizeEvent>
#include <algorithm>

#include "app/accounts/accounts_drawer.h"
#include "app/desk.h"
#include "desktop/drawer/accounts_list.h"
#include "desktop/look/measures.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

constexpr int kDrawerWidth = 232;
// A narrower window leaves an open drawer no more than that.
constexpr int kNarrowWindow = 900;
// So many accounts are in sight where the drawer lies above or below the page.
constexpr int kRowsAcross = 5;

// Edges as the preferences number them.
enum Edge { kLeft = 0, kBottom = 1, kRight = 2, kTop = 3 };

}  // namespace

DrawerSplitter::DrawerSplitter(const Parts& parts, QWidget* parent)
    : QSplitter(parent), parts_(parts) {
  setChildrenCollapsible(false);
  connect(this, &QSplitter::splitterMoved, this, [this] {
    const int size = orientation() == Qt::Horizontal ? list_->width() : list_->height();
    parts_.desk.preferences().SetAccountsDrawerWidth(static_cast<float>(size));
  });
}

void DrawerSplitter::SetPieces(AccountsList& list, QWidget& page) {
  list_ = &list;
  page_ = &page;
}

void DrawerSplitter::Show() {
  const int edge = parts_.desk.preferences().GetAccountsDrawerPreferredEdge();
  const bool is_beside = edge != kTop && edge != kBottom;
  const bool is_first = edge == kLeft || edge == kTop;
  setOrientation(is_beside ? Qt::Horizontal : Qt::Vertical);
  insertWidget(is_first ? 0 : 1, list_);
  setStretchFactor(indexOf(page_), 1);
  setStretchFactor(indexOf(list_), 0);
  const bool was_shown = list_->isVisibleTo(this);
  list_->setVisible(parts_.drawer.State().is_open);
  if (was_shown == list_->isVisibleTo(this) && was_shown) return;
  Fit();
}

void DrawerSplitter::Fit() {
  const bool is_beside = orientation() == Qt::Horizontal;
  const bool is_first = indexOf(list_) == 0;
  const int room = is_beside ? window()->width() : window()->height();
  const float stored = parts_.desk.preferences().GetAccountsDrawerWidth();
  const int wanted = stored > 0  ? static_cast<int>(stored)
                     : is_beside ? kDrawerWidth
                                 : kBarHeight + kRowsAcross * kAccountRowHeight + kStatusHeight;
  const bool is_narrow = is_beside && room < kNarrowWindow;
  const int drawer = is_narrow ? AccountsList::kLeastWidth
                               : std::clamp(wanted, AccountsList::kLeastWidth,
                                            std::max(AccountsList::kLeastWidth, room / 2));
  setSizes(is_first ? QList<int>{drawer, room - drawer} : QList<int>{room - drawer, drawer});
}

void DrawerSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  const bool was_narrow = event->oldSize().width() < kNarrowWindow;
  if (list_ != nullptr && was_narrow != (width() < kNarrowWindow)) Fit();
}

}  // namespace tallyfold::desktop
