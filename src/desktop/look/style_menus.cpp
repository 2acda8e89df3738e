#include <QFontMetrics>
#include <QIcon>
#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style_parts.h"

namespace tallyfold::desktop::style {
namespace {

constexpr int kMenuBarPadding = 9;
constexpr int kMenuIconLeft = 8;
constexpr int kShortcutGap = 24;
constexpr QChar kTab(u'\t');

}  // namespace

void DrawMenuBarItem(const Canvas& canvas, const QStyleOptionMenuItem& item, int mnemonic) {
  const Colors& colors = canvas.colors();
  PainterState state(canvas.painter);
  canvas.painter.fillRect(item.rect, colors[Role::Window]);
  const bool is_open = canvas.Is(QStyle::State_Sunken);
  if (canvas.Is(QStyle::State_Selected) && canvas.Is(QStyle::State_Enabled)) {
    DrawBox(canvas.painter, item.rect.adjusted(0, 2, 0, -2), kSmallRadius,
            colors.Mixed(Role::Window, Role::Text, is_open ? 0.14 : 0.07), {});
  }
  canvas.painter.setPen(canvas.Ink());
  canvas.painter.drawText(item.rect, Qt::AlignCenter | mnemonic, item.text);
}

QSize MenuBarItemSize(const QStyleOptionMenuItem& item, const QSize& contents) {
  return {contents.width() + 2 * kMenuBarPadding, MenuBarHeight(item.fontMetrics)};
}

void DrawMenuItem(const Canvas& canvas, const QStyleOptionMenuItem& item, int mnemonic) {
  QPainter& painter = canvas.painter;
  const Colors& colors = canvas.colors();
  const QRect& rect = item.rect;
  if (item.menuItemType == QStyleOptionMenuItem::Separator) {
    DrawRuleBelow(painter, CenteredIn(rect, rect.width() - 2 * kTightGap, 1), colors[Role::Rule]);
    return;
  }
  PainterState state(painter);
  painter.setFont(item.font);
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  if (canvas.Is(QStyle::State_Selected) && is_enabled) {
    DrawBox(painter, rect, kSmallRadius, colors[Role::Selection], {});
  }
  const QRect mark(rect.x() + kMenuIconLeft, rect.y() + (rect.height() - kIconSize) / 2, kIconSize,
                   kIconSize);
  const bool is_checked = item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked;
  if (is_checked) {
    // That of a menu is the mixed one: what is checked is inside.
    const bool is_mixed = item.menuItemType == QStyleOptionMenuItem::SubMenu;
    DrawIcon(painter, canvas.Visual(mark), QLatin1String(is_mixed ? "dash" : "tick"),
             canvas.Ink(Role::Accent), item.direction);
  } else if (!item.icon.isNull()) {
    item.icon.paint(&painter, canvas.Visual(mark), Qt::AlignCenter,
                    is_enabled ? QIcon::Normal : QIcon::Disabled);
  }
  const QRect text = rect.adjusted(kMenuTextLeft, 0, -kMenuTextRight, 0);
  const qsizetype tab = item.text.indexOf(kTab);
  painter.setPen(canvas.Ink());
  painter.drawText(
      canvas.Visual(text),
      static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine) | mnemonic,
      item.text.left(tab));
  if (tab >= 0) {
    painter.setPen(canvas.Ink(Role::Dim));
    painter.drawText(canvas.Visual(text),
                     static_cast<int>(Qt::AlignTrailing | Qt::AlignVCenter | Qt::TextSingleLine) |
                         static_cast<int>(Qt::TextHideMnemonic),
                     item.text.mid(tab + 1));
  }
  if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
    const QRect chevron(rect.right() + 1 - kGlyphSize - kTightGap,
                        rect.y() + (rect.height() - kGlyphSize) / 2, kGlyphSize, kGlyphSize);
    DrawIcon(painter, canvas.Visual(chevron), QLatin1String("chevron-right"), canvas.Ink(Role::Dim),
             item.direction);
  }
}

QSize MenuItemSize(const QStyleOptionMenuItem& item, const QSize& contents) {
  if (item.menuItemType == QStyleOptionMenuItem::Separator) {
    return {contents.width(), kMenuSeparatorHeight};
  }
  int width = contents.width() + kMenuTextLeft + kMenuTextRight;
  if (item.text.contains(kTab)) width += kShortcutGap;
  if (item.menuItemType == QStyleOptionMenuItem::SubMenu) width += kGlyphSize + kTightGap;
  return {width, MenuItemHeight(QFontMetrics(item.font))};
}

void DrawListPanel(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const bool is_active = canvas.Is(QStyle::State_Active);
  if (canvas.Is(QStyle::State_Selected)) {
    canvas.painter.fillRect(canvas.option.rect,
                            colors[is_active ? Role::Selection : Role::InactiveSelection]);
  } else if (canvas.Is(QStyle::State_MouseOver) && canvas.Is(QStyle::State_Enabled)) {
    canvas.painter.fillRect(canvas.option.rect, colors[Role::Hover]);
  }
}

}  // namespace tallyfold::desktop::style
