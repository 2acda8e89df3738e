#pragma once

#include <QColor>
#include <QIcon>
#include <QLatin1String>
#include <QPainter>
#include <QPixmap>
#include <QRect>

#include "desktop/look/colors.h"

namespace tallyfold::desktop {

// An icon of ours by its name ("debit", "chevron-down"). It is drawn in the colour that the palette
// in force has for the role, in that for disabled text where it is disabled, at the size of the
// device. Null for a name that there is not.
[[nodiscard]] QIcon IconNamed(QLatin1String name, Role role = Role::Text);

// The same as a picture `size` logical pixels wide and tall, in any colour.
[[nodiscard]] QPixmap PixmapNamed(QLatin1String name, int size, double scale, const QColor& color);
// Draws it into a square of the rectangle's size, in a layout from right to left turned around
// where its meaning has a direction.
void DrawIcon(QPainter& painter, const QRect& rect, QLatin1String name, const QColor& color,
              Qt::LayoutDirection direction);

// The coloured one of the program, for windows and the desktop.
[[nodiscard]] QIcon ApplicationIcon();

}  // namespace tallyfold::desktop
