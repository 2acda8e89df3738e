#pragma once

#include <QColor>
#include <QLatin1String>
#include <QMetaType>
#include <QString>
#include <cstdint>

namespace tallyfold::desktop {

// Everything that a cell is drawn by.
struct CellLook {
  enum class Align : std::uint8_t { Leading, Trailing, Center };
  // A set mark is a tick, one that is not set shows itself only where it could be set.
  enum class Mark : std::uint8_t { None, Unset, Set };
  // A word on a ground of its own.
  enum class Word : std::uint8_t { None, Neutral, Warning, Good, Problem };

  QString text = {};
  Align align = Align::Leading;
  // A day, a count or an amount: on tabular digits, never cut.
  bool is_figure = false;
  // A register colour as stored; invalid for the ink of the text.
  QColor color = {};
  // Names of icons.
  QLatin1String glyph_before = {};
  QLatin1String glyph_behind = {};
  Mark mark = Mark::None;
  bool mark_is_box = false;
  Word word = Word::None;
  bool is_italic = false;
  bool is_demi_bold = false;
  bool is_dim = false;
  bool is_struck = false;
};

// The role of a CellLook in any model that CellDelegate draws.
inline constexpr int kCellRole = 0x0100;  // the first that is the user's

}  // namespace tallyfold::desktop

Q_DECLARE_METATYPE(tallyfold::desktop::CellLook)
