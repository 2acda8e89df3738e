#pragma once

#include <QLabel>

namespace tallyfold::desktop {

// A line of text with figures in it, drawn on tabular digits and with true minuses before them. Its
// text stays as it is. Never narrower than that unless it is told a least width; then the text ends
// in an ellipsis.
class FigureLabel final : public QLabel {
 public:
  explicit FigureLabel(QWidget* parent, const char* name = "");

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfold::desktop
