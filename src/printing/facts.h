#pragma once

#include <string>
#include <utility>
#include <vector>

#include "printing/document.h"

namespace tallyfold {

// A small table without heads: words at the left, a figure at the right of each line.
class Facts {
 public:
  void Add(std::string words, std::string figure) { Add(std::move(words), std::move(figure), ""); }
  // With running text below.
  void Add(std::string words, std::string figure, std::string note);
  // What the lines above come to.
  void AddResult(std::string words, std::string figure, std::string note = "");

  // Keeps all its lines on one page.
  [[nodiscard]] PrintTable Table(std::string title) const;

 private:
  std::vector<ReadyRows::Row> rows_;
  std::vector<std::string> words_;
  std::vector<std::string> figures_;
};

}  // namespace tallyfold
