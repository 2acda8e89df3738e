#pragma once

#include "desktop/print/printers.h"

namespace tallyfold::desktop {

// By the toolkit's own dialog.
class QtPrinters final : public Printers {
 public:
  [[nodiscard]] bool HasAny() override;
  void Choose(const PrintJob& job, QWidget* window,
              std::function<void(QPrinter& printer)> print) override;
};

}  // namespace tallyfold::desktop
