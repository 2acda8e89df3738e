#pragma once

#include <QWidget>
#include <cstdint>

namespace tallyfold::desktop {

// How far an operation has come: a thin bar that takes no room from what lies below it.
class ProgressBar final : public QWidget {
 public:
  // Hidden at first.
  explicit ProgressBar(QWidget* parent);

  // Lies across its parent, `top` pixels below its upper edge, filled for `done` of `total`, and is
  // painted before this returns.
  void ShowAt(int top, std::uint64_t done, std::uint64_t total);
  // The part that is filled, from 0 to 1.
  [[nodiscard]] double Part() const noexcept { return part_; }

 private:
  void paintEvent(QPaintEvent* event) override;

  double part_ = 0.0;
};

}  // namespace tallyfold::desktop
