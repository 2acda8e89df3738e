#pragma once

#include <QString>
#include <functional>

#include "printing/page.h"

class QPrinter;
class QWidget;

namespace tallyfold::desktop {

// What is to be printed, before it is known where.
struct PrintJob {
  QString title;
  PaperSize paper;
  std::size_t pages = 0;
};

// The printers that are set up on this computer.
class Printers {
 public:
  virtual ~Printers() = default;
  [[nodiscard]] virtual bool HasAny() = 0;
  // Lets the user choose one, and what he wants of it, over that window. `print` is called with it
  // then, or never; it has the job's paper and title.
  virtual void Choose(const PrintJob& job, QWidget* window,
                      std::function<void(QPrinter& printer)> print) = 0;
};

}  // namespace tallyfold::desktop
