#pragma once

#include <QWidget>
#include <cstddef>
#include <functional>
#include <vector>

#include "summaries/summary_layout.h"
#include "summaries/summary_line.h"

class QVBoxLayout;

namespace tallyfold {
class LDGRPreferences;
}  // namespace tallyfold

namespace tallyfold::desktop {

class SummaryTable;

// A computed summary: its head, the table of the periods with their bars, the sums and the blocks,
// in one, two or three columns.
class SummaryPage final : public QWidget {
  Q_OBJECT

 public:
  explicit SummaryPage(QWidget* parent);

  // The preferences must outlive this.
  void Show(const SummaryLayout& layout, const LDGRPreferences& preferences);
  void Clear();

 signals:
  // The entries that a line counts are to be seen. The page may be shown anew on hearing this.
  void EntriesWanted(const SummaryLine& line);

 private:
  void resizeEvent(QResizeEvent* event) override;
  void AddPeriods(QVBoxLayout& column, const LDGRPreferences& preferences);
  SummaryTable* MakeBlock(std::size_t number, const LDGRPreferences& preferences);
  // What a row of a table does when it is activated.
  [[nodiscard]] std::function<void(int)> Wanting(std::function<SummaryLine(int row)> line);
  void LayOutBlocks();

  // What the tables draw.
  SummaryLayout shown_;
  QWidget* blocks_area_ = nullptr;
  std::vector<SummaryTable*> blocks_;
  int block_columns_ = 0;
};

}  // namespace tallyfold::desktop
