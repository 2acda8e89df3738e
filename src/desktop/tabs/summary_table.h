#pragma once

#include <QWidget>
#include <functional>
#include <vector>

namespace tallyfold::desktop {

// A table of a summary, as long as it is: lines are made as they are drawn. It has a current line,
// which the arrows move and a click chooses, and says it to assistive technology.
class SummaryTable final : public QWidget {
 public:
  struct Column {
    enum class Kind : unsigned char { Text, Count, Figure, Bar, Share };
    QString title;
    Kind kind = Kind::Figure;
  };
  struct Content {
    QString name;
    std::vector<Column> columns;
    int rows = 0;
    // Whether the last row is a sum of the others.
    bool ends_with_total = false;
    std::function<QString(int row, int column)> text;
    // From -1 to 1, of columns with bars: beside the greatest.
    std::function<double(int row)> bar = {};
    // A double click on a row, or Return; the table may be gone after it.
    std::function<void(int row)> activated = {};
    bool has_negative_bars = false;
    bool has_positive_bars = false;
  };

  // What the content refers to must outlive the table.
  SummaryTable(Content content, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

  [[nodiscard]] int HeadHeight() const;
  [[nodiscard]] int LineHeight() const;
  [[nodiscard]] int LeastWidth(const Column& column) const;
  [[nodiscard]] QRect LineRect(int row) const;
  // Places of the columns, from the leading edge.
  [[nodiscard]] std::vector<QRect> Cells(const QRect& line) const;
  void PaintHead(QPainter& painter) const;
  void PaintLine(QPainter& painter, int row) const;
  void PaintBar(QPainter& painter, const QRect& cell, double value) const;
  void PaintShare(QPainter& painter, const QRect& cell, double share) const;
  void GoTo(int row);
  void Activate(int row);

  Content content_;
  // -1 before the table has had the focus.
  int current_ = -1;
};

}  // namespace tallyfold::desktop
