#include <QAbstractScrollArea>
#include <QFontMetrics>
#include <QIcon>
#include <QToolButton>
#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/look/style_parts.h"

namespace tallyfold::desktop::style {
namespace {

constexpr int kTabGap = 6;
constexpr int kTabBar = 3;
constexpr int kThumbThickness = 6;

bool HasMenu(const QStyleOptionToolButton& button) {
  return button.features.testFlag(QStyleOptionToolButton::HasMenu) ||
         button.features.testFlag(QStyleOptionToolButton::MenuButtonPopup);
}

bool ShowsText(const QStyleOptionToolButton& button) {
  return !button.text.isEmpty() && button.toolButtonStyle != Qt::ToolButtonIconOnly;
}

bool ShowsIcon(const QStyleOptionToolButton& button) {
  return button.toolButtonStyle != Qt::ToolButtonTextOnly &&
         (!button.icon.isNull() || button.arrowType != Qt::NoArrow);
}

void DrawToolIcon(const Canvas& canvas, const QStyleOptionToolButton& button, const QRect& place) {
  if (button.features.testFlag(QStyleOptionToolButton::Arrow) && button.arrowType != Qt::NoArrow) {
    const bool is_sideways =
        button.arrowType == Qt::LeftArrow || button.arrowType == Qt::RightArrow;
    // The chevron to the left is the mirrored one to the right.
    const auto name = is_sideways                       ? QLatin1String("chevron-right")
                      : button.arrowType == Qt::UpArrow ? QLatin1String("chevron-up")
                                                        : QLatin1String("chevron-down");
    DrawIcon(canvas.painter, place, name, canvas.Ink(),
             button.arrowType == Qt::LeftArrow ? Qt::RightToLeft : Qt::LeftToRight);
    return;
  }
  const auto mode = canvas.Is(QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled;
  button.icon.paint(&canvas.painter, place, Qt::AlignCenter, mode);
}

// Of icon and text.
QRect TabContents(const QStyleOptionTab& tab) {
  return QStyle::visualRect(tab.direction, tab.rect,
                            tab.rect.adjusted(kTabLeading, 0, -kTabTrailing, 0));
}

// What lies below the thumb: the ground of the area that scrolls.
QColor GroundOf(const Canvas& canvas) {
  const QWidget* widget = canvas.widget;
  while (widget != nullptr) {
    if (const auto* area = qobject_cast<const QAbstractScrollArea*>(widget)) {
      const QWidget* viewport = area->viewport();
      return viewport->palette().color(viewport->backgroundRole());
    }
    widget = widget->parentWidget();
  }
  return canvas.colors()[Role::Base];
}

}  // namespace

void DrawToolPanel(const Canvas& canvas) {
  const Colors& colors = canvas.colors();
  const QRect& rect = canvas.option.rect;
  const bool is_enabled = canvas.Is(QStyle::State_Enabled);
  if (is_enabled && canvas.Is(QStyle::State_Sunken)) {
    DrawBox(canvas.painter, rect, kRadius, colors.Mixed(Role::Window, Role::Text, 0.14), {});
  } else if (canvas.Is(QStyle::State_On)) {
    DrawBox(canvas.painter, rect, kRadius, colors[Role::Selection], {});
  } else if (is_enabled && canvas.Is(QStyle::State_MouseOver)) {
    DrawBox(canvas.painter, rect, kRadius, colors.Mixed(Role::Window, Role::Text, 0.07), {});
  }
  if (canvas.Is(QStyle::State_HasFocus)) {
    DrawBox(canvas.painter, rect, kRadius, {}, colors[Role::Accent], kRing);
  }
}

void DrawToolLabel(const Canvas& canvas, const QStyleOptionToolButton& button, int mnemonic) {
  PainterState state(canvas.painter);
  const QRect& rect = button.rect;
  const bool shows_text = ShowsText(button);
  const int icon = ShowsIcon(button) ? std::min(button.iconSize.width(), rect.width()) : 0;
  const int padding = shows_text ? kToolPadding : (rect.width() - icon) / 2;
  int x = rect.x() + padding;
  if (icon > 0) {
    const QRect place(x, rect.y() + (rect.height() - icon) / 2, icon, icon);
    DrawToolIcon(canvas, button, canvas.Visual(place));
    x += icon + kToolGap;
  }
  if (shows_text) {
    canvas.painter.setFont(button.font);
    canvas.painter.setPen(canvas.Ink());
    const QRect text(x, rect.y(), rect.right() + 1 - x, rect.height());
    canvas.painter.drawText(canvas.Visual(text),
                            static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter) | mnemonic,
                            button.text);
    if (HasMenu(button)) {
      const QRect chevron(rect.right() + 1 - kToolPadding - kChevronSize,
                          rect.y() + (rect.height() - kChevronSize) / 2, kChevronSize,
                          kChevronSize);
      DrawIcon(canvas.painter, canvas.Visual(chevron), QLatin1String("chevron-down"),
               canvas.Ink(Role::Dim), button.direction);
    }
  }
}

QSize ToolButtonSize(const QStyleOptionToolButton& button) {
  const int height = ToolButtonHeight(button.fontMetrics);
  if (!ShowsText(button)) return {height, height};
  int width = 2 * kToolPadding + button.fontMetrics.size(Qt::TextShowMnemonic, button.text).width();
  if (ShowsIcon(button)) width += button.iconSize.width() + kToolGap;
  if (HasMenu(button)) width += kChevronSize + kToolGap;
  return {width, height};
}

void DrawTabShape(const Canvas& canvas, const QStyleOptionTab& tab) {
  const Colors& colors = canvas.colors();
  const QRect contents = TabContents(tab);
  if (canvas.Is(QStyle::State_Selected)) {
    const QRect bar(contents.x() - 2, tab.rect.bottom() + 1 - kTabBar, contents.width() + 8,
                    kTabBar);
    DrawBox(canvas.painter, bar, kTabBar / 2.0, colors[Role::Accent], {});
  } else if (canvas.Is(QStyle::State_MouseOver) && canvas.Is(QStyle::State_Enabled)) {
    DrawBox(canvas.painter, contents.adjusted(-kGap, kTightGap + 2, kGap, -kTightGap - 2), kRadius,
            colors.Mixed(Role::Window, Role::Text, 0.07), {});
  }
  if (canvas.Is(QStyle::State_HasFocus)) {
    DrawBox(canvas.painter, contents.adjusted(-kGap, kGap, kGap, -kGap), kRadius, {},
            colors[Role::Accent], kRing);
  }
}

void DrawTabLabel(const Canvas& canvas, const QStyleOptionTab& tab, int mnemonic) {
  PainterState state(canvas.painter);
  const bool is_current = canvas.Is(QStyle::State_Selected);
  QRect text = tab.rect.adjusted(kTabLeading, 0, 0, 0);
  if (!tab.icon.isNull()) {
    const QRect icon(text.x(), text.y() + (text.height() - kTabIconSize) / 2, kTabIconSize,
                     kTabIconSize);
    const QByteArray name = tab.icon.name().toLatin1();
    DrawIcon(canvas.painter, canvas.Visual(icon), QLatin1String(name),
             canvas.Ink(is_current ? Role::Accent : Role::Dim), tab.direction);
    text.setLeft(text.left() + kTabIconSize + kTabGap);
  }
  if (is_current) canvas.painter.setFont(DemiBoldFont(canvas.painter.font()));
  canvas.painter.setPen(canvas.Ink(is_current ? Role::Text : Role::Dim));
  canvas.painter.drawText(canvas.Visual(text),
                          static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter) | mnemonic,
                          tab.text);
}

QSize TabSize(const QStyleOptionTab& tab) {
  const QFontMetrics metrics(DemiBoldFont(QFont()));
  int width = kTabLeading + kTabTrailing;
  if (!tab.icon.isNull()) width += kTabIconSize;
  if (!tab.text.isEmpty()) {
    width += metrics.size(Qt::TextShowMnemonic, tab.text).width();
    if (!tab.icon.isNull()) width += kTabGap;
  }
  return {width, std::max(kBarHeight, ControlHeight(tab.fontMetrics))};
}

void DrawScrollBar(const Canvas& canvas, const QStyleOptionSlider& bar, const QRect& thumb) {
  const Colors& colors = canvas.colors();
  const QColor ground = GroundOf(canvas);
  canvas.painter.fillRect(bar.rect, ground);
  if (bar.maximum <= bar.minimum) return;
  const bool is_held = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                       (canvas.Is(QStyle::State_MouseOver) || canvas.Is(QStyle::State_Sunken));
  const bool is_upright = bar.orientation == Qt::Vertical;
  const QRect shown = is_upright ? CenteredIn(thumb, kThumbThickness, thumb.height() - 4)
                                 : CenteredIn(thumb, thumb.width() - 4, kThumbThickness);
  DrawBox(canvas.painter, shown, kThumbThickness / 2.0,
          MixOf(ground, colors[Role::Text], is_held ? 0.50 : 0.36), {});
}

QRect ScrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
  const bool is_upright = bar.orientation == Qt::Vertical;
  const QRect& rect = bar.rect;
  const int length = is_upright ? rect.height() : rect.width();
  const qint64 range = static_cast<qint64>(bar.maximum) - bar.minimum;
  int thumb = length;
  if (range > 0) {
    const qint64 share = static_cast<qint64>(bar.pageStep) * length / (range + bar.pageStep);
    thumb = std::min(length, std::max(kShortestThumb, static_cast<int>(share)));
  }
  const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                    length - thumb, bar.upsideDown);
  int first = 0;
  int size = 0;
  switch (part) {
    case QStyle::SC_ScrollBarGroove:
      size = length;
      break;
    case QStyle::SC_ScrollBarSlider:
      first = start;
      size = thumb;
      break;
    case QStyle::SC_ScrollBarSubPage:
      size = start;
      break;
    case QStyle::SC_ScrollBarAddPage:
      first = start + thumb;
      size = length - first;
      break;
    default:
      return {};
  }
  const QRect place = is_upright ? QRect(rect.x(), rect.y() + first, rect.width(), size)
                                 : QRect(rect.x() + first, rect.y(), size, rect.height());
  return QStyle::visualRect(bar.direction, rect, place);
}

}  // namespace tallyfold::desktop::style
