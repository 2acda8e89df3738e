#pragma once

#include <QWidget>
#include <vector>

#include "summaries/summary_layout.h"

class QVBoxLayout;

namespace tallyfold {
class LDGRPreferences;
}  // namespace tallyfold

namespace tallyfold::desktop {

class SummaryTable;

// A computed summary: its head, the table of the periods with their bars, the sums and the blocks,
// in one, two or three columns.
class SummaryPage final : public QWidget {
 public:
  explicit SummaryPage(QWidget* parent);

  // The preferences must outlive this.
  void Show(const SummaryLayout& layout, const LDGRPreferences& preferences);
  void Clear();

 private:
  void resizeEvent(QResizeEvent* event) override;
  void AddPeriods(QVBoxLayout& column, const LDGRPreferences& preferences);
  SummaryTable* MakeBlock(const SummaryLayout::Block& block, const LDGRPreferences& preferences);
  void LayOutBlocks();

  // What the tables draw.
  SummaryLayout shown_;
  QWidget* blocks_area_ = nullptr;
  std::vector<SummaryTable*> blocks_;
  int block_columns_ = 0;
};

}  // namespace tallyfold::desktop
