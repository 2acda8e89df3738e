#include "desktop/register/cell_delegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextLayout>
#include <QTextOption>
#include <QVariant>
#include <QWidget>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <string>

#include "desktop/look/icons.h"
#include "desktop/look/painting.h"

namespace tallyfold::desktop {
namespace {

constexpr int kGlyphGap = 6;
// So many at most are in sight for each pixel of a cell, as some characters have no width.
constexpr qsizetype kMostCharacters = 4;
constexpr int kWordPadding = 7;
constexpr int kWordInset = 3;
// Fonts of one table: upright, slanted, heavier; more come and go with the preferences.
constexpr std::size_t kMostFonts = 8;

QFont FontFor(const CellLook& look, QFont font) {
  font.setItalic(look.is_italic);
  font.setStrikeOut(look.is_struck);
  return look.is_demi_bold || look.word != CellLook::Word::None ? DemiBoldFont(font) : font;
}

Qt::Alignment VisualAlignment(CellLook::Align align, Qt::LayoutDirection direction) {
  if (align == CellLook::Align::Center) return Qt::AlignHCenter;
  const bool is_right = (align == CellLook::Align::Trailing) == (direction == Qt::LeftToRight);
  return is_right ? Qt::AlignRight : Qt::AlignLeft;
}

// What the table draws with; the option's may have no colour for what is selected.
const QPalette& PaletteOf(const QStyleOptionViewItem& option) {
  return option.widget != nullptr ? option.widget->palette() : option.palette;
}

void DrawWord(QPainter& painter, const QRect& rect, const CellLook& look, const Colors& colors,
              Qt::LayoutDirection direction) {
  Role ink = Role::Dim;
  QColor fill = colors[Role::Hair];
  if (look.word == CellLook::Word::Warning) {
    ink = Role::Warning;
    fill = colors[Role::WarningFill];
  } else if (look.word == CellLook::Word::Good) {
    ink = Role::Good;
    fill = colors[Role::GoodFill];
  } else if (look.word == CellLook::Word::Problem) {
    ink = Role::Problem;
    fill = colors[Role::ProblemFill];
  }
  const QFontMetrics metrics = painter.fontMetrics();
  const int width = std::min(rect.width(), metrics.horizontalAdvance(look.text) + 2 * kWordPadding);
  const int height = std::min(rect.height() - 4, metrics.height() + kWordInset);
  QRect box = QStyle::alignedRect(Qt::LeftToRight,
                                  VisualAlignment(look.align, direction) | Qt::AlignVCenter,
                                  {width, height}, rect);
  DrawBox(painter, box, kSmallRadius, fill, {});
  painter.setPen(colors[ink]);
  painter.drawText(box, Qt::AlignCenter,
                   metrics.elidedText(look.text, Qt::ElideRight, width - 2 * kTightGap));
}

// As much as fits into two lines.
void DrawTwoLines(QPainter& painter, const QRect& place, const QString& text, Qt::Alignment align) {
  const QFont font = SmallFont(painter.font());
  const QFontMetrics metrics(font);
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(place.width());
  const int first = line.textLength();
  layout.endLayout();
  const QString rest = text.mid(first);
  const int height = metrics.ascent() + metrics.descent();
  QRect row(place.x(), place.y() + (place.height() - (rest.isEmpty() ? 1 : 2) * height) / 2,
            place.width(), height);
  const int flags = static_cast<int>(align | Qt::AlignAbsolute | Qt::AlignVCenter) |
                    static_cast<int>(Qt::TextSingleLine);
  painter.setFont(font);
  painter.drawText(row, flags, text.left(first).trimmed());
  row.translate(0, height);
  painter.drawText(row, flags, metrics.elidedText(rest, Qt::ElideRight, place.width()));
}

}  // namespace

CellDelegate::CellDelegate(const RowStates* states, QObject* parent)
    : QStyledItemDelegate(parent), states_(states) {}

void CellDelegate::SetOuterColumns(int first, int last) noexcept {
  first_column_ = first;
  last_column_ = last;
}

QRect CellDelegate::Padded(const QRect& rect, int column, Qt::LayoutDirection direction) const {
  const int leading = column == first_column_ ? first_padding_ : kCellPadding;
  const int trailing = column == last_column_ ? last_padding_ : kCellPadding;
  return QStyle::visualRect(direction, rect, rect.adjusted(leading, 0, -trailing, 0));
}

const Figures& CellDelegate::FiguresIn(const QFont& font) const {
  const std::string key = font.key().toStdString();
  if (const auto known = figures_.find(key); known != figures_.end()) return *known->second;
  if (figures_.size() >= kMostFonts) figures_.clear();
  return *figures_.emplace(key, std::make_unique<Figures>(font)).first->second;
}

CellDelegate::Ink CellDelegate::InkOf(const CellLook& look, Role ground,
                                      const Colors& colors) const {
  const QColor& text = colors[look.is_dim ? Role::Dim : Role::Text];
  return {look.color.isValid() ? inks_.Ink(look.color, colors[ground], colors) : text,
          colors[Role::Dim]};
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const QVariant value = index.data(kCellRole);
  if (!value.canConvert<CellLook>()) return;
  const auto& look = *static_cast<const CellLook*>(value.constData());
  const RowState state =
      states_ != nullptr
          ? states_->StateOf(index.row())
          : RowState{option.state.testFlag(QStyle::State_Selected),
                     option.state.testFlag(QStyle::State_Active), false, false, false};
  PainterState saved(*painter);
  if (look.mark != CellLook::Mark::None) return DrawMark(*painter, option, look, state);
  const Colors& colors = ColorsOf(PaletteOf(option));
  const QRect rect = Padded(option.rect, index.column(), option.direction);
  const QFont font = FontFor(look, option.font);
  painter->setFont(state.is_demi_bold ? DemiBoldFont(font) : font);
  if (look.word != CellLook::Word::None) {
    return DrawWord(*painter, rect, look, colors, option.direction);
  }
  DrawText(*painter, rect, look, InkOf(look, state.Ground(), colors), option.direction);
}

void CellDelegate::DrawText(QPainter& painter, QRect rect, const CellLook& look, const Ink& ink,
                            Qt::LayoutDirection direction) const {
  const Qt::Alignment align = VisualAlignment(look.align, direction);
  painter.setPen(ink.text);
  if (look.is_figure) {
    const Figures& figures = FiguresIn(painter.font());
    const bool fits = figures.Width(look.text) <= rect.width();
    figures.Draw(painter, rect, fits ? look.text : QStringLiteral("###"), align);
    return;
  }
  const bool is_leading_left = direction == Qt::LeftToRight;
  const auto glyph = [&](QLatin1String name, int x) {
    const QRect place(x, rect.y() + (rect.height() - kGlyphSize) / 2, kGlyphSize, kGlyphSize);
    DrawIcon(painter, place, name, ink.glyph, direction);
  };
  if (look.glyph_before.size() > 0) {
    glyph(look.glyph_before, is_leading_left ? rect.left() : rect.right() + 1 - kGlyphSize);
    constexpr int kTaken = kGlyphSize + kGlyphGap;
    rect.adjust(is_leading_left ? kTaken : 0, 0, is_leading_left ? 0 : -kTaken, 0);
  }
  const bool has_glyph_behind = look.glyph_behind.size() > 0;
  const int room = rect.width() - (has_glyph_behind ? kGlyphSize + kGlyphGap : 0);
  const QFontMetrics metrics = painter.fontMetrics();
  // Of what was pasted by the page only as much is laid out as can be in sight.
  const QString text = look.text.left(kMostCharacters * std::max(rect.width(), 1));
  const int width = metrics.horizontalAdvance(text);
  const bool is_cut = width > room;
  const QRect place = QStyle::visualRect(
      direction, rect,
      QRect(rect.x(), rect.y(), has_glyph_behind ? room : rect.width(), rect.height()));
  const int flags = static_cast<int>(align | Qt::AlignAbsolute | Qt::AlignVCenter) |
                    static_cast<int>(Qt::TextSingleLine);
  if (is_cut && breaks_texts_) {
    DrawTwoLines(painter, place, text, align);
  } else if (is_cut && !uses_ellipses_) {
    painter.setClipRect(place, Qt::IntersectClip);
    painter.drawText(place, flags | static_cast<int>(Qt::TextDontClip), text);
    painter.setClipping(false);
  } else {
    painter.drawText(place, flags, is_cut ? metrics.elidedText(text, Qt::ElideRight, room) : text);
  }
  if (has_glyph_behind) {
    const int behind = std::min(width, room) + kGlyphGap;
    glyph(look.glyph_behind,
          is_leading_left ? rect.left() + behind : rect.right() + 1 - behind - kGlyphSize);
  }
}

void CellDelegate::DrawMark(QPainter& painter, const QStyleOptionViewItem& option,
                            const CellLook& look, const RowState& state) const {
  const Colors& colors = ColorsOf(PaletteOf(option));
  const QRect box = CenteredIn(option.rect, kMarkSize, kMarkSize);
  const bool is_set = look.mark == CellLook::Mark::Set;
  if (look.mark_is_box) {
    QStyleOptionButton check;
    check.rect = box;
    check.palette = PaletteOf(option);
    check.state = QStyle::State_Enabled | (is_set ? QStyle::State_On : QStyle::State_Off);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, &painter, option.widget);
  } else if (is_set) {
    DrawIcon(painter, box, QLatin1String("tick"), colors[Role::Accent], option.direction);
  } else if (state.shows_unset_mark) {
    DrawBox(painter, QRectF(box).adjusted(1, 1, -1, -1), kSmallRadius, {},
            colors[state.is_selected ? Role::Dim : Role::Edge]);
  }
}

QSize CellDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QVariant value = index.data(kCellRole);
  int width = kMarkSize + 2 * kCellPadding;
  if (value.canConvert<CellLook>()) {
    const auto& look = *static_cast<const CellLook*>(value.constData());
    const QFont font = FontFor(look, option.font);
    const int text = look.is_figure ? qCeil(FiguresIn(font).Width(look.text))
                                    : QFontMetrics(font).horizontalAdvance(look.text);
    const int glyphs = (look.glyph_before.size() > 0 ? 1 : 0) + (look.glyph_behind.size() > 0);
    width = text + glyphs * (kGlyphSize + kGlyphGap) + kOuterCellPadding + 2 * kCellPadding;
  }
  return {width, RowHeight(QFontMetrics(option.font))};
}

int CellDelegate::NeededWidth(const CellLook& look, int column, const QFont& font) const {
  if (look.mark != CellLook::Mark::None) return 0;
  const QFont shown = FontFor(look, font);
  constexpr int kAnyWidth = 100;
  int needed = kAnyWidth - Padded({0, 0, kAnyWidth, 1}, column, Qt::LeftToRight).width();
  if (look.is_figure)
    return needed + static_cast<int>(std::ceil(FiguresIn(shown).Width(look.text)));
  needed += QFontMetrics(shown).horizontalAdvance(look.text);
  if (look.word != CellLook::Word::None) needed += 2 * kWordPadding;
  if (look.glyph_before.size() > 0) needed += kGlyphSize + kGlyphGap;
  if (look.glyph_behind.size() > 0) needed += kGlyphSize + kGlyphGap;
  return needed;
}

bool CellDelegate::IsCut(const CellLook& look, int column, int width, const QFont& font) const {
  return NeededWidth(look, column, font) > width;
}

}  // namespace tallyfold::desktop
