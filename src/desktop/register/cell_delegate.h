#pragma once

#include <QHash>
#include <QStyledItemDelegate>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/measures.h"
#include "desktop/register/cell_look.h"

namespace tallyfold::desktop {

// What a row's cells need to know of it.
struct RowState {
  bool is_selected = false;
  bool table_has_focus = false;
  bool is_hovered = false;
  // Whether a mark that is not set shows where it can be.
  bool shows_unset_mark = false;
  bool is_demi_bold = false;

  [[nodiscard]] Role Ground() const noexcept {
    if (is_selected) return table_has_focus ? Role::Selection : Role::InactiveSelection;
    return is_hovered ? Role::Hover : Role::Base;
  }
};

// A table that knows its rows.
class RowStates {
 public:
  virtual ~RowStates() = default;
  [[nodiscard]] virtual RowState StateOf(int row) const = 0;
};

// Draws the cells of any model that answers kCellRole. The row's ground is the table's business.
class CellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  // `states` must outlive this; null takes them from what the view says of each cell.
  CellDelegate(const RowStates* states, QObject* parent);

  // The columns at the outer edges, which keep another distance from them; -1 for none.
  void SetOuterColumns(int first, int last) noexcept;
  // What they keep from it; behind the last column there is room for a scroll bar by default.
  void SetOuterPaddings(int first, int last) noexcept {
    first_padding_ = first;
    last_padding_ = last;
  }
  void SetUsesEllipses(bool uses_ellipses) noexcept { uses_ellipses_ = uses_ellipses; }
  // A text that does not fit goes on in a second line, and both are smaller.
  void SetBreaksTexts(bool breaks_texts) noexcept { breaks_texts_ = breaks_texts; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

  // How wide a column must be for the cell not to be cut in it; 0 for a mark.
  [[nodiscard]] int NeededWidth(const CellLook& look, int column, const QFont& font) const;
  // Whether the text of a cell does not fit into a rectangle so wide.
  [[nodiscard]] bool IsCut(const CellLook& look, int column, int width, const QFont& font) const;

 private:
  struct Ink {
    QColor text;
    QColor glyph;
  };

  [[nodiscard]] QRect Padded(const QRect& rect, int column, Qt::LayoutDirection direction) const;
  [[nodiscard]] Ink InkOf(const CellLook& look, Role ground, const Colors& colors) const;
  [[nodiscard]] const Figures& FiguresIn(const QFont& font) const;
  void DrawText(QPainter& painter, QRect rect, const CellLook& look, const Ink& ink,
                Qt::LayoutDirection direction) const;
  void DrawMark(QPainter& painter, const QStyleOptionViewItem& option, const CellLook& look,
                const RowState& state) const;

  const RowStates* states_;
  int first_column_ = -1;
  int last_column_ = -1;
  int first_padding_ = kOuterCellPadding;
  int last_padding_ = kLastCellPadding;
  bool uses_ellipses_ = true;
  bool breaks_texts_ = false;
  mutable InkCache inks_;
  mutable std::unordered_map<std::string, std::unique_ptr<Figures>> figures_;
};

}  // namespace tallyfold::desktop
