#pragma once

#include <QAccessible>

class QString;
class QTableView;
class QWidget;

namespace tallyfold::desktop {

// The role in which assistive technology knows a widget for which the toolkit has none. To be set
// before the widget is named, with which it becomes known.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

// Names what shows a figure, "Balance: $5.00", and lets assistive technology say so where the user
// sees it change. Without a caption the figure is a sentence that says all; "" names nothing.
void NameFigure(QWidget& widget, const QString& caption, const QString& figure);

// Lets assistive technology say the current cell of a table that has just got the focus; the
// toolkit only says the table.
void TellCurrentCell(QTableView& table);

}  // namespace tallyfold::desktop
