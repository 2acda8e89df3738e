#pragma once

#include <QPainter>

#include "printing/page.h"

namespace tallyfold::desktop {

class PrintMetric;

// Draws a page that was made with that metric: black on white, whatever the window looks like. A
// unit of the painter is a point, and it begins at the corner of the paper.
void DrawPage(QPainter& painter, const Page& page, const PrintMetric& metric);

}  // namespace tallyfold::desktop
