// How rows are drawn: grounds, rules and bars that belong to a row and not to its cells.

#include <QPaintEvent>
#include <QPainter>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/register/register_view.h"

namespace tallyfold::desktop {
namespace {

// The box of a selected row in a list, and the bar at its edge.
constexpr int kBoxInset = 6;
constexpr int kBoxBar = 16;
constexpr int kDaysInNumber = 100;  // of a DateNumber below its month

}  // namespace

QRect RegisterView::RowRect(int row) const {
  return {0, rowViewportPosition(row), viewport()->width(), rowHeight(row)};
}

void RegisterView::UpdateRow(int row) {
  if (row >= 0 && row < model_->rowCount()) viewport()->update(RowRect(row));
}

void RegisterView::paintEvent(QPaintEvent* event) {
  const int first = rowAt(event->rect().top());
  int last = rowAt(event->rect().bottom());
  if (last < 0) last = model_->rowCount() - 1;
  if (first >= 0) {
    QPainter painter(viewport());
    painter.setClipRegion(event->region());
    PaintGround(painter, first, last);
  }
  QTableView::paintEvent(event);
  if (first >= 0) {
    QPainter painter(viewport());
    painter.setClipRegion(event->region());
    PaintRules(painter, first, last);
  }
}

void RegisterView::PaintGround(QPainter& painter, int first, int last) const {
  const Colors& colors = ColorsOf(palette());
  for (int row = first; row <= last; ++row) {
    if (is_list_) {
      PaintBox(painter, row);
      continue;
    }
    const Role ground = StateOf(row).Ground();
    if (ground != Role::Base) FillSnapped(painter, RowRect(row), colors[ground]);
  }
}

void RegisterView::PaintBox(QPainter& painter, int row) const {
  const Colors& colors = ColorsOf(palette());
  const RowState state = StateOf(row);
  const QRect box = RowRect(row).adjusted(kBoxInset, 1, -kBoxInset, -1);
  if (state.is_hovered && !state.is_selected) {
    DrawBox(painter, box, kRadius, colors.Mixed(Role::Window, Role::Text, 0.07), {});
  }
  if (!state.is_selected) return;
  const bool has_ring = hasFocus() && row == CurrentRow();
  DrawBox(painter, box, kRadius, colors[Role::Selection],
          has_ring ? colors[Role::Accent] : QColor(), kRing);
  const QRect bar(box.x(), box.y() + (box.height() - kBoxBar) / 2, kSelectionBar, kBoxBar);
  DrawBox(painter, QStyle::visualRect(layoutDirection(), box, bar), kSelectionBar / 2.0,
          colors[Role::Accent], {});
}

bool RegisterView::EndsMonth(int row, int column) const {
  if (column < 0 || row + 1 >= model_->rowCount()) return false;
  const auto day = model_->CellAt(row, column).number;
  const auto next = model_->CellAt(row + 1, column).number;
  return day && next &&
         static_cast<int>(*day) / kDaysInNumber != static_cast<int>(*next) / kDaysInNumber;
}

void RegisterView::PaintRules(QPainter& painter, int first, int last) const {
  if (is_list_) return;
  const Colors& colors = ColorsOf(palette());
  const int sorted = has_month_rules_ ? model_->IndexOf(table_.HighlightedColumn()) : -1;
  const bool has_months =
      sorted >= 0 && model_->ColumnAt(sorted).content == TableColumn::Content::Day;
  const int current = CurrentRow();
  for (int row = first; row <= last; ++row) {
    const QRect rect = RowRect(row);
    const RowState state = StateOf(row);
    const bool is_current = row == current && state.table_has_focus && state.is_selected;
    const bool ends_month = has_months && EndsMonth(row, sorted);
    DrawRuleBelow(painter, rect,
                  colors[is_current   ? Role::Accent
                         : ends_month ? Role::Rule
                                      : Role::Hair]);
    if (is_current) {
      DrawRuleBelow(painter, QRect(rect.x(), rect.y(), rect.width(), 1), colors[Role::Accent]);
    }
    if (state.is_selected) {
      const QRect bar = QStyle::visualRect(layoutDirection(), rect,
                                           QRect(rect.x(), rect.y(), kSelectionBar, rect.height()));
      FillSnapped(painter, bar, colors[state.table_has_focus ? Role::Accent : Role::Edge]);
    }
  }
}

}  // namespace tallyfold::desktop
