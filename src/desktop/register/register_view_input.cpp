// What the user does with rows.

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "desktop/register/header.h"
#include "desktop/register/register_view.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
void RegisterView::GoTo(int row, Reach reach) {
  if (row < 0 || row >= model_->rowCount()) return;
  if (selects_one_row_) reach = Reach::Only;
  switch (reach) {
    case Reach::Only:
      selection_.SelectOnly(row);
      anchor_ = row;
      break;
    case Reach::Range:
      if (anchor_ < 0) anchor_ = CurrentRow() >= 0 ? CurrentRow() : row;
      selection_.SelectOnly({anchor_, row});
      break;
    case Reach::Toggle:
      anchor_ = row;
      // The current row is always one of those selected.
      if (!selection_.Toggle(row)) {
        if (selection_.Ranges().empty()) {
          selection_.SelectOnly(row);
        } else {
          row = selection_.Ranges().front().first;
        }
      }
      break;
  }
  const bool is_other = row != CurrentRow();
  MakeCurrent(row);
  ScrollToRow(row);
  TellSelection();
  if (is_other || row != table_.SelectedRow()) emit RowSelected(row);
}

// --- The pointer
// ------------------------------------------------------------------------------------

bool RegisterView::IsMarkAt(const QPoint& place) const {
  const QModelIndex index = indexAt(place);
  return index.isValid() && model_->ColumnAt(index.column()).content == TableColumn::Content::Mark;
}

void RegisterView::SetHoveredRow(int row) {
  if (row == hovered_) return;
  const int former = std::exchange(hovered_, row);
  UpdateRow(former);
  UpdateRow(row);
}

bool RegisterView::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::HoverMove:
    case QEvent::HoverEnter:
      SetHoveredRow(rowAt(static_cast<const QHoverEvent*>(event)->position().toPoint().y()));
      break;
    case QEvent::HoverLeave:
    case QEvent::Leave:
      SetHoveredRow(-1);
      break;
    case QEvent::ToolTip: {
      const auto* help = static_cast<const QHelpEvent*>(event);
      ShowToolTip(help->pos(), help->globalPos());
      return true;
    }
    default:
      break;
  }
  return QTableView::viewportEvent(event);
}

void RegisterView::mousePressEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const int row = rowAt(place.y());
  pressed_mark_ = -1;
  typed_.Clear();
  event->accept();
  if (row < 0) return;
  if (event->button() == Qt::RightButton) {
    if (!selection_.Contains(row)) GoTo(row, Reach::Only);
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const auto keys = event->modifiers();
  if (IsMarkAt(place) && !keys.testFlag(Qt::ShiftModifier) && !keys.testFlag(Qt::ControlModifier)) {
    pressed_mark_ = row;
    return;
  }
  GoTo(row, keys.testFlag(Qt::ShiftModifier)     ? Reach::Range
            : keys.testFlag(Qt::ControlModifier) ? Reach::Toggle
                                                 : Reach::Only);
}

void RegisterView::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton) || pressed_mark_ >= 0 || anchor_ < 0) return;
  const int y = std::clamp(event->position().toPoint().y(), 0, viewport()->height() - 1);
  const int beyond = event->position().toPoint().y() - y;
  int row = rowAt(y);
  if (row < 0) return;
  if (beyond != 0) row = std::clamp(row + (beyond > 0 ? 1 : -1), 0, model_->rowCount() - 1);
  if (row != CurrentRow()) GoTo(row, Reach::Range);
}

void RegisterView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const int row = std::exchange(pressed_mark_, -1);
  if (row < 0 || rowAt(place.y()) != row || !IsMarkAt(place)) return;
  emit MarkWanted(row, ToQString(model_->ColumnAt(columnAt(place.x())).identifier));
}

void RegisterView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const int row = rowAt(place.y());
  if (row < 0 || event->button() != Qt::LeftButton) return;
  if (IsMarkAt(place)) {
    pressed_mark_ = row;
  } else {
    emit RowActivated(row);
  }
}

void RegisterView::contextMenuEvent(QContextMenuEvent* event) {
  QPoint place = event->globalPos();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    if (CurrentRow() < 0) return;
    ScrollToRow(CurrentRow());
    place = viewport()->mapToGlobal(RowRect(CurrentRow()).center());
  } else if (rowAt(event->pos().y()) < 0) {
    return;
  }
  emit RowMenuWanted(place);
}

// --- Tool tips
// --------------------------------------------------------------------------------------

void RegisterView::ShowToolTip(const QPoint& place, const QPoint& on_screen) const {
  const QModelIndex index = indexAt(place);
  if (!index.isValid()) return QToolTip::hideText();
  const CellLook look = model_->LookAt(index.row(), index.column());
  QString text = model_->ToolTipAt(index.row(), index.column());
  if (delegate_->IsCut(look, index.column(), columnWidth(index.column()), font())) {
    text = text.isEmpty() ? look.text : look.text + QLatin1String("\n\n") + text;
  }
  if (text.isEmpty()) return QToolTip::hideText();
  QToolTip::showText(on_screen, PlainToolTip(text), viewport(), visualRect(index));
}

void RegisterView::ShowThumbToolTip() const {
  const int row = rowAt(0);
  const int column = model_->IndexOf(table_.HighlightedColumn());
  if (row < 0 || column < 0) return;
  const QString text = ToQString(model_->CellAt(row, column).text);
  const QScrollBar* bar = verticalScrollBar();
  const double share =
      bar->maximum() > 0 ? static_cast<double>(bar->value()) / bar->maximum() : 0.0;
  const QPoint place(0, static_cast<int>(share * bar->height()));
  QToolTip::showText(bar->mapToGlobal(place), PlainToolTip(text), viewport());
}

// --- The keyboard
// -------------------------------------------------------------------------------------

bool RegisterView::MoveByKey(const QKeyEvent& event) {
  const int last = model_->rowCount() - 1;
  const int current = CurrentRow();
  const int height = std::max(1, verticalHeader()->defaultSectionSize());
  const int page = std::max(1, viewport()->height() / height - 1);
  int row = current;
  switch (event.key()) {
    case Qt::Key_Up:
      row = current < 0 ? last : current - 1;
      break;
    case Qt::Key_Down:
      row = current + 1;
      break;
    case Qt::Key_PageUp:
      row = current - page;
      break;
    case Qt::Key_PageDown:
      row = current + page;
      break;
    case Qt::Key_Home:
      row = 0;
      break;
    case Qt::Key_End:
      row = last;
      break;
    default:
      return false;
  }
  if (last < 0) return true;
  GoTo(std::clamp(row, 0, last),
       event.modifiers().testFlag(Qt::ShiftModifier) ? Reach::Range : Reach::Only);
  return true;
}

void RegisterView::keyPressEvent(QKeyEvent* event) {
  const auto keys = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  event->accept();
  if (event->matches(QKeySequence::SelectAll)) return selectAll();
  if (event->matches(QKeySequence::Copy)) return copy();
  if (keys == Qt::NoModifier) {
    if (MoveByKey(*event)) return typed_.Clear();
    const int current = CurrentRow();
    switch (event->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        if (current >= 0) emit RowActivated(current);
        return;
      case Qt::Key_Delete:
      case Qt::Key_Backspace:
        if (current >= 0) emit RemoveWanted();
        return;
      case Qt::Key_Space:
        if (current >= 0) emit MarkKeyPressed(current);
        return;
      case Qt::Key_Left:
      case Qt::Key_Right: {
        const bool is_back = (event->key() == Qt::Key_Left) == isLeftToRight();
        horizontalScrollBar()->triggerAction(is_back ? QAbstractSlider::SliderSingleStepSub
                                                     : QAbstractSlider::SliderSingleStepAdd);
        return;
      }
      case Qt::Key_Escape:
        return emit Escaped();
      default:
        break;
    }
    const QString letters = event->text();
    if (!letters.isEmpty() && letters.front().isPrint() && !letters.front().isSpace()) {
      return TypeLetters(letters, event->timestamp());
    }
  }
  event->ignore();
}

void RegisterView::TypeLetters(const QString& letters, std::uint64_t time) {
  const std::string& typed =
      typed_.Add(letters, time, QGuiApplication::styleHints()->keyboardInputInterval());
  const auto row = RowOfTyped(table_, typed, model_->Look().date_format, CurrentRow());
  if (row) GoTo(static_cast<int>(*row), Reach::Only);
}

// The toolkit's own would ask for every cell of a column.
void RegisterView::keyboardSearch(const QString& /*typed*/) {}

}  // namespace tallyfold::desktop
