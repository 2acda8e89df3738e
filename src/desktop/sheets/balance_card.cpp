#include "desktop/sheets/balance_card.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

#include "desktop/look/assistive.h"
#include "desktop/look/figures.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kSideMargin = 14;
constexpr int kCardTop = 12;
constexpr int kCardBottom = 8;
// Between the right edges of "Now" and "After".
constexpr int kFiguresApart = 128;
// At most that of an account and the other one.
constexpr int kBalanceLines = 2;

}  // namespace

BalanceCard::BalanceCard(QWidget* parent)
    : QWidget(parent), sentence_(new QLabel(this)), lines_area_(new QWidget(this)) {
  auto* icon = new QLabel(this);
  icon->setPixmap(PixmapNamed(QLatin1String("transfer"), kToolIconSize, devicePixelRatioF(),
                              ColorsOf(palette())[Role::Accent]));
  sentence_->setObjectName(QLatin1String("transferSheet_Sentence_Label"));
  sentence_->setTextFormat(Qt::PlainText);
  sentence_->setWordWrap(true);
  sentence_->setFont(DemiBoldFont(font()));
  auto* head = new QHBoxLayout;
  head->setSpacing(kGap);
  head->addWidget(icon, 0, Qt::AlignTop);
  head->addWidget(sentence_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kSideMargin, kCardTop, kSideMargin, kCardBottom);
  column->setSpacing(kGap);
  column->addLayout(head);
  column->addWidget(lines_area_);
  lines_area_->setFixedHeight(HeaderHeight(QFontMetrics(SmallFont(font()))) +
                              kBalanceLines * RowHeight(fontMetrics()));
}

void BalanceCard::Show(const TransferSheetState& state, const LDGRPreferences& preferences) {
  sentence_->setText(ToQString(state.sentence));
  sentence_->setForegroundRole(state.moves_money ? QPalette::WindowText
                                                 : QPalette::PlaceholderText);
  lines_.clear();
  QString description = sentence_->text();
  for (const auto& balance : state.balances) {
    const auto written = [&preferences](double amount) {
      return ToQString(RegisterAmountText(amount, preferences));
    };
    lines_.push_back({ToQString(balance.account), balance.is_locked, written(balance.now),
                      written(balance.after)});
    description = ToQString(Message(
        "{1}; {2}: {3}", {ToUtf8(description), balance.account,
                          ToUtf8(balance.is_locked ? Text("Locked") : lines_.back().after)}));
  }
  NameFigure(*this, {}, description);
  setToolTip(PlainToolTip(description));
  update();
}

void BalanceCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  DrawBox(painter, rect(), kRadius, colors[Role::Raised], colors[Role::Rule]);
  const QRect area = lines_area_->geometry();
  const auto turned = [this](const QRect& part) {
    return QStyle::visualRect(layoutDirection(), rect(), part);
  };
  const auto flush = layoutDirection() == Qt::LeftToRight ? Qt::AlignRight : Qt::AlignLeft;
  const QFont small = MediumFont(SmallFont(font()));
  const int heading = HeaderHeight(QFontMetrics(small));
  const int height = RowHeight(fontMetrics());
  const QRect row(area.left(), area.top(), area.width(), heading);
  const auto now_of = [](const QRect& line) { return line.adjusted(0, 0, -kFiguresApart, 0); };

  painter.setFont(small);
  painter.setPen(colors[Role::Dim]);
  painter.drawText(turned(row), Qt::AlignVCenter | Qt::AlignLeading, Text("Balance"));
  painter.drawText(turned(now_of(row)), Qt::AlignVCenter | Qt::AlignTrailing, Text("Now"));
  painter.drawText(turned(row), Qt::AlignVCenter | Qt::AlignTrailing, Text("After"));
  DrawRuleBelow(painter, row, colors[Role::Rule]);

  const Figures figures(font());
  const Figures bold(DemiBoldFont(font()));
  QRect line(area.left(), row.bottom() + 1, area.width(), height);
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line& each = lines_[i];
    painter.setFont(font());
    painter.setPen(colors[Role::Text]);
    const int name_width = area.width() - 2 * kFiguresApart + kGroupGap;
    painter.drawText(turned(QRect(line.left(), line.top(), name_width, height)),
                     Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     fontMetrics().elidedText(each.account, Qt::ElideRight, name_width));
    painter.setPen(colors[Role::Dim]);
    if (each.is_locked) {
      painter.drawText(turned(line), Qt::AlignVCenter | Qt::AlignTrailing, Text("Locked"));
      const int width = fontMetrics().horizontalAdvance(Text("Locked"));
      const QRect lock(line.right() - width - kGap - kGlyphSize,
                       line.top() + (height - kGlyphSize) / 2, kGlyphSize, kGlyphSize);
      DrawIcon(painter, turned(lock), QLatin1String("lock"), colors[Role::Dim], layoutDirection());
    } else {
      figures.Draw(painter, turned(now_of(line)), each.now, flush | Qt::AlignVCenter);
      const QRect chevron(line.right() - kFiguresApart + kGap,
                          line.top() + (height - kChevronSize) / 2, kChevronSize, kChevronSize);
      DrawIcon(painter, turned(chevron), QLatin1String("chevron-right"), colors[Role::Dim],
               layoutDirection());
      painter.setPen(colors[Role::Text]);
      bold.Draw(painter, turned(line), each.after, flush | Qt::AlignVCenter);
    }
    if (i + 1 < lines_.size()) DrawRuleBelow(painter, line, colors[Role::Hair]);
    line.translate(0, height);
  }
}

}  // namespace tallyfold::desktop
