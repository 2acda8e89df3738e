#include "desktop/sheets/sheet_middle.h"

#include <QVBoxLayout>
#include <algorithm>

namespace tallyfold::desktop {
namespace {

constexpr int kLeastMiddleHeight = 160;

}  // namespace

SheetMiddle::SheetMiddle(QWidget* parent) : QScrollArea(parent) {
  auto* page = new QWidget(this);
  lines_ = new QVBoxLayout(page);
  lines_->setContentsMargins(0, 0, 0, 0);
  setWidget(page);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setAutoFillBackground(false);
  page->setAutoFillBackground(false);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize SheetMiddle::sizeHint() const {
  return widget()->sizeHint();
}

QSize SheetMiddle::minimumSizeHint() const {
  const QSize least = widget()->minimumSizeHint();
  return {least.width(), std::min(least.height(), kLeastMiddleHeight)};
}

int SheetMiddle::heightForWidth(int width) const {
  return widget()->hasHeightForWidth() ? widget()->heightForWidth(width) : sizeHint().height();
}

}  // namespace tallyfold::desktop
