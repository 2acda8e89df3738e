#include "desktop/print/qt_printers.h"

#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <functional>
#include <memory>
#include <utility>

#include "desktop/print/printed_pages.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {

bool QtPrinters::HasAny() {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

void QtPrinters::Choose(const PrintJob& job, QWidget* window,
                        std::function<void(QPrinter& printer)> print) {
  const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  const QPageLayout layout = LayoutOf(job.paper);
  printer->setPageLayout(layout);
  printer->setDocName(job.title);
  printer->setCreator(QStringLiteral("Tallyfold"));
  auto* dialog = new QPrintDialog(printer.get(), window);
  dialog->setObjectName(QLatin1String("print_Dialog"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(Text("Print"));
  dialog->setWindowModality(Qt::WindowModal);
  // A file is written by the sheet, which leaves a good one alone where that fails.
  dialog->setOption(QAbstractPrintDialog::PrintToFile, false);
  dialog->setOption(QAbstractPrintDialog::PrintPageRange);
  dialog->setMinMax(1, static_cast<int>(job.pages));
  QObject::connect(dialog, qOverload<>(&QDialog::accepted), window,
                   [printer, layout, print = std::move(print)] {
                     // The pages are cut for the paper of the sheet.
                     printer->setPageLayout(layout);
                     print(*printer);
                   });
  // It keeps the printer as long as it is there.
  QObject::connect(dialog, &QObject::destroyed, window, [printer] {});
  dialog->open();
}

}  // namespace tallyfold::desktop
