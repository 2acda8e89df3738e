#include "desktop/print/page_turner.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <algorithm>
#include <string_view>

#include "desktop/look/measures.h"
#include "desktop/print/page_preview.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

struct ZoomChoice {
  PreviewZoom zoom;
  std::string_view title;
};
constexpr ZoomChoice kZooms[] = {{PreviewZoom::WholePage, "Whole Page"},
                                 {PreviewZoom::PageWidth, "Page Width"},
                                 {PreviewZoom::Percent100, "100 %"},
                                 {PreviewZoom::Percent150, "150 %"},
                                 {PreviewZoom::Percent200, "200 %"}};

}  // namespace

PageTurner::PageTurner(PagePreview& preview, QWidget* parent)
    : QWidget(parent),
      preview_(preview),
      previous_(AddChevron("printSheet_Previous_Button", Text("Previous Page"), -1)),
      number_(new QSpinBox(this)),
      next_(AddChevron("printSheet_Next_Button", Text("Next Page"), 1)),
      zoom_(new QComboBox(this)) {
  number_->setObjectName(QLatin1String("printSheet_Page_Field"));
  number_->setAccessibleName(Text("Page"));
  number_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  number_->setAlignment(Qt::AlignCenter);
  number_->setKeyboardTracking(false);
  connect(number_, &QSpinBox::valueChanged, this,
          [this](int number) { preview_.Turn(static_cast<std::size_t>(number - 1)); });
  zoom_->setObjectName(QLatin1String("printSheet_Zoom_PopUp"));
  zoom_->setAccessibleName(Text("Size"));
  for (const auto& [zoom, title] : kZooms) zoom_->addItem(Text(title), static_cast<int>(zoom));
  connect(zoom_, &QComboBox::currentIndexChanged, this,
          [this] { preview_.SetZoom(static_cast<PreviewZoom>(zoom_->currentData().toInt())); });
  auto* middle = new QHBoxLayout;
  middle->setSpacing(kGap);
  middle->addWidget(previous_);
  middle->addWidget(number_);
  middle->addWidget(next_);
  auto* row = new QGridLayout(this);
  row->setContentsMargins(kColumnGap, kGap, kColumnGap, kGap);
  row->setHorizontalSpacing(kGap);
  row->addLayout(middle, 0, 1);
  row->addWidget(zoom_, 0, 2, Qt::AlignTrailing | Qt::AlignVCenter);
  row->setColumnStretch(0, 1);
  row->setColumnStretch(2, 1);
}

QToolButton* PageTurner::AddChevron(const char* name, const QString& title, int step) {
  auto* button = new QToolButton(this);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleName(title);
  button->setToolTip(title);
  const bool points_left = (step < 0) == (layoutDirection() == Qt::LeftToRight);
  button->setArrowType(points_left ? Qt::LeftArrow : Qt::RightArrow);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this,
          [this, step] { step > 0 ? preview_.TurnForward() : preview_.TurnBack(); });
  return button;
}

void PageTurner::Show(std::size_t count) {
  const std::size_t number = preview_.Number() + 1;
  const QSignalBlocker blocker(number_);
  number_->setRange(1, std::max(1, static_cast<int>(count)));
  number_->setValue(static_cast<int>(number));
  // The sentence around the number that is typed.
  constexpr QChar kPlace(0xFFFC);
  const QStringList around =
      ToQString(Message("Page {1} of {2}", {ToUtf8(QString(kPlace)), std::to_string(count)}))
          .split(kPlace);
  number_->setPrefix(around.front());
  number_->setSuffix(around.back());
  number_->setSpecialValueText(count == 0 ? Text("No pages") : QString());
  number_->setEnabled(count > 1);
  previous_->setEnabled(number > 1);
  next_->setEnabled(number < count);
  zoom_->setEnabled(count > 0);
}

}  // namespace tallyfold::desktop
