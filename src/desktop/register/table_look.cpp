#include "desktop/register/table_look.h"

#include <QFontDatabase>
#include <algorithm>

#include "desktop/texts.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLeastPoints = 6;
constexpr int kMostPoints = 72;

}  // namespace

QColor ColorOf(const RegisterColor& color) {
  // A stored part may be no number at all; clamp() would hand it on.
  const auto part = [](float value) { return value > 0.0F ? std::min(value, 1.0F) : 0.0F; };
  return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue), part(color.alpha));
}

TableLook TableLookOf(const LDGRPreferences& preferences, const QFont& body) {
  TableLook look;
  look.font = body;
  const QString family = ToQString(preferences.GetEntryFont());
  if (!family.isEmpty() && QFontDatabase::hasFamily(family)) look.font.setFamily(family);
  look.font.setPointSize(std::clamp(preferences.GetEntryFontSize(), kLeastPoints, kMostPoints));
  look.negative = ColorOf({preferences.GetDebitColor_Red(), preferences.GetDebitColor_Green(),
                           preferences.GetDebitColor_Blue(), preferences.GetDebitColor_Alpha()});
  look.uses_ellipses = preferences.GetUseEllipses();
  look.date_format = RegisterDateFormat(preferences);
  return look;
}

}  // namespace tallyfold::desktop
