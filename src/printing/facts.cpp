#include "printing/facts.h"

#include <memory>
#include <utility>

namespace tallyfold {
namespace {

// In characters: the words need not be cut at any width that makes sense.
constexpr std::size_t kWanted = 30;
constexpr std::size_t kLeast = 10;

}  // namespace

void Facts::Add(std::string words, std::string figure, std::string note) {
  words_.push_back(words);
  figures_.push_back(figure);
  rows_.push_back({.line = {.cells = {{0, std::move(words)}, {1, std::move(figure)}}},
                   .is_kept_with_next = true,
                   .note = std::move(note)});
}

void Facts::AddResult(std::string words, std::string figure, std::string note) {
  Add(std::move(words), std::move(figure), std::move(note));
  rows_.back().has_rule_above = true;
  rows_.back().line.style = TextStyle::Strong;
}

PrintTable Facts::Table(std::string title) const {
  PrintTable table{std::move(title)};
  table.columns = {
      {.samples = words_, .is_elastic = true, .wanted = kWanted, .least = kLeast},
      {.alignment = PrintAlignment::Right, .samples = figures_},
  };
  std::vector<ReadyRows::Row> rows = rows_;
  if (!rows.empty()) rows.back().is_kept_with_next = false;
  table.rows = std::make_shared<ReadyRows>(std::move(rows));
  return table;
}

}  // namespace tallyfold
