#include "exchange/qif_accounts.h"

#include <algorithm>
#include <bit>

namespace tallyfold {
namespace {

constexpr std::string_view kAccountLine = "!Account\r";
constexpr std::string_view kNameCode = "\rN";

// The lines of a header that begin with N, without that letter.
template <typename Visit>
void ForEachName(std::string_view header, Visit visit) {
  for (std::size_t found = header.find(kNameCode); found != std::string_view::npos;
       found = header.find(kNameCode, found + 1)) {
    const std::size_t start = found + kNameCode.size();
    visit(header.substr(start, header.find('\r', start) - start));
  }
}

}  // namespace

std::vector<std::string_view> QifAccountBlocks(std::string_view text) {
  std::vector<std::string_view> blocks;
  std::size_t start = text.find(kAccountLine);
  while (start != std::string_view::npos) {
    const std::size_t next = text.find(kAccountLine, start + kAccountLine.size());
    blocks.push_back(text.substr(start, next - start));
    start = next;
  }
  return blocks;
}

std::string_view QifAccountHeader(std::string_view block) {
  return block.substr(0, block.find('^'));
}

std::optional<std::string_view> QifAccountName(std::string_view block) {
  const std::string_view header = QifAccountHeader(block);
  const std::size_t found = header.find(kNameCode);
  if (found == std::string_view::npos) return std::nullopt;
  const std::size_t start = found + kNameCode.size();
  return header.substr(start, header.find('\r', start) - start);
}

QifAccountIndex::QifAccountIndex(const std::vector<std::string_view>& blocks) {
  for (std::size_t block = 0; block < blocks.size(); ++block) {
    ForEachName(QifAccountHeader(blocks[block]), [&](std::string_view name) {
      lines_.push_back({name, block});
    });
  }
  std::stable_sort(lines_.begin(), lines_.end(),
                   [](const Line& a, const Line& b) { return a.name < b.name; });

  std::vector<std::size_t> level;
  level.reserve(lines_.size());
  for (const Line& line : lines_) level.push_back(line.block);
  for (std::size_t half = 1; !level.empty(); half *= 2) {
    first_.push_back(level);
    if (level.size() <= half) break;
    for (std::size_t i = 0; i + half < level.size(); ++i) {
      level[i] = std::min(level[i], level[i + half]);
    }
    level.resize(level.size() - half);
  }
}

std::optional<std::size_t> QifAccountIndex::FirstWithNameStarting(std::string_view name) const {
  // The names that begin with `name` stand together.
  const auto begins = [name](const Line& line) { return line.name.substr(0, name.size()); };
  const auto low = std::partition_point(lines_.begin(), lines_.end(),
                                        [&](const Line& line) { return begins(line) < name; });
  const auto high = std::partition_point(low, lines_.end(),
                                         [&](const Line& line) { return begins(line) == name; });
  if (low == high) return std::nullopt;
  const auto begin = static_cast<std::size_t>(low - lines_.begin());
  const auto count = static_cast<std::size_t>(high - low);
  const auto level = static_cast<std::size_t>(std::bit_width(count)) - 1;
  const std::size_t width = std::size_t{1} << level;
  return std::min(first_[level][begin], first_[level][begin + count - width]);
}

}  // namespace tallyfold
