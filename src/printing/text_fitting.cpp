#include "printing/text_fitting.h"

#include <algorithm>

#include "model/case_folding.h"
#include "model/display_width.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

constexpr std::string_view kEllipsis = "\u2026";
constexpr char32_t kLineSeparator = 0x2028;
constexpr char32_t kParagraphSeparator = 0x2029;

// Sums of widths miss the width of the whole by rounding errors.
constexpr double kFittingTolerance = 1e-6;

// Texts of so many bytes are measured whole first; of longer ones only the beginning is looked at.
constexpr std::size_t kShortText = 1000;

bool EndsLine(char32_t c) {
  return c == kLineSeparator || c == kParagraphSeparator;
}

bool IsControl(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || EndsLine(c);
}

bool IsPlainAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= 0x20 && c < 0x7F; });
}

// How many bytes of `text`, all whole characters, fit into `width`.
std::size_t FittingPrefix(std::string_view text, double width, TextStyle style,
                          const TextMetric& metric) {
  if (text.size() <= kShortText && metric.Width(text, style) <= width + kFittingTolerance) {
    return text.size();
  }
  std::vector<std::size_t> ends = {0};
  double sum = 0.0;
  for (std::string_view rest = text; !rest.empty();) {
    sum += metric.Width(TakeCharacter(rest), style);
    if (sum > width + kFittingTolerance) break;
    ends.push_back(text.size() - rest.size());
  }
  // Set together, characters may take more than each alone.
  while (ends.back() != 0 &&
         metric.Width(text.substr(0, ends.back()), style) > width + kFittingTolerance) {
    ends.pop_back();
  }
  return ends.back();
}

// Takes the next line off the front of `text`: up to "\n", "\r\n", "\r" or a separator of Unicode.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view whole = text;
  while (!text.empty()) {
    const std::size_t length = whole.size() - text.size();
    const char32_t c = TakeCodePoint(text);
    if (c == U'\r' && text.starts_with('\n')) text.remove_prefix(1);
    if (c == U'\r' || c == U'\n' || EndsLine(c)) return whole.substr(0, length);
  }
  return whole;
}

// How many bytes of `text`, which is not empty, make its first line.
std::size_t LineLength(std::string_view text, double width, TextStyle style,
                       const TextMetric& metric) {
  const std::size_t length = FittingPrefix(text, width, style, metric);
  if (length == 0) {
    std::string_view rest = text;
    return TakeCharacter(rest).size();
  }
  if (length == text.size() || text[length] == ' ') return length;
  const std::size_t blank = text.substr(0, length).rfind(' ');
  // Blanks that indent the line are no place to break it.
  const bool breaks_word = blank == std::string_view::npos || text.find_first_not_of(' ') > blank;
  return breaks_word ? length : blank;
}

void AppendWrapped(std::vector<std::string>& lines, std::string_view text, double width,
                   TextStyle style, const TextMetric& metric) {
  do {
    const std::size_t length = text.empty() ? 0 : LineLength(text, width, style, metric);
    const std::size_t end = text.substr(0, length).find_last_not_of(' ') + 1;
    if (end != 0 || length == text.size()) lines.emplace_back(text.substr(0, end));
    text.remove_prefix(length);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  } while (!text.empty());
}

}  // namespace

std::string OnOneLine(std::string_view text) {
  if (IsPlainAscii(text)) return std::string(text);
  const std::string valid = plist::ToValidUtf8(text);
  std::string line;
  line.reserve(valid.size());
  for (std::string_view rest = valid; !rest.empty();) {
    const std::string_view before = rest;
    if (IsControl(TakeCodePoint(rest))) {
      line += ' ';
    } else {
      line += before.substr(0, before.size() - rest.size());
    }
  }
  return line;
}

std::string Shortened(std::string_view text, double width, TextStyle style,
                      const TextMetric& metric) {
  const std::size_t fitting = FittingPrefix(text, width, style, metric);
  if (fitting == text.size()) return std::string(text);
  const double left = width - metric.Width(kEllipsis, style);
  if (left < -kFittingTolerance) return "";
  std::string_view kept =
      text.substr(0, FittingPrefix(text.substr(0, fitting), left, style, metric));
  kept = kept.substr(0, kept.find_last_not_of(' ') + 1);
  return std::string(kept) + std::string(kEllipsis);
}

std::vector<std::string> Wrapped(std::string_view text, double width, TextStyle style,
                                 const TextMetric& metric) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    AppendWrapped(lines, OnOneLine(TakeLine(text)), width, style, metric);
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

double WidestWidth(const std::vector<std::string>& texts, TextStyle style,
                   const TextMetric& metric) {
  const auto width_of = [&](char digit) { return metric.Width({&digit, 1}, style); };
  constexpr std::string_view kDigits = "0123456789";
  const char widest = *std::ranges::max_element(kDigits, {}, width_of);
  double width = 0.0;
  for (const std::string& text : texts) {
    std::string widened = OnOneLine(text);
    std::ranges::replace_if(
        widened, [](char c) { return c >= '0' && c <= '9'; }, widest);
    width = std::max(width, metric.Width(widened, style));
  }
  return width;
}

}  // namespace tallyfold
