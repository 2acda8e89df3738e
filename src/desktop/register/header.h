#pragma once

#include <QFont>
#include <QHeaderView>
#include <optional>

#include "desktop/register/row_model.h"
#include "registers/table_state.h"

class QMenu;

namespace tallyfold::desktop {

// The heads of a table's columns. What is sorted by, and how, it draws as the table says, and never
// sorts anything itself.
class Header final : public QHeaderView {
  Q_OBJECT

 public:
  // Both must outlive this.
  Header(const TableState& table, const RowModel& model, QWidget* parent);

  // Ours, one point smaller than the given font.
  void SetBodyFont(const QFont& body);
  // On the ground of the bars and as tall as one.
  void MakeBar();
  // The columns at the outer edges; -1 for none.
  void SetOuterColumns(int first, int last);
  [[nodiscard]] QSize sizeHint() const override;
  // As tall as the heads, for what stands beside them.
  [[nodiscard]] int Height() const;
  // With room for the whole title.
  [[nodiscard]] int NeededWidth(int section) const;
  // What can be done with the columns: each shown or not, and sorted by.
  void FillMenu(QMenu& menu);

 signals:
  // The user has given a section another width, and let go.
  void WidthDragged(int section, int width);
  // A click on the head of a column that sorts.
  void SortWanted(int section);
  void ColumnHideWanted(const QString& identifier);
  void ColumnShowWanted(const QString& identifier);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& whole, int section) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  // Without the space that a list has above its first row.
  [[nodiscard]] QRect AboveInset(const QRect& rect) const;
  [[nodiscard]] bool IsSortColumn(int section) const;
  // Beside the title of a section.
  [[nodiscard]] int Leading(int section) const;
  [[nodiscard]] int Trailing(int section) const;
  void SetHovered(int section);

  const TableState& table_;
  const RowModel& model_;
  QFont plain_;
  QFont sorted_;
  int first_ = -1;
  int last_ = -1;
  int hovered_ = -1;
  bool is_bar_ = false;
  bool is_pressed_ = false;
  // What the pointer has been resizing since it was pressed.
  std::optional<int> dragged_;
};

}  // namespace tallyfold::desktop
