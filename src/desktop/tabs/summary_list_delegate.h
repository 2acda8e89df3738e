#pragma once

#include <QStyledItemDelegate>

namespace tallyfold::desktop {

// Draws the list of summaries as a register draws its rows.
class SummaryListDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
};

}  // namespace tallyfold::desktop
