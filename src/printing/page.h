#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tallyfold {

// A finished page: what stands where. Lengths are in points from the upper left corner of the
// paper, x to the right and y down. A front end draws the pieces in any order.

enum class TextStyle : std::uint8_t {
  Title,        // what is printed
  Subtitle,     // and how
  ColumnTitle,  // above a column
  Body,
  Italic,  // notes, what is yet to come, what is carried over from another page
  Strong,  // titles of tables and totals
  Foot,
};

struct TextRun {
  double x = 0.0;
  double y = 0.0;  // the top of its line
  std::string text;
  TextStyle style = TextStyle::Body;

  friend bool operator==(const TextRun&, const TextRun&) = default;
};

enum class RuleWeight : std::uint8_t {
  Hair,   // between rows, at `y` itself: it takes no room, and who has none leaves it out
  Thin,   // below titles and above sums
  Heavy,  // below the head
};

// A line from left to right, in the middle of a band of the metric's rule height at `y`.
struct Rule {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  RuleWeight weight = RuleWeight::Thin;

  friend bool operator==(const Rule&, const Rule&) = default;
};

// A filled rectangle.
struct Bar {
  double x = 0.0;
  double y = 0.0;
  double width = 0.0;
  double height = 0.0;

  friend bool operator==(const Bar&, const Bar&) = default;
};

struct PaperSize {
  double width = 0.0;
  double height = 0.0;

  friend bool operator==(const PaperSize&, const PaperSize&) = default;
};

struct Page {
  PaperSize size;
  std::vector<TextRun> runs;
  std::vector<Rule> rules;
  std::vector<Bar> bars;

  friend bool operator==(const Page&, const Page&) = default;
};

}  // namespace tallyfold
