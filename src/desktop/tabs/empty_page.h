#pragma once

#include <QWidget>
#include <vector>

class QAbstractScrollArea;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace tallyfold::desktop {

// What stands in the middle of a table without rows: why, and what to do about it.
class EmptyPage final : public QWidget {
 public:
  // Lies over the rows of `table`, hidden at first.
  EmptyPage(QAbstractScrollArea& table, const char* icon);

  // Below the sentence, in their order; the first is the one that Return presses. Called by its
  // maker before the page is shown.
  QPushButton* AddButton(const char* name, const QString& title, const char* icon = "");
  // Small, below the buttons.
  void SetNote(const QString& note);
  // Without the icon where there is but a sentence. Says nothing at first.
  void Tell(const QString& headline, const QString& sentence);

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

  QAbstractScrollArea& table_;
  const char* icon_name_;
  QWidget* icon_;
  QLabel* headline_;
  QLabel* sentence_;
  QHBoxLayout* buttons_;
  QLabel* note_;
};

}  // namespace tallyfold::desktop
