#include "desktop/register/spoken_cell.h"

#include <string>
#include <string_view>

#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

struct SpokenGlyph {
  QLatin1String glyph;
  std::string_view key;  // with the text of the cell
};
// The lock stands beside the word that says the same.
constexpr SpokenGlyph kSpokenGlyphs[] = {
    {QLatin1String("transfer"), "{1}, a transfer"},
    {QLatin1String("split"), "{1}, with a split"},
    {QLatin1String("note"), "{1}, with notes"},
    {QLatin1String("repeat"), "{1}, several days"},
};

}  // namespace

QString SpokenCell(const QString& title, const CellLook& look) {
  std::string value = ToUtf8(look.text);
  if (look.mark != CellLook::Mark::None) {
    value = ToUtf8(look.mark == CellLook::Mark::Set ? Text("yes") : Text("no"));
  } else if (value.empty()) {
    value = ToUtf8(Text("none"));
  }
  for (const SpokenGlyph& spoken : kSpokenGlyphs) {
    if (spoken.glyph == look.glyph_before || spoken.glyph == look.glyph_behind) {
      value = Message(spoken.key, {value});
    }
  }
  return ToQString(title.isEmpty() ? value : Message("{1}: {2}", {ToUtf8(title), value}));
}

}  // namespace tallyfold::desktop
