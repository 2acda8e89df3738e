#pragma once

#include <QWidget>

#include "desktop/look/colors.h"

class QLabel;

namespace tallyfold::desktop {

// A sentence about a field, small and behind an icon, both in one colour. It wraps.
class MarkedLine final : public QWidget {
 public:
  MarkedLine(QLatin1String icon, Role ink, QWidget* parent);

  void SetText(const QString& text);
  // Of the text alone.
  void SetName(QLatin1String name);

 private:
  QLabel* text_;
};

}  // namespace tallyfold::desktop
