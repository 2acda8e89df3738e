#include "desktop/sheets/question_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kWidestAnswer = 224;

}  // namespace

QuestionBar::QuestionBar(std::size_t number, QWidget* parent)
    : QWidget(parent),
      icon_(new QLabel(this)),
      text_(new QLabel(this)),
      buttons_(new QWidget(this)),
      row_(new QHBoxLayout(buttons_)) {
  const bool is_first = number == 0;
  setObjectName(QLatin1String("importOptions_Question") +
                (is_first ? QString() : QLatin1Char('_') + QString::number(number)));
  text_->setObjectName(objectName() + QLatin1String("_Text"));
  button_name_ = (is_first ? QString(QLatin1String("importOptions")) : objectName()) +
                 QLatin1String("_Answer_Button_");
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setFont(DemiBoldFont(font()));
  icon_->setPixmap(PixmapNamed(QLatin1String("warning"), kIconSize, devicePixelRatioF(),
                               ColorsOf(palette())[Role::Warning]));
  row_->setContentsMargins(0, 0, 0, 0);
  row_->setSpacing(kGap);
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(kWideGap, kGap, kWideGap, kGap);
  whole->setSpacing(kGap);
  whole->addWidget(icon_);
  whole->addWidget(text_, 1);
  whole->addWidget(buttons_);
  hide();
}

void QuestionBar::Ask(const QString& question, const QStringList& answers) {
  text_->setText(question);
  setAccessibleName(question);
  setVisible(!answers.isEmpty());
  if (answers == answers_) return;
  answers_ = answers;
  // It may be one of them that is pressed.
  for (auto* each : buttons_->findChildren<QPushButton*>()) {
    each->hide();
    each->setObjectName(QString());
    each->deleteLater();
  }
  for (int i = 0; i < answers.size(); ++i) {
    const QString shown = fontMetrics().elidedText(answers[i], Qt::ElideMiddle, kWidestAnswer);
    auto* button = new QPushButton(WithoutMnemonics(shown), buttons_);
    button->setObjectName(button_name_ + QString::number(i));
    button->setAccessibleName(answers[i]);
    if (shown != answers[i]) button->setToolTip(PlainToolTip(answers[i]));
    button->setAutoDefault(false);
    row_->addWidget(button);
    button->show();
    connect(button, &QPushButton::clicked, this, [this, i] { emit Answered(i); });
  }
  // The sheet is fitted before the toolkit tells of them.
  buttons_->updateGeometry();
  updateGeometry();
}

void QuestionBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawBox(painter, rect(), kRadius, ColorsOf(palette())[Role::WarningFill], {});
}

}  // namespace tallyfold::desktop
