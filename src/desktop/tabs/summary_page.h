#pragma once

#include <QWidget>

namespace tallyfold {
class LDGRPreferences;
struct SummaryLayout;
}  // namespace tallyfold

namespace tallyfold::desktop {

// A computed summary: its head, the table of the periods with their bars, the sums and the blocks.
class SummaryPage final : public QWidget {
 public:
  explicit SummaryPage(QWidget* parent);

  void Show(const SummaryLayout& layout, const LDGRPreferences& preferences);
  void Clear();
};

}  // namespace tallyfold::desktop
