#include "desktop/print/page_preview.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/print/page_painter.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kAroundPaper = 24;
// Of a logical pixel, as the toolkit counts them, there are 96 an inch.
constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr double kLeastFit = 0.5;
constexpr int kScrollStep = 32;
constexpr int kPreviewWidth = 620;
constexpr int kPreviewHeight = 616;
constexpr int kLeastPreviewHeight = 240;
constexpr int kLeastPreviewWidth = 420;

// The texts of a page from top to bottom, for who cannot see it.
QString TextOfPage(const Page& page) {
  std::vector<const TextRun*> runs;
  for (const TextRun& run : page.runs) runs.push_back(&run);
  std::stable_sort(runs.begin(), runs.end(), [](const TextRun* a, const TextRun* b) {
    return a->y != b->y ? a->y < b->y : a->x < b->x;
  });
  QString text;
  const TextRun* last = nullptr;
  for (const TextRun* run : runs) {
    if (last != nullptr) text += last->y == run->y ? QLatin1String("  ") : QLatin1String("\n");
    text += ToQString(run->text);
    last = run;
  }
  return text;
}

}  // namespace

PagePreview::PagePreview(const PrintMetric& metric, QWidget* parent)
    : QAbstractScrollArea(parent), metric_(metric) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  SetAccessibleRole(*this, QAccessible::Document);
  setMinimumSize(kLeastPreviewWidth, kLeastPreviewHeight);
  horizontalScrollBar()->setSingleStep(kScrollStep);
  verticalScrollBar()->setSingleStep(kScrollStep);
}

void PagePreview::SetPages(const Pages* pages, std::size_t number, const QString& sentence) {
  pages_ = pages;
  sentence_ = sentence;
  number_ = pages == nullptr || pages->Count() == 0 ? 0 : std::min(number, pages->Count() - 1);
  ShowPage();
}

void PagePreview::Turn(std::size_t number) {
  if (pages_ == nullptr || pages_->Count() == 0) return;
  number = std::min(number, pages_->Count() - 1);
  if (number == number_) return;
  number_ = number;
  ShowPage();
  verticalScrollBar()->setValue(0);
  emit Turned();
}

void PagePreview::SetZoom(PreviewZoom zoom) {
  zoom_ = zoom;
  Fit();
}

QSize PagePreview::sizeHint() const {
  return {kPreviewWidth, kPreviewHeight};
}

void PagePreview::ShowPage() {
  page_.reset();
  if (pages_ != nullptr && pages_->Count() > 0) page_ = pages_->PageAt(number_);
  setAccessibleName(page_ ? ToQString(PageNumber(number_ + 1, pages_->Count())) : Text("Preview"));
  setAccessibleDescription(page_ ? TextOfPage(*page_) : sentence_);
  Fit();
}

double PagePreview::Scale() const {
  if (!page_) return kPixelsPerPoint;
  const double across = (viewport()->width() - 2 * kAroundPaper) / page_->size.width;
  const double down = (viewport()->height() - 2 * kAroundPaper) / page_->size.height;
  switch (zoom_) {
    case PreviewZoom::WholePage:
      return std::clamp(std::min(across, down), kLeastFit * kPixelsPerPoint, kPixelsPerPoint);
    case PreviewZoom::PageWidth:
      return std::max(across, kLeastFit * kPixelsPerPoint);
    case PreviewZoom::Percent100:
      return kPixelsPerPoint;
    case PreviewZoom::Percent150:
      return 1.5 * kPixelsPerPoint;
    case PreviewZoom::Percent200:
      return 2.0 * kPixelsPerPoint;
  }
  return kPixelsPerPoint;
}

void PagePreview::Fit() {
  const double scale = Scale();
  const QSize paper = page_ ? QSize(static_cast<int>(std::ceil(page_->size.width * scale)),
                                    static_cast<int>(std::ceil(page_->size.height * scale)))
                            : QSize();
  const auto fit = [](QScrollBar* bar, int whole, int shown) {
    bar->setPageStep(shown);
    bar->setRange(0, std::max(0, whole - shown));
  };
  fit(horizontalScrollBar(), paper.width() + 2 * kAroundPaper, viewport()->width());
  fit(verticalScrollBar(), paper.height() + 2 * kAroundPaper, viewport()->height());
  viewport()->update();
}

QRectF PagePreview::PaperRect() const {
  const double scale = Scale();
  const QSizeF paper(page_->size.width * scale, page_->size.height * scale);
  const auto place = [](double length, int room, const QScrollBar* bar) {
    return bar->maximum() > 0 ? static_cast<double>(kAroundPaper - bar->value())
                              : std::floor((room - length) / 2);
  };
  return {QPointF(place(paper.width(), viewport()->width(), horizontalScrollBar()),
                  place(paper.height(), viewport()->height(), verticalScrollBar())),
          paper};
}

void PagePreview::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const Colors& colors = ColorsOf(palette());
  painter.fillRect(viewport()->rect(), colors[colors.IsDark() ? Role::Base : Role::Rule]);
  if (!page_) {
    const int margin = kAroundPaper;
    painter.setPen(colors[Role::Text]);
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, sentence_);
    return;
  }
  const QRectF paper = PaperRect();
  FillSnapped(painter, paper, Qt::white);
  painter.setClipRect(paper);
  painter.translate(paper.topLeft());
  painter.scale(Scale(), Scale());
  DrawPage(painter, *page_, metric_);
  painter.resetTransform();
  painter.setClipping(false);
  if (!hasFocus()) return;
  const QRectF ring = QRectF(viewport()->rect()).adjusted(1, 1, -1, -1);
  DrawBox(painter, ring, 0, QColor(), colors[Role::Accent], kRing);
}

void PagePreview::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Fit();
}

void PagePreview::keyPressEvent(QKeyEvent* event) {
  const auto scroll = [](QScrollBar* bar, int steps) {
    bar->setValue(bar->value() + steps * bar->singleStep());
  };
  switch (event->key()) {
    case Qt::Key_PageDown:
      return TurnForward();
    case Qt::Key_PageUp:
      return TurnBack();
    case Qt::Key_Home:
      return Turn(0);
    case Qt::Key_End:
      return Turn(static_cast<std::size_t>(-1));
    case Qt::Key_Down:
      return scroll(verticalScrollBar(), 1);
    case Qt::Key_Up:
      return scroll(verticalScrollBar(), -1);
    case Qt::Key_Right:
      return scroll(horizontalScrollBar(), 1);
    case Qt::Key_Left:
      return scroll(horizontalScrollBar(), -1);
    default:
      return QAbstractScrollArea::keyPressEvent(event);
  }
}

void PagePreview::wheelEvent(QWheelEvent* event) {
  if (verticalScrollBar()->maximum() > 0) return QAbstractScrollArea::wheelEvent(event);
  const int turned = event->angleDelta().y();
  if (turned < 0) TurnForward();
  if (turned > 0) TurnBack();
  event->accept();
}

void PagePreview::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void PagePreview::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace tallyfold::desktop
