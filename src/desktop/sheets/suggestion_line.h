#pragma once

#include "desktop/fields/key_button.h"

namespace tallyfold::desktop {

// A line that offers something and says the key that takes it. Nothing is seen of it while it
// offers nothing.
class SuggestionLine final : public LDGRButton {
  Q_OBJECT

 public:
  explicit SuggestionLine(QWidget* parent);

  // "" for nothing.
  void Offer(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tallyfold::desktop
