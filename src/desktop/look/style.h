#pragma once

#include <QProxyStyle>

class QApplication;
class QStyleOptionViewItem;

namespace tallyfold::desktop {

// The window's own drawing of the toolkit's controls, over the toolkit's own style.
class Style final : public QProxyStyle {
 public:
  Style();

  void polish(QWidget* widget) override;
  using QProxyStyle::polish;

  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const override;
  [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* data) const override;
  [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                       const QSize& contents, const QWidget* widget) const override;
  [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                     const QWidget* widget) const override;
  [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                     SubControl part, const QWidget* widget) const override;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  [[nodiscard]] QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                                   const QWidget* widget) const override;
};

// Installs the style and the font, unless the desktop brings a style of its own: that one stays.
void InstallStyle(QApplication& application);
// For tables that draw the ground of their selected rows: a style of the desktop's own would fill
// them once more, over it.
void LeaveSelectionToTable(QStyleOptionViewItem& option);

}  // namespace tallyfold::desktop
