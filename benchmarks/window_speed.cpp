// The tables of the window with 100,000 rows, off-screen: what a repaint while scrolling costs, a
// letter of the type-ahead, and the selection of nearly all rows followed through a sort. The
// yardstick, taken in the same run, is the same page of texts drawn by the toolkit's bare painter.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <QWidget>
#include <memory>
#include <vector>

#include "benchmarks/household_register.h"
#include "benchmarks/window_run.h"
#include "desktop/register/entry_details.h"
#include "desktop/register/register_view.h"
#include "desktop/register/type_ahead.h"

namespace tallyfold::benchmarks {
namespace {

constexpr int kEntries = 100'000;
constexpr int kSelected = 90'000;
constexpr int kWidth = 1'047;
constexpr int kHeight = 680;

struct Window : HouseholdRegister {
  Window() : HouseholdRegister(kEntries) {
    rows.Redraw();
    view = std::make_unique<desktop::RegisterView>(table, nullptr);
    view->SetDetails(&details);
    view->SetLook(desktop::TableLookOf(host.wanted, QApplication::font()));
    view->resize(kWidth, kHeight);
    view->show();
    view->SelectForUser({5});
  }
  static Window& Shared() {
    static Window window;
    return window;
  }

  desktop::EntryDetails details{rows};
  std::unique_ptr<desktop::RegisterView> view;
};

void RepaintWhileScrolling(benchmark::State& state) {
  desktop::RegisterView& view = *Window::Shared().view;
  QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
  int value = 0;
  for (auto _ : state) {
    value = (value + 7'919) % view.verticalScrollBar()->maximum();
    view.verticalScrollBar()->setValue(value);
    view.viewport()->render(&image, {}, {}, QWidget::DrawWindowBackground);
  }
}
BENCHMARK(RepaintWhileScrolling)->Unit(benchmark::kMillisecond);

void YardstickOfRepaint(benchmark::State& state) {
  const desktop::RegisterView& view = *Window::Shared().view;
  const int height = view.rowHeight(0);
  const int columns = view.model()->columnCount();
  QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
  std::vector<QString> texts;
  for (int row = 0; row < kHeight / height; ++row) {
    for (int column = 0; column < columns; ++column) {
      texts.push_back(view.model()->index(row, column).data().toString());
    }
  }
  for (auto _ : state) {
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::white);
    painter.setFont(view.font());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const int at = static_cast<int>(i);
      painter.drawText(at % columns * kWidth / columns, (at / columns + 1) * height, texts[i]);
    }
  }
}
BENCHMARK(YardstickOfRepaint)->Unit(benchmark::kMillisecond);

void LetterOfTypeAhead(benchmark::State& state) {
  Window& window = Window::Shared();
  window.rows.SortByColumnIdentifier("description", false);
  window.table.SetIndicator("description", false);
  for (auto _ : state) {
    benchmark::DoNotOptimize(desktop::RowOfTyped(window.table, "gro", "%m/%d/%y", 0));
  }
}
BENCHMARK(LetterOfTypeAhead)->Unit(benchmark::kMillisecond);

// Beside it the sort alone, without a view.
void SelectNearlyAllAndSort(benchmark::State& state) {
  Window& window = Window::Shared();
  const bool is_seen = state.range(0) != 0;
  window.table.SetShownBy(nullptr);
  window.view = std::make_unique<desktop::RegisterView>(window.table, nullptr);
  window.view->resize(kWidth, kHeight);
  window.view->show();
  std::vector<int> selected(kSelected);
  for (int i = 0; i < kSelected; ++i) selected[static_cast<std::size_t>(i)] = i;
  if (is_seen) {
    window.view->SelectForUser(selected);
  } else {
    window.table.SetShownBy(nullptr);
  }
  for (auto _ : state) {
    window.rows.ClickedTableColumn("description");
    window.rows.ClickedTableColumn("amount");
  }
  state.counters["sorts"] = 2;
}
BENCHMARK(SelectNearlyAllAndSort)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks

int main(int argc, char** argv) {
  return tallyfold::benchmarks::RunInWindows(argc, argv);
}
