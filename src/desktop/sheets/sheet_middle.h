#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace tallyfold::desktop {

// The part of a sheet that scrolls where the screen is too small for the whole; as tall as what is
// in it where there is room.
class SheetMiddle final : public QScrollArea {
 public:
  explicit SheetMiddle(QWidget* parent);

  // For what is in it, one below the other.
  [[nodiscard]] QVBoxLayout& Lines() noexcept { return *lines_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] int heightForWidth(int width) const override;

 private:
  QVBoxLayout* lines_;
};

}  // namespace tallyfold::desktop
