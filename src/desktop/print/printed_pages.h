#pragma once

#include <QPageLayout>
#include <QString>
#include <cstddef>
#include <string>
#include <vector>

#include "printing/page.h"
#include "printing/pages.h"

class QPagedPaintDevice;
class QPrinter;

namespace tallyfold::desktop {

class PrintMetric;

// The whole of a sheet of that size: pages have their own margins.
[[nodiscard]] QPageLayout LayoutOf(const PaperSize& size);
// All pages, or those the printer's dialog asked for, in its order and as many copies as it does
// not make itself.
[[nodiscard]] std::vector<std::size_t> PagesFor(const QPrinter& printer, std::size_t count);

// Draws the pages of these numbers, each on one of the device, which has their layout. False where
// the device fails.
[[nodiscard]] bool DrawPages(QPagedPaintDevice& device, const Pages& pages,
                             const std::vector<std::size_t>& numbers, const PrintMetric& metric);
// All pages as a file of the format PDF; "" where they could not be drawn.
[[nodiscard]] std::string PagesAsPdf(const Pages& pages, const PrintMetric& metric,
                                     const QString& title);

}  // namespace tallyfold::desktop
