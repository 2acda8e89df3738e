#include "desktop/tabs/details_line.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <cmath>

#include "app/desk.h"
#include "app/views/entry_details.h"
#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/look/painting.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

QString OneLine(const std::string& text) {
  return ToQString(text).simplified();
}

}  // namespace

DetailsLine::DetailsLine(const Desk& desk, QWidget* parent) : QLabel(parent), desk_(desk) {
  setObjectName(QLatin1String("details_Label"));
  setTextFormat(Qt::PlainText);
  setContentsMargins(kOuterCellPadding, 0, kOuterCellPadding, 0);
  setFixedHeight(RowHeight(fontMetrics()) + 7);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void DetailsLine::Show() {
  const auto entry = desk_.SelectedEntry();
  const tallyfold::EntryDetails details = DetailsOf(entry.get(), desk_.preferences());
  using Kind = Piece::Kind;
  pieces_.clear();
  QStringList lines;
  if (!details.notes.empty()) {
    pieces_.push_back({Kind::Glyph, QLatin1String("note")});
    pieces_.push_back({Kind::Text, OneLine(details.notes)});
    lines.append(ToQString(details.notes));
  }
  if (!details.split.empty()) pieces_.push_back({Kind::Glyph, QLatin1String("split")});
  for (const SplitDetail& line : details.split) {
    QStringList words;
    for (const std::string& text : {line.description, line.to_from}) {
      if (!text.empty()) words.append(OneLine(text));
    }
    if (!words.isEmpty()) pieces_.push_back({Kind::Text, words.join(QLatin1String(", "))});
    pieces_.push_back({Kind::Figure, ToQString(line.amount_text)});
    words.append(ToQString(line.amount_text));
    lines.append(words.join(QLatin1String("  ")));
  }
  if (details.is_tax_deductible) {
    pieces_.push_back({Kind::Text, Text("Tax-Deductible")});
    lines.append(Text("Tax-Deductible"));
  }
  // What is drawn piece by piece is read out as a whole.
  setText(entry != nullptr && lines.isEmpty() ? Text("No notes, no split")
                                              : lines.join(QLatin1String("; ")).simplified());
  setToolTip(PlainToolTip(lines.join(QLatin1Char('\n'))));
  update();
}

void DetailsLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Colors& colors = ColorsOf(palette());
  DrawRuleBelow(painter, QRect(0, 0, width(), 1), colors[Role::Rule]);
  const QRect room = contentsRect().adjusted(0, 1, 0, 0);
  const QFontMetrics metrics(font());
  if (pieces_.empty()) {
    painter.setPen(colors[Role::Dim]);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, text());
    return;
  }
  const Figures figures(font());
  int x = 0;
  for (const Piece& piece : pieces_) {
    const int width = piece.kind == Piece::Kind::Glyph ? kGlyphSize
                      : piece.kind == Piece::Kind::Figure
                          ? static_cast<int>(std::ceil(figures.Width(piece.text)))
                          : metrics.horizontalAdvance(piece.text);
    const int rest = room.width() - x;
    if (rest <= 0) return;
    // A figure is never cut.
    if (piece.kind != Piece::Kind::Text && width > rest) return;
    const QRect place =
        QStyle::visualRect(layoutDirection(), room,
                           QRect(room.x() + x, room.y(), std::min(width, rest), room.height()));
    switch (piece.kind) {
      case Piece::Kind::Glyph:
        DrawIcon(
            painter,
            QRect(place.x(), place.y() + (place.height() - kGlyphSize) / 2, kGlyphSize, kGlyphSize),
            QLatin1String(piece.text == QLatin1String("note") ? "note" : "split"),
            colors[Role::Dim], layoutDirection());
        break;
      case Piece::Kind::Text:
        painter.setPen(colors[Role::Text]);
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft,
                         metrics.elidedText(piece.text, Qt::ElideRight, place.width()));
        break;
      case Piece::Kind::Figure:
        painter.setPen(colors[Role::Dim]);
        figures.Draw(painter, place, piece.text, Qt::AlignLeft);
        break;
    }
    x += width + (piece.kind == Piece::Kind::Glyph ? kGap : kWideGap);
  }
}

}  // namespace tallyfold::desktop
