#include "printing/plain_text.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <tuple>
#include <vector>

#include "model/display_width.h"

namespace tallyfold {
namespace {

constexpr PaperSize kPortrait = {80.0, 60.0};
constexpr PaperSize kLandscape = {105.0, 45.0};

struct Piece {
  std::size_t line = 0;
  std::size_t place = 0;
  std::string text;
};

std::size_t Cell(double points) {
  return static_cast<std::size_t>(std::lround(std::max(points, 0.0)));
}

std::vector<Piece> PiecesOf(const Page& page) {
  std::vector<Piece> pieces;
  for (const TextRun& run : page.runs) pieces.push_back({Cell(run.y), Cell(run.x), run.text});
  for (const Rule& rule : page.rules) {
    if (rule.weight == RuleWeight::Hair) continue;
    pieces.push_back({Cell(rule.y), Cell(rule.x),
                      std::string(Cell(rule.width), rule.weight == RuleWeight::Heavy ? '=' : '-')});
  }
  for (const Bar& bar : page.bars) {
    const std::size_t first = Cell(bar.x);
    pieces.push_back({Cell(bar.y), first, std::string(Cell(bar.x + bar.width) - first, '#')});
  }
  std::ranges::stable_sort(pieces, {}, [](const Piece& p) { return std::tie(p.line, p.place); });
  return pieces;
}

}  // namespace

double FixedPitchMetric::Width(std::string_view text, TextStyle /*style*/) const {
  return static_cast<double>(DisplayWidth(text));
}

double FixedPitchMetric::LineHeight(TextStyle /*style*/) const {
  return 1.0;
}

double FixedPitchMetric::RuleHeight() const {
  return 1.0;
}

double FixedPitchMetric::ColumnGap() const {
  return 2.0;
}

Paper PlainTextPaper() noexcept {
  return {kPortrait, kLandscape, {}};
}

std::string PageAsText(const Page& page) {
  std::string text;
  std::size_t line = 0;
  std::size_t place = 0;
  for (const Piece& piece : PiecesOf(page)) {
    for (; line < piece.line; ++line) {
      text += '\n';
      place = 0;
    }
    if (piece.text.empty()) continue;
    if (place < piece.place) text.append(piece.place - place, ' ');
    text += piece.text;
    place = std::max(place, piece.place) + DisplayWidth(piece.text);
  }
  if (!text.empty()) text += '\n';
  return text;
}

}  // namespace tallyfold
