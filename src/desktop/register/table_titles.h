#pragma once

#include <QHeaderView>

namespace tallyfold::desktop {

// The titles of a small table's columns, drawn as those of a register; they cannot be clicked.
class TableTitles final : public QHeaderView {
  Q_OBJECT

 public:
  explicit TableTitles(QWidget* parent);
  [[nodiscard]] QSize sizeHint() const override;
  // The column by which the rows ascend; -1 for none.
  void SetSorted(int section) noexcept { sorted_ = section; }

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int sorted_ = -1;
};

}  // namespace tallyfold::desktop
