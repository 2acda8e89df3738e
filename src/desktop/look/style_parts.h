#pragma once

#include <QIcon>
#include <QPainter>
#include <QRect>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include "desktop/look/colors.h"

class QLabel;

// How the style draws each control; for style.cpp alone.
namespace tallyfold::desktop::style {

inline constexpr int kFieldPadding = 10;  // from the outline to the text
inline constexpr int kPopUpPadding = 42;  // beside the longest text of a pop-up
inline constexpr int kArrowWidth = 26;    // of a pop-up or spin box
inline constexpr int kToolPadding = 10;
inline constexpr int kToolGap = 6;  // between icon and text
inline constexpr int kMenuTextLeft = 32;
inline constexpr int kMenuTextRight = 12;
inline constexpr int kMenuSeparatorHeight = 9;
inline constexpr int kTabLeading = 12;
inline constexpr int kTabTrailing = 16;
inline constexpr int kCheckRing = 4;  // around the text of a check box
inline constexpr int kAlertIconSize = 32;

struct Canvas {
  const QStyleOption& option;
  QPainter& painter;
  const QWidget* widget;  // may be null

  [[nodiscard]] const Colors& colors() const { return ColorsOf(option.palette); }
  [[nodiscard]] bool Is(QStyle::StateFlag state) const { return option.state.testFlag(state); }
  // The colour of a text or icon that is first-rank while it can be used.
  [[nodiscard]] const QColor& Ink(Role role = Role::Text) const {
    return colors()[Is(QStyle::State_Enabled) ? role : Role::Off];
  }
  [[nodiscard]] QRect Visual(const QRect& rect) const {
    return QStyle::visualRect(option.direction, option.rect, rect);
  }
};

// Which mnemonic a text shows.
[[nodiscard]] int MnemonicFlag(const QStyle& style, const Canvas& canvas);

// --- style_controls.cpp
// -----------------------------------------------------------------------------
void DrawButtonPanel(const Canvas& canvas);
void DrawButtonLabel(const Canvas& canvas, const QStyleOptionButton& button, int mnemonic);
[[nodiscard]] QSize ButtonSize(const QStyleOptionButton& button);
void DrawFieldPanel(const Canvas& canvas);
void DrawCheckIndicator(const Canvas& canvas);
void DrawRadioIndicator(const Canvas& canvas);
void DrawCheckRing(const Canvas& canvas, const QRect& label, const QString& text);
void DrawPopUp(const Canvas& canvas, const QStyleOptionComboBox& pop_up);
void DrawPopUpLabel(const Canvas& canvas, const QStyleOptionComboBox& pop_up);
[[nodiscard]] QRect PopUpPart(const QStyleOptionComboBox& pop_up, QStyle::SubControl part);
void DrawSpinBox(const Canvas& canvas, const QStyleOptionSpinBox& box);
[[nodiscard]] QRect SpinBoxPart(const QStyleOptionSpinBox& box, QStyle::SubControl part);

// --- style_bars.cpp
// -----------------------------------------------------------------------------------
void DrawToolPanel(const Canvas& canvas);
void DrawToolLabel(const Canvas& canvas, const QStyleOptionToolButton& button, int mnemonic);
[[nodiscard]] QSize ToolButtonSize(const QStyleOptionToolButton& button);
void DrawTabShape(const Canvas& canvas, const QStyleOptionTab& tab);
void DrawTabLabel(const Canvas& canvas, const QStyleOptionTab& tab, int mnemonic);
[[nodiscard]] QSize TabSize(const QStyleOptionTab& tab);
void DrawScrollBar(const Canvas& canvas, const QStyleOptionSlider& bar, const QRect& thumb);
[[nodiscard]] QRect ScrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);

// --- style_menus.cpp
// ----------------------------------------------------------------------------------
void DrawMenuBarItem(const Canvas& canvas, const QStyleOptionMenuItem& item, int mnemonic);
void DrawMenuItem(const Canvas& canvas, const QStyleOptionMenuItem& item, int mnemonic);
[[nodiscard]] QSize MenuItemSize(const QStyleOptionMenuItem& item, const QSize& contents);
[[nodiscard]] QSize MenuBarItemSize(const QStyleOptionMenuItem& item, const QSize& contents);
// A line of a list or of the list of a pop-up.
void DrawListPanel(const Canvas& canvas);

// --- style_dialogs.cpp, for the dialogs that are the toolkit's
// -------------------------------------------------------------------------------
// What stands for one of its coloured pictures; null where that one has to do.
[[nodiscard]] QIcon StandardIcon(QStyle::StandardPixmap picture);
// A label of an alert: its matter is a heading, what there is to say about it stands small below.
void PolishAlert(QLabel& label);
// The icon of a selected line keeps its ink, as its text does.
void KeepIconInk(QStyleOptionViewItem& line, double scale);
void DrawHeaderPanel(const Canvas& canvas);
void DrawHeaderArrow(const Canvas& canvas);

}  // namespace tallyfold::desktop::style
