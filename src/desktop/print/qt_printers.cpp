#include "desktop/print/qt_printers.h"

#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTabWidget>
#include <functional>
#include <memory>
#include <utility>

#include "desktop/look/assistive.h"
#include "desktop/print/printed_pages.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

// The toolkit leaves some of them without a name for assistive technology, or two with the same.
void NameWidgetsOf(const QPrintDialog& dialog) {
  const std::pair<const char*, QString> names[] = {
      {"printers", Text("Printer")}, {"tabs", Text("Options")},  {"from", Text("First Page")},
      {"to", Text("Last Page")},     {"copies", Text("Copies")}, {"pageSetCombo", Text("Pages")}};
  if (auto* tabs = dialog.findChild<QTabWidget*>(QLatin1String("tabs"))) {
    SetAccessibleRole(*tabs, QAccessible::Pane);
  }
  for (const auto& [name, title] : names) {
    auto* widget = dialog.findChild<QWidget*>(QLatin1String(name));
    if (widget == nullptr) continue;
    widget->setAccessibleName(title);
    const auto fields = widget->findChildren<QLineEdit*>(QLatin1String("qt_spinbox_lineedit"));
    for (QLineEdit* field : fields) field->setAccessibleName(title);
  }
}

}  // namespace

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
  NameWidgetsOf(*dialog);
  dialog->open();
}

}  // namespace tallyfold::desktop
