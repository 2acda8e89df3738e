#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QWidget>

namespace tallyfold::desktop {

// Lengths are logical pixels. Whatever holds text has its height from the font.

// The grid of space.
inline constexpr int kTightGap = 4;
inline constexpr int kGap = 8;  // within a group
inline constexpr int kWideGap = 12;
inline constexpr int kGroupGap = 16;
inline constexpr int kSheetMargin = 20;
inline constexpr int kColumnGap = 24;

inline constexpr int kRadius = 6;       // buttons, fields, cards
inline constexpr int kSmallRadius = 4;  // check boxes, words in cells, menu items
inline constexpr int kRing = 2;         // thickness of the focus ring

inline constexpr int kBarHeight = 44;         // tool bar, tab strip, heading of the drawer
inline constexpr int kStatusHeight = 40;      // status line and total of the drawer
inline constexpr int kAccountRowHeight = 32;  // rows of the drawer
inline constexpr int kScrollBarExtent = 12;
inline constexpr int kShortestThumb = 32;
inline constexpr int kSelectionBar = 3;  // at the leading edge of what is selected
inline constexpr int kCellPadding = 8;
inline constexpr int kOuterCellPadding = 12;  // of the first column, at the page's edge
inline constexpr int kListPadding = 16;       // of the first column in the drawer
inline constexpr int kLastCellPadding = 4;    // of the last column, before the scroll bar's slot

inline constexpr int kGlyphSize = 14;  // in cells
inline constexpr int kMarkSize = 16;
inline constexpr int kIconSize = 16;  // menus and buttons
inline constexpr int kTabIconSize = 18;
inline constexpr int kToolIconSize = 20;
inline constexpr int kChevronSize = 12;
inline constexpr int kEmptyPageIconSize = 56;

inline constexpr int kLeastButtonWidth = 84;
inline constexpr int kToolTipDelay = 500;  // milliseconds

// --- Type
// ----------------------------------------------------------------------------------------- The
// desktop's font, or a larger one where the toolkit had none to offer but its fallback.
[[nodiscard]] QFont BodyFont(const QFont& given);
// Headers, captions, notes: a point less, never below 8.5.
[[nodiscard]] QFont SmallFont(const QFont& body);
// That many points larger.
[[nodiscard]] QFont LargerFont(const QFont& body, double points);
[[nodiscard]] QFont MediumFont(QFont font);
[[nodiscard]] QFont DemiBoldFont(QFont font);
inline constexpr double kStatusFigurePoints = 1.5;
inline constexpr double kSheetHeadingPoints = 2.0;
inline constexpr double kSummaryTitlePoints = 4.0;
inline constexpr double kHeadlinePoints = 5.0;  // and the figures of the reconcile band

// --- Heights of what holds a line of text
// -----------------------------------------------------------
[[nodiscard]] int RowHeight(const QFontMetrics& metrics);
[[nodiscard]] int ControlHeight(const QFontMetrics& metrics);
[[nodiscard]] int ToolButtonHeight(const QFontMetrics& metrics);
// Of a table's header, with the metrics of its small font.
[[nodiscard]] int HeaderHeight(const QFontMetrics& small_metrics);
[[nodiscard]] int MenuItemHeight(const QFontMetrics& metrics);
[[nodiscard]] int MenuBarHeight(const QFontMetrics& metrics);

// Stored column widths are meant for a font of 11 pixels: shown times this, stored divided by it.
// At least 1.
[[nodiscard]] double ColumnFactor(double font_pixels);
[[nodiscard]] double ColumnFactor(const QFont& register_font);

// --- States that the toolkit has no name for
// ---------------------------------------------------------- A field whose text was refused; the
// style draws it so.
void SetProblem(QWidget* field, bool has_problem);
[[nodiscard]] bool HasProblem(const QWidget* field);

}  // namespace tallyfold::desktop
