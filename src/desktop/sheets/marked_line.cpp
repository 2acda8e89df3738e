#include "desktop/sheets/marked_line.h"

#include <QHBoxLayout>
#include <QLabel>

#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"

namespace tallyfold::desktop {

MarkedLine::MarkedLine(QLatin1String icon, Role ink, QWidget* parent)
    : QWidget(parent), text_(new QLabel(this)) {
  auto* picture = new QLabel(this);
  picture->setPixmap(PixmapNamed(icon, kIconSize, devicePixelRatioF(), ColorsOf(palette())[ink]));
  text_->setTextFormat(Qt::PlainText);
  text_->setFont(MediumFont(SmallFont(font())));
  text_->setWordWrap(true);
  SetTextInk(*text_, ink);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap - 2);
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addWidget(text_, 1);
}

void MarkedLine::SetText(const QString& text) {
  text_->setText(text);
}

void MarkedLine::SetName(QLatin1String name) {
  text_->setObjectName(name);
}

}  // namespace tallyfold::desktop
