#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>
#include <cstddef>

class QHBoxLayout;
class QLabel;

namespace tallyfold::desktop {

// A question in a bar, whose answers are buttons.
class QuestionBar final : public QWidget {
  Q_OBJECT

 public:
  // The first of a sheet is importOptions_Question, the second importOptions_Question_1; their
  // buttons are importOptions_Answer_Button_0 and importOptions_Question_1_Answer_Button_0, and so
  // on.
  QuestionBar(std::size_t number, QWidget* parent);

  // Hidden for no answers.
  void Ask(const QString& question, const QStringList& answers);

 signals:
  void Answered(int answer);

 private:
  void paintEvent(QPaintEvent* event) override;

  QString button_name_;
  QLabel* icon_;
  QLabel* text_;
  QWidget* buttons_;
  QHBoxLayout* row_;
  QStringList answers_;
};

}  // namespace tallyfold::desktop
