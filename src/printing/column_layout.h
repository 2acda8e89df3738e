#pragma once

#include <vector>

#include "printing/document.h"
#include "printing/text_metric.h"

namespace tallyfold {

struct PlacedColumn {
  double x = 0.0;  // from the left edge of the table
  double width = 0.0;
};

// How columns share the width of a page.
class ColumnLayout {
 public:
  // The metric is used here only.
  ColumnLayout(const std::vector<PrintColumn>& columns, const TextMetric& metric);

  // The width below which something would be cut that must not be, and the one with which every
  // column has what it wants.
  [[nodiscard]] double LeastWidth() const noexcept { return least_; }
  [[nodiscard]] double WantedWidth() const noexcept { return wanted_; }
  // The columns in order, for a width of at least LeastWidth(), each of whole
  // points.
  [[nodiscard]] std::vector<PlacedColumn> Placed(double width) const;

 private:
  struct Needs {
    double share = 0.0;  // 0 for a column that is not elastic
    double least = 0.0;
    double wanted = 0.0;
    double most = 0.0;
    bool takes_rest = false;
  };

  [[nodiscard]] std::vector<double> Widths(double width) const;

  std::vector<Needs> columns_;
  double gap_ = 0.0;
  double least_ = 0.0;
  double wanted_ = 0.0;
};

}  // namespace tallyfold
