#include "desktop/sheets/fact_line.h"

#include "desktop/texts.h"

namespace tallyfold::desktop {

std::string FactLine(std::string_view text) {
  const QString line = ToQString(text);
  return ToUtf8(line.left(1).toUpper() + line.mid(1));
}

}  // namespace tallyfold::desktop
