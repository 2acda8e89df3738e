#pragma once

#include <QLabel>
#include <vector>

namespace tallyfold {
class Desk;
}

namespace tallyfold::desktop {

// One line below a register: the notes and the split of the current row.
class DetailsLine final : public QLabel {
 public:
  // `desk` must outlive this.
  DetailsLine(const Desk& desk, QWidget* parent);

  void Show();

 private:
  // What stands beside the next one: a glyph, a text or a figure.
  struct Piece {
    enum class Kind { Glyph, Text, Figure } kind;
    QString text;
  };

  void paintEvent(QPaintEvent* event) override;

  const Desk& desk_;
  std::vector<Piece> pieces_;
};

}  // namespace tallyfold::desktop
