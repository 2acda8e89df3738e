#include "desktop/fields/search_field.h"

#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <algorithm>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kWidth = 316;
constexpr int kLeastWidth = 200;
constexpr int kRuleHeight = 18;
constexpr int kSearchInset = 2;

}  // namespace

SearchField::SearchField(QWidget* parent)
    : QWidget(parent),
      filter_(new QToolButton(this)),
      field_(new QLineEdit(this)),
      clear_(new QToolButton(this)) {
  filter_->setObjectName(QStringLiteral("filter_PopUp"));
  filter_->setPopupMode(QToolButton::InstantPopup);
  filter_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  filter_->setAutoRaise(true);
  filter_->setFocusPolicy(Qt::TabFocus);
  field_->setObjectName(QStringLiteral("search_Field"));
  field_->setFrame(false);
  // A file that is dropped is meant for the window.
  field_->setAcceptDrops(false);
  clear_->setObjectName(QStringLiteral("search_Cancel_Button"));
  clear_->setIcon(IconNamed(QLatin1String("close")));
  clear_->setIconSize({kGlyphSize, kGlyphSize});
  clear_->setAutoRaise(true);
  clear_->setFocusPolicy(Qt::TabFocus);
  clear_->setAccessibleName(Text("Cancel Search"));
  clear_->setToolTip(Text("Cancel Search"));
  clear_->hide();
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setMaximumWidth(kWidth);
  field_->installEventFilter(this);
  connect(field_, &QLineEdit::textChanged, this,
          [this](const QString& text) { SetCanClear(!text.isEmpty()); });
  setTabOrder(filter_, field_);
  setTabOrder(field_, clear_);
}

void SearchField::SetFilterMenu(QMenu* menu) {
  menu->setParent(filter_, menu->windowFlags());
  filter_->setMenu(menu);
  LayOut();
}

void SearchField::SetFilterName(const QString& name) {
  filter_->setText(WithoutMnemonics(name));
  filter_->setAccessibleName(ToQString(Message("Filter: {1}", {ToUtf8(name)})));
  LayOut();
}

void SearchField::SetCanClear(bool can_clear) {
  clear_->setVisible(can_clear);
  LayOut();
}

void SearchField::SetTakesText(bool takes_text) {
  field_->setEnabled(takes_text);
  update();
}

int SearchField::Height() const {
  return ToolButtonHeight(fontMetrics());
}

QSize SearchField::sizeHint() const {
  return {kWidth, Height()};
}
QSize SearchField::minimumSizeHint() const {
  return {kLeastWidth, Height()};
}

int SearchField::FilterWidth() const {
  // The text keeps at least half of a narrow field.
  return std::min(filter_->sizeHint().width(), width() / 2);
}

void SearchField::LayOut() {
  const auto place = [this](QWidget* part, int x, int part_width, int inset) {
    const QRect at(x, inset, part_width, height() - 2 * inset);
    part->setGeometry(QStyle::visualRect(layoutDirection(), rect(), at));
  };
  const int filter = FilterWidth();
  const bool is_cut = filter < filter_->sizeHint().width();
  filter_->setToolTip(is_cut ? PlainToolTip(filter_->accessibleName()) : QString());
  place(filter_, kSearchInset, filter, kSearchInset);
  const int text = kSearchInset + filter + 1 + kGap + kIconSize + kGap;
  const int end = clear_->isVisibleTo(this) ? height() : kGap;
  place(field_, text, std::max(0, width() - text - end), kSearchInset);
  place(clear_, width() - height() + kSearchInset, height() - 2 * kSearchInset, kSearchInset);
  update();
}

void SearchField::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  const bool has_focus = field_->hasFocus();
  const bool is_enabled = isEnabled();
  DrawBox(painter, rect(), kRadius, is_enabled ? colors[Role::Base] : QColor(),
          colors[has_focus    ? Role::Accent
                 : is_enabled ? Role::Edge
                              : Role::Rule],
          has_focus ? kRing : 1.0);
  const int x = kSearchInset + FilterWidth();
  const QRect rule(x, (height() - kRuleHeight) / 2, 1, kRuleHeight);
  DrawRuleBefore(painter, QStyle::visualRect(layoutDirection(), rect(), rule), colors[Role::Rule]);
  const QRect glass(x + 1 + kGap, (height() - kIconSize) / 2, kIconSize, kIconSize);
  DrawIcon(painter, QStyle::visualRect(layoutDirection(), rect(), glass), QLatin1String("search"),
           colors[is_enabled ? Role::Dim : Role::Off], layoutDirection());
}

bool SearchField::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::eventFilter(receiver, event);
}

void SearchField::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

void SearchField::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
    LayOut();
  }
  if (event->type() == QEvent::EnabledChange) update();
}

}  // namespace tallyfold::desktop
