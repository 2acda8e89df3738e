#include "registers/smallest_subset.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <utility>

namespace tallyfold {
namespace {

using Indexes = std::vector<std::size_t>;

// --- Few amounts: every subset ------------------------------------------------------------------

// All subsets of one half of the amounts that have the same sum and size.
struct Group {
  std::int64_t sum = 0;
  int size = 0;
  std::uint32_t subset = 0;  // one of them, a bit for each amount
  bool is_unique = true;
};

constexpr std::size_t kFewAmounts = 32;

// By sum, then size; no subset of more than `most`.
std::vector<Group> GroupsOf(std::span<const std::int64_t> amounts, std::size_t most) {
  std::vector<Group> groups(1);
  groups.reserve(std::size_t{1} << amounts.size());
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    for (std::size_t j = 0, count = groups.size(); j < count; ++j) {
      const Group& group = groups[j];
      if (static_cast<std::size_t>(group.size) == most) continue;
      groups.push_back(
          {group.sum + amounts[i], group.size + 1, group.subset | std::uint32_t{1} << i, true});
    }
  }
  const auto key = [](const Group& group) { return std::pair(group.sum, group.size); };
  std::ranges::sort(groups, {}, key);
  std::size_t last = 0;
  for (std::size_t i = 1; i < groups.size(); ++i) {
    if (key(groups[i]) == key(groups[last])) {
      groups[last].is_unique = false;
    } else {
      groups[++last] = groups[i];
    }
  }
  groups.resize(last + 1);
  return groups;
}

void AddIndexes(std::uint32_t subset, std::size_t first, Indexes& indexes) {
  for (; subset != 0; subset &= subset - 1) {
    indexes.push_back(first + static_cast<std::size_t>(std::countr_zero(subset)));
  }
}

// Meets in the middle: a subset is one of the first half and one of the second.
std::optional<Indexes> SearchAll(std::span<const std::int64_t> amounts, std::int64_t total,
                                 std::size_t most) {
  const std::size_t half = amounts.size() / 2;
  const std::vector<Group> first = GroupsOf(amounts.first(half), most);
  const std::vector<Group> second = GroupsOf(amounts.subspan(half), most);

  int least = static_cast<int>(most) + 1;
  bool is_unique = false;
  std::pair<std::uint32_t, std::uint32_t> found;
  for (const Group& group : first) {
    const std::int64_t rest = total - group.sum;
    auto other = std::ranges::lower_bound(second, rest, {}, &Group::sum);
    for (; other != second.end() && other->sum == rest; ++other) {
      const int size = group.size + other->size;
      if (size < 2 || size > least) continue;
      is_unique = size < least && group.is_unique && other->is_unique;
      least = size;
      found = {group.subset, other->subset};
    }
  }
  if (!is_unique) return std::nullopt;
  Indexes indexes;
  AddIndexes(found.first, 0, indexes);
  AddIndexes(found.second, half, indexes);
  return indexes;
}

// --- Many amounts: small sizes within a number of steps -----------------------------------------

// Finds sets of one size after the other among sorted amounts.
class BoundedSearch {
 public:
  static constexpr std::int64_t kMostSteps = 10'000'000;

  explicit BoundedSearch(std::span<const std::int64_t> amounts) : order_(amounts.size()) {
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    std::ranges::sort(order_, {}, [amounts](std::size_t i) { return amounts[i]; });
    sorted_.reserve(amounts.size());
    sums_.reserve(amounts.size() + 1);
    sums_.push_back(0);
    for (const std::size_t i : order_) {
      sorted_.push_back(amounts[i]);
      sums_.push_back(sums_.back() + amounts[i]);
    }
  }

  [[nodiscard]] std::optional<Indexes> Run(std::int64_t total, std::size_t most) {
    for (std::size_t size = 2; size <= std::min(most, sorted_.size()); ++size) {
      chosen_.clear();
      Choose(0, size, total);
      if (steps_ > kMostSteps || found_ > 1) return std::nullopt;
      if (found_ == 1) return result_;
    }
    return std::nullopt;
  }

 private:
  // Adds `size` amounts from `from` on that make `total` to the chosen ones in every way. Recurses
  // as deep as the set is large.
  void Choose(std::size_t from, std::size_t size, std::int64_t total) {
    if (size == 2) return ChoosePair(from, total);
    for (std::size_t i = from; i + size <= sorted_.size() && !IsOver(); ++i, ++steps_) {
      const std::int64_t rest = total - sorted_[i];
      const std::int64_t least = sums_[i + size] - sums_[i + 1];
      if (rest < least) return;
      const std::int64_t greatest = sums_.back() - sums_[sorted_.size() - (size - 1)];
      if (rest > greatest) continue;
      chosen_.push_back(i);
      Choose(i + 1, size - 1, rest);
      chosen_.pop_back();
    }
  }

  void ChoosePair(std::size_t from, std::int64_t total) {
    std::size_t low = from;
    std::size_t high = sorted_.size() - 1;
    while (low < high && !IsOver()) {
      ++steps_;
      const std::int64_t sum = sorted_[low] + sorted_[high];
      if (sum < total) {
        ++low;
      } else if (sum > total) {
        --high;
      } else {
        Keep(low, high);
        // An equal neighbour would do as well.
        const bool has_twin = high - low > 1 && (sorted_[low + 1] == sorted_[low] ||
                                                 sorted_[high - 1] == sorted_[high]);
        if (has_twin) ++found_;
        ++low;
        --high;
      }
    }
  }

  void Keep(std::size_t low, std::size_t high) {
    ++found_;
    result_.clear();
    for (const std::size_t i : chosen_) result_.push_back(order_[i]);
    result_.push_back(order_[low]);
    result_.push_back(order_[high]);
    std::ranges::sort(result_);
  }

  [[nodiscard]] bool IsOver() const noexcept { return found_ > 1 || steps_ > kMostSteps; }

  std::vector<std::size_t> order_;    // of the amounts, smallest first
  std::vector<std::int64_t> sorted_;  // the amounts in that order
  std::vector<std::int64_t> sums_;    // of as many of these from the first on
  std::vector<std::size_t> chosen_;
  std::int64_t steps_ = 0;
  int found_ = 0;
  Indexes result_;
};

}  // namespace

std::optional<Indexes> SmallestSubset(std::span<const std::int64_t> amounts, std::int64_t total,
                                      std::size_t most) {
  // No sum on the way may leave the range of numbers.
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  if (total < -kMost) return std::nullopt;
  std::int64_t room = kMost - std::max(total, -total);
  for (const std::int64_t amount : amounts) {
    if (amount < -room || amount > room) return std::nullopt;
    room -= std::max(amount, -amount);
  }
  if (amounts.size() <= kFewAmounts) return SearchAll(amounts, total, most);
  return BoundedSearch(amounts).Run(total, most);
}

}  // namespace tallyfold
