#include "desktop/look/measures.h"

#include <QFontInfo>
#include <QVariant>
#include <algorithm>

namespace tallyfold::desktop {
namespace {

constexpr double kStoredFontPixels = 11.0;
constexpr double kLeastPoints = 8.5;
constexpr char kProblemProperty[] = "tallyfoldProblem";

int UpToEven(int length) {
  return length + length % 2;
}
int DownToEven(int length) {
  return length - length % 2;
}

}  // namespace

QFont BodyFont(const QFont& given) {
  QFont font = given;
  if (given.family() == QLatin1String("Sans Serif") && given.pointSize() == 9)
    font.setPointSize(10);
  return font;
}

QFont SmallFont(const QFont& body) {
  QFont font = body;
  font.setPointSizeF(std::max(kLeastPoints, QFontInfo(body).pointSizeF() - 1.0));
  return font;
}

QFont LargerFont(const QFont& body, double points) {
  QFont font = body;
  font.setPointSizeF(QFontInfo(body).pointSizeF() + points);
  return font;
}

QFont MediumFont(QFont font) {
  font.setWeight(QFont::Medium);
  return font;
}

QFont DemiBoldFont(QFont font) {
  font.setWeight(QFont::DemiBold);
  return font;
}

int RowHeight(const QFontMetrics& metrics) {
  return std::max(24, UpToEven(metrics.height() + 9));
}

int ControlHeight(const QFontMetrics& metrics) {
  return std::max(30, DownToEven(metrics.height() + 13));
}

int ToolButtonHeight(const QFontMetrics& metrics) {
  return ControlHeight(metrics) + 2;
}

int HeaderHeight(const QFontMetrics& small_metrics) {
  return DownToEven(small_metrics.height() + 13);
}

int MenuItemHeight(const QFontMetrics& metrics) {
  return std::max(28, metrics.height() + 11);
}

int MenuBarHeight(const QFontMetrics& metrics) {
  return metrics.height() + 11;
}

double ColumnFactor(double font_pixels) {
  return std::max(1.0, font_pixels / kStoredFontPixels);
}

double ColumnFactor(const QFont& register_font) {
  // In logical pixels whatever the font was asked for in.
  return ColumnFactor(static_cast<double>(QFontInfo(register_font).pixelSize()));
}

void SetProblem(QWidget* field, bool has_problem) {
  if (HasProblem(field) == has_problem) return;
  field->setProperty(kProblemProperty, has_problem);
  field->update();
}

bool HasProblem(const QWidget* field) {
  return field != nullptr && field->property(kProblemProperty).toBool();
}

}  // namespace tallyfold::desktop
