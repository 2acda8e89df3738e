#pragma once

#include <QAbstractScrollArea>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "printing/page.h"
#include "printing/pages.h"

namespace tallyfold::desktop {

class PrintMetric;

// How large the page is shown.
enum class PreviewZoom : std::uint8_t { WholePage, PageWidth, Percent100, Percent150, Percent200 };

// A page as it will be on paper, which is white whatever the window looks like. One page is made
// and drawn at a time. The Page keys turn, the arrows scroll.
class PagePreview final : public QAbstractScrollArea {
  Q_OBJECT

 public:
  // The metric must outlive the preview.
  PagePreview(const PrintMetric& metric, QWidget* parent);

  // The pages, which must stay until there are others, and the number of the one that shows, from
  // 0; null for none, with the sentence that stands in their place.
  void SetPages(const Pages* pages, std::size_t number, const QString& sentence);
  [[nodiscard]] std::size_t Number() const noexcept { return number_; }
  // The nearest page that there is.
  void Turn(std::size_t number);
  void TurnBack() { Turn(number_ - std::min<std::size_t>(number_, 1)); }
  void TurnForward() { Turn(number_ + 1); }
  void SetZoom(PreviewZoom zoom);

  // A whole page of any usual paper; a small screen leaves less.
  [[nodiscard]] QSize sizeHint() const override;

 signals:
  void Turned();

 private:
  void ShowPage();
  void Fit();
  // Logical pixels a point.
  [[nodiscard]] double Scale() const;
  [[nodiscard]] QRectF PaperRect() const;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

  const PrintMetric& metric_;
  const Pages* pages_ = nullptr;
  std::size_t number_ = 0;
  std::optional<Page> page_;
  QString sentence_;
  PreviewZoom zoom_ = PreviewZoom::WholePage;
};

}  // namespace tallyfold::desktop
