#include "desktop/print/printed_pages.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <algorithm>
#include <numeric>

#include "desktop/print/page_painter.h"
#include "desktop/print/print_metric.h"
#include "platform/progress.h"

namespace tallyfold::desktop {
namespace {

constexpr double kPointsPerInch = 72.0;

}  // namespace

QPageLayout LayoutOf(const PaperSize& size) {
  const bool is_turned = size.width > size.height;
  const QSizeF upright =
      is_turned ? QSizeF(size.height, size.width) : QSizeF(size.width, size.height);
  QPageLayout layout(QPageSize(upright, QPageSize::Point, QString(), QPageSize::FuzzyMatch),
                     is_turned ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
  layout.setMode(QPageLayout::FullPageMode);
  return layout;
}

std::vector<std::size_t> PagesFor(const QPrinter& printer, std::size_t count) {
  std::size_t first = 0;
  std::size_t end = count;
  if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
    first = std::min(static_cast<std::size_t>(printer.fromPage()) - 1, count);
    end = std::clamp(static_cast<std::size_t>(std::max(printer.toPage(), 0)), first, count);
  }
  std::vector<std::size_t> once(end - first);
  std::iota(once.begin(), once.end(), first);
  if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(once.begin(), once.end());
  const int copies = printer.supportsMultipleCopies() ? 1 : std::max(printer.copyCount(), 1);
  std::vector<std::size_t> numbers;
  for (int copy = 0; copy < copies; ++copy) numbers.insert(numbers.end(), once.begin(), once.end());
  return numbers;
}

bool DrawPages(QPagedPaintDevice& device, const Pages& pages,
               const std::vector<std::size_t>& numbers, const PrintMetric& metric) {
  LongOperation operation(LongWork::Drawing, numbers.size());
  QPainter painter;
  if (numbers.empty() || !painter.begin(&device)) return false;
  painter.scale(device.logicalDpiX() / kPointsPerInch, device.logicalDpiY() / kPointsPerInch);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i != 0 && !device.newPage()) return false;
    DrawPage(painter, pages.PageAt(numbers[i]), metric);
    LongOperation::Count(LongWork::Drawing);
  }
  if (!painter.end()) return false;
  operation.Finish();
  return true;
}

std::string PagesAsPdf(const Pages& pages, const PrintMetric& metric, const QString& title) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setResolution(static_cast<int>(kPointsPerInch) * PrintMetric::kUnitsPerPoint);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Tallyfold"));
    writer.setPageLayout(LayoutOf(pages.Size()));
    std::vector<std::size_t> all(pages.Count());
    std::iota(all.begin(), all.end(), std::size_t{0});
    if (!DrawPages(writer, pages, all, metric)) return "";
  }
  return bytes.data().toStdString();
}

}  // namespace tallyfold::desktop
