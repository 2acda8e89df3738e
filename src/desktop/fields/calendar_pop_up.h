#pragma once

#include <QDate>
#include <QFrame>

class QCalendarWidget;
class QLabel;

namespace tallyfold::desktop {

// A month to choose a day from, below a field. Closes when a day was chosen, or by Escape or a
// click beside it.
class CalendarPopUp final : public QFrame {
  Q_OBJECT

 public:
  // Deletes itself when it is closed.
  CalendarPopUp(const QDate& day, const QDate& today, QWidget* field);

  // Below the field, or above it where the screen ends.
  void ShowAt(const QWidget& field);

 signals:
  void Chosen(const QDate& day);

 private:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void ShowMonth();

  QLabel* month_;
  QCalendarWidget* calendar_;
};

}  // namespace tallyfold::desktop
