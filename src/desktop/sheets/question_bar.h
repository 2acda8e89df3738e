#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace tallyfold::desktop {

// A question in a bar, whose answers are buttons.
class QuestionBar final : public QWidget {
  Q_OBJECT

 public:
  explicit QuestionBar(QWidget* parent);

  // Hidden for no answers. Buttons are importOptions_Answer_Button_0 and so on.
  void Ask(const QString& question, const QStringList& answers);

 signals:
  void Answered(int answer);

 private:
  void paintEvent(QPaintEvent* event) override;

  QLabel* icon_;
  QLabel* text_;
  QWidget* buttons_;
  QHBoxLayout* row_;
  QStringList answers_;
};

}  // namespace tallyfold::desktop
