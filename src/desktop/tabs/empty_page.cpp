#include "desktop/tabs/empty_page.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLeastWidth = 164;

QLabel* CenteredLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(Qt::AlignHCenter);
  label->setWordWrap(true);
  return label;
}

}  // namespace

EmptyPage::EmptyPage(QAbstractScrollArea& table, const char* icon)
    : QWidget(table.viewport()),
      table_(table),
      icon_name_(icon),
      icon_(new QWidget(this)),
      headline_(CenteredLabel(this)),
      sentence_(CenteredLabel(this)),
      buttons_(new QHBoxLayout),
      note_(CenteredLabel(this)) {
  icon_->setFixedSize(kEmptyPageIconSize, kEmptyPageIconSize);
  headline_->setFont(DemiBoldFont(LargerFont(font(), kHeadlinePoints)));
  sentence_->setForegroundRole(QPalette::PlaceholderText);
  note_->setForegroundRole(QPalette::PlaceholderText);
  note_->setFont(SmallFont(font()));
  note_->hide();
  headline_->hide();
  sentence_->hide();

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kColumnGap, 0, kColumnGap, 0);
  column->setSpacing(kWideGap);
  column->addStretch(5);
  column->addWidget(icon_, 0, Qt::AlignHCenter);
  column->addWidget(headline_);
  column->addWidget(sentence_);
  column->addSpacing(kTightGap);
  auto* row = new QHBoxLayout;
  buttons_->setSpacing(kWideGap);
  row->addStretch(1);
  row->addLayout(buttons_);
  row->addStretch(1);
  column->addLayout(row);
  column->addWidget(note_);
  column->addStretch(7);

  hide();
  table_.viewport()->installEventFilter(this);
  icon_->installEventFilter(this);
}

QPushButton* EmptyPage::AddButton(const char* name, const QString& title, const char* icon) {
  auto* button = new QPushButton(title, this);
  button->setObjectName(QLatin1String(name));
  button->setMinimumSize(kLeastWidth, ControlHeight(fontMetrics()) + 6);
  const bool is_first = buttons_->count() == 0;
  if (*icon != '\0') {
    button->setIcon(IconNamed(QLatin1String(icon), is_first ? Role::OnAccent : Role::Text));
  }
  button->setAutoDefault(true);
  button->setDefault(is_first);
  buttons_->addWidget(button);
  return button;
}

void EmptyPage::SetNote(const QString& note) {
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
}

void EmptyPage::Tell(const QString& headline, const QString& sentence) {
  icon_->setVisible(!headline.isEmpty());
  sentence_->setVisible(true);
  headline_->setVisible(!headline.isEmpty());
  headline_->setText(headline);
  sentence_->setText(sentence);
}

bool EmptyPage::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == table_.viewport() && event->type() == QEvent::Resize) {
    setGeometry(table_.viewport()->rect());
  }
  if (receiver == icon_ && event->type() == QEvent::Paint) {
    QPainter painter(icon_);
    const Colors& colors = ColorsOf(palette());
    DrawIcon(painter, icon_->rect(), QLatin1String(icon_name_),
             colors[colors.IsDark() ? Role::Edge : Role::Rule], layoutDirection());
  }
  return false;
}

void EmptyPage::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), palette().base());
}

}  // namespace tallyfold::desktop
