#pragma once

#include <QWidget>

class QComboBox;
class QSpinBox;
class QToolButton;

namespace tallyfold::desktop {

class PagePreview;

// Below a preview: the number of its page, which can be typed, the pages beside it, and how large
// it is shown.
class PageTurner final : public QWidget {
 public:
  // The preview must outlive this.
  PageTurner(PagePreview& preview, QWidget* parent);

  // Of so many pages the one that shows.
  void Show(std::size_t count);

 private:
  QToolButton* AddChevron(const char* name, const QString& title, int step);

  PagePreview& preview_;
  QToolButton* previous_;
  QSpinBox* number_;
  QToolButton* next_;
  QComboBox* zoom_;
};

}  // namespace tallyfold::desktop
