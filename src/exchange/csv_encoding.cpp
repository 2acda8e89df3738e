#include "exchange/csv_encoding.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "exchange/csv_headings.h"
#include "exchange/import_content.h"
#include "platform/text_encodings.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

constexpr std::array kByteEncodings = {TextEncoding::Windows1252, TextEncoding::Windows1250,
                                       TextEncoding::Windows1251, TextEncoding::Windows1257};

bool IsHigh(char character) noexcept {
  return static_cast<unsigned char>(character) >= 0x80;
}

// The first lines that have letters beyond ASCII.
std::string HighLines(std::string_view bytes, std::size_t most) {
  std::string lines;
  std::size_t count = 0;
  auto found = std::find_if(bytes.begin(), bytes.end(), IsHigh);
  while (found != bytes.end() && count < most) {
    constexpr std::size_t kLongest = 500;
    const auto place = static_cast<std::size_t>(found - bytes.begin());
    std::size_t start = place;
    while (start > 0 && bytes[start - 1] != '\n' && bytes[start - 1] != '\r' &&
           place - start < kLongest) {
      --start;
    }
    const std::size_t end = std::min(bytes.find_first_of("\r\n", place), bytes.size());
    lines += bytes.substr(start, std::min(end - start, 2 * kLongest));
    lines += '\n';
    ++count;
    found = std::find_if(bytes.begin() + static_cast<std::ptrdiff_t>(end), bytes.end(), IsHigh);
  }
  return lines;
}

bool IsMostlyHigh(std::string_view text) noexcept {
  const auto high = std::count_if(text.begin(), text.end(), IsHigh);
  const auto letters = std::count_if(text.begin(), text.end(), [](char each) {
    return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z');
  });
  return high > letters;
}

// The cells of the lines that are headings with letters beyond ASCII.
std::size_t KnownHighHeadings(std::string_view lines) {
  std::size_t known = 0;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find_first_of(",;\t|\"\n"), lines.size());
    const std::string_view cell = lines.substr(0, end);
    lines.remove_prefix(std::min(end + 1, lines.size()));
    if (std::any_of(cell.begin(), cell.end(), IsHigh) && FieldOfHeading(cell) != CsvField::None) {
      ++known;
    }
  }
  return known;
}

// The lines of each reading, which has as many as the others.
std::vector<std::vector<std::string_view>> LinesOfEach(const std::vector<std::string>& readings) {
  std::vector<std::vector<std::string_view>> lines(readings.size());
  for (std::size_t i = 0; i < readings.size(); ++i) {
    std::string_view left = readings[i];
    while (!left.empty()) {
      const std::size_t end = std::min(left.find('\n'), left.size());
      lines[i].push_back(left.substr(0, end));
      left.remove_prefix(std::min(end + 1, left.size()));
    }
  }
  return lines;
}

// The first of the lines in which the most readings differ.
std::size_t MostTellingLine(const std::vector<std::vector<std::string_view>>& readings) {
  std::size_t best = 0;
  std::size_t most = 0;
  for (std::size_t line = 0; line < readings.front().size(); ++line) {
    std::vector<std::string_view> different;
    for (const auto& lines : readings) {
      if (std::find(different.begin(), different.end(), lines[line]) == different.end()) {
        different.push_back(lines[line]);
      }
    }
    if (different.size() <= most) continue;
    most = different.size();
    best = line;
  }
  return best;
}

TextEncoding ByteEncodingOf(std::string_view bytes, const TextEncodings& encodings,
                            std::vector<StatementQuestion>& questions) {
  constexpr std::size_t kLinesCompared = 200;
  const std::string lines = HighLines(bytes, kLinesCompared);
  StatementQuestion question;
  question.kind = StatementQuestion::Kind::Encoding;
  question.rows = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
  // Those that know the most headings, each other reading of the lines once.
  std::size_t most = 0;
  std::vector<std::string> readings;
  for (const TextEncoding encoding : kByteEncodings) {
    auto decoded = encodings.Decode(lines, encoding);
    if (!decoded) continue;
    const std::size_t known = KnownHighHeadings(*decoded);
    if (known > most) {
      question.candidates.clear();
      readings.clear();
      most = known;
    }
    const bool is_new = std::find(readings.begin(), readings.end(), *decoded) == readings.end();
    if (known < most || !is_new) continue;
    question.candidates.push_back({static_cast<std::int64_t>(encoding), {}});
    readings.push_back(*std::move(decoded));
  }
  if (question.candidates.empty()) return TextEncoding::Windows1252;
  const auto read = LinesOfEach(readings);
  const std::size_t telling = MostTellingLine(read);
  for (std::size_t i = 0; i < read.size(); ++i) {
    question.candidates[i].reading = read[i][telling];
  }
  question.sample = plist::ToValidUtf8(LinesOfEach({lines}).front()[telling]);
  if (IsMostlyHigh(lines)) {
    std::stable_partition(
        question.candidates.begin(), question.candidates.end(), [](const auto& each) {
          return each.value == static_cast<std::int64_t>(TextEncoding::Windows1251);
        });
  }
  const auto encoding = static_cast<TextEncoding>(question.candidates.front().value);
  if (question.candidates.size() > 1) questions.push_back(std::move(question));
  return encoding;
}

}  // namespace

ImportText ReadTableText(std::string_view bytes, const CsvChoices& choices,
                         const TextEncodings& encodings,
                         std::vector<StatementQuestion>& questions) {
  if (choices.encoding) return ReadInEncoding(bytes, *choices.encoding, encodings);
  if (const auto wide = WideEncodingOf(bytes)) return ReadInEncoding(bytes, *wide, encodings);
  ImportText text = ReadByDefault(bytes, encodings);
  // Some bad bytes among characters of UTF-8.
  if (text.encoding == TextEncoding::Utf8) return text;
  const TextEncoding encoding = ByteEncodingOf(bytes, encodings, questions);
  return encoding == text.encoding ? text : ReadInEncoding(bytes, encoding, encodings);
}

}  // namespace tallyfold
