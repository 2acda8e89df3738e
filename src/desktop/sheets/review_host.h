#pragma once

#include <QPointer>

#include "desktop/sheets/review_sheet.h"

namespace tallyfold::desktop {

class SheetHost;

// Shows the review of an import while there is one, with the sheets of its entries over it.
class ReviewHost final {
 public:
  // All must outlive the host.
  ReviewHost(const ReviewSheet::Parts& parts, SheetHost& sheets, QWidget& window) noexcept
      : parts_(parts), sheets_(sheets), window_(window) {}
  ReviewHost(const ReviewHost&) = delete;
  ReviewHost& operator=(const ReviewHost&) = delete;

  void Show();
  [[nodiscard]] bool IsOpen() const { return !sheet_.isNull(); }
  void Raise();

 private:
  ReviewSheet::Parts parts_;
  SheetHost& sheets_;
  QWidget& window_;
  QPointer<ReviewSheet> sheet_;
};

}  // namespace tallyfold::desktop
