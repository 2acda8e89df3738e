#pragma once

#include <QColor>
#include <QFont>
#include <optional>
#include <string>

#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {

// How all tables of rows are drawn, as the preferences want it.
struct TableLook {
  QFont font;
  // Of a negative balance, as stored; none where figures stay in the ink of the text.
  QColor negative;
  bool uses_ellipses = true;
  std::string date_format;
};

// `body` stands in where the preferences name no font of this computer.
[[nodiscard]] TableLook TableLookOf(const LDGRPreferences& preferences, const QFont& body);

// A stored colour; parts out of range count as the nearest that there is.
[[nodiscard]] QColor ColorOf(const RegisterColor& color);

}  // namespace tallyfold::desktop
