#include "registers/difference_explanation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/smallest_subset.h"

namespace tallyfold {
namespace {

using Kind = DifferenceExplanation::Kind;

// Below this whole cents are exact in a double.
constexpr double kExactLimit = 1e13;

std::optional<std::int64_t> CentsOf(double amount) {
  if (!(std::fabs(amount) < kExactLimit)) return std::nullopt;
  return std::llround(RoundedAmount(amount) * 100.0);
}

struct EntryInCents {
  std::shared_ptr<LDGRAccountEntry> entry;
  std::int64_t cents = 0;
};
using EntriesInCents = std::vector<EntryInCents>;

// Whether one number becomes the other when two digits next to each other are swapped. Both are
// positive; a zero may stand in front.
bool DifferByASwap(std::int64_t a, std::int64_t b) noexcept {
  while (a % 10 == b % 10 && a != b) {
    a /= 10;
    b /= 10;
  }
  return a != b && a / 100 == b / 100 && a % 10 == b / 10 % 10 && a / 10 % 10 == b % 10;
}

// Null for none; sets `is_unique` to whether there is no other.
template <typename Predicate>
std::shared_ptr<LDGRAccountEntry> FindOne(const EntriesInCents& entries, const Predicate& fits,
                                          bool& is_unique) {
  std::shared_ptr<LDGRAccountEntry> found;
  is_unique = true;
  for (const auto& [entry, cents] : entries) {
    if (!fits(cents)) continue;
    is_unique = found == nullptr;
    if (!is_unique) break;
    found = entry;
  }
  return found;
}

class Explaining {
 public:
  Explaining(const LDGRAccount& account, std::int64_t difference) : difference_(difference) {
    for (const auto& entry : account.GetEntries()) {
      const auto cents = CentsOf(entry->GetAmount());
      if (cents) (entry->GetCleared() ? resolved_ : unresolved_).push_back({entry, *cents});
    }
  }

  [[nodiscard]] std::optional<DifferenceExplanation> Run() const {
    const auto has = [](std::int64_t wanted) {
      return [wanted](std::int64_t cents) { return cents == wanted; };
    };
    bool is_unique = false;
    for (const auto& [kind, entries, wanted] : {Exact{Kind::Unresolved, unresolved_, difference_},
                                                Exact{Kind::Resolved, resolved_, -difference_}}) {
      const auto entry = FindOne(entries, has(wanted), is_unique);
      if (!is_unique) return std::nullopt;
      if (entry != nullptr) return DifferenceExplanation{kind, {entry}};
    }
    if (difference_ % 2 == 0) {
      const auto entry = FindOne(resolved_, has(-difference_ / 2), is_unique);
      if (entry != nullptr && is_unique) return DifferenceExplanation{Kind::WrongSign, {entry}};
    }
    const bool may_be_swapped = difference_ % 9 == 0;
    if (may_be_swapped) {
      const auto entry = FindOne(
          resolved_, [this](std::int64_t cents) { return IsSwapped(cents); }, is_unique);
      if (entry != nullptr && is_unique) return DifferenceExplanation{Kind::SwappedDigits, {entry}};
    }
    if (auto set = FindSet()) return set;
    if (may_be_swapped) return DifferenceExplanation{Kind::SwappedDigits, {}};
    return std::nullopt;
  }

 private:
  struct Exact {
    Kind kind;
    const EntriesInCents& entries;
    std::int64_t wanted;
  };

  [[nodiscard]] bool IsSwapped(std::int64_t cents) const noexcept {
    const std::int64_t right = cents + difference_;
    if (cents == 0 || right == 0 || (cents < 0) != (right < 0)) return false;
    return DifferByASwap(std::abs(cents), std::abs(right));
  }

  [[nodiscard]] std::optional<DifferenceExplanation> FindSet() const {
    std::vector<std::int64_t> amounts;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < unresolved_.size(); ++i) {
      // An entry of 0.00 belongs to any set or to none.
      if (unresolved_[i].cents == 0) continue;
      amounts.push_back(unresolved_[i].cents);
      places.push_back(i);
    }
    const auto subset = SmallestSubset(amounts, difference_, DifferenceExplanation::kLargestSet);
    if (!subset) return std::nullopt;
    DifferenceExplanation explanation{Kind::UnresolvedSet, {}};
    for (const std::size_t i : *subset) {
      explanation.entries.push_back(unresolved_[places[i]].entry);
    }
    return explanation;
  }

  std::int64_t difference_;
  EntriesInCents resolved_;
  EntriesInCents unresolved_;
};

}  // namespace

std::optional<DifferenceExplanation> ExplainDifference(const LDGRAccount& account,
                                                       const Reconciliation& figures) {
  const auto difference = CentsOf(figures.difference);
  if (!difference || *difference == 0) return std::nullopt;
  return Explaining(account, *difference).Run();
}

std::string ExplanationText(const DifferenceExplanation& explanation) {
  switch (explanation.kind) {
    case Kind::Unresolved:
      return LocalizedText("One unresolved entry has this amount.");
    case Kind::Resolved:
      return LocalizedText(
          "One resolved entry has this amount with the other sign: it may lack on the statement.");
    case Kind::WrongSign:
      return LocalizedText(
          "One resolved entry has half this amount with the other sign: it may be a deposit "
          "entered as a debit, or a debit entered as a deposit.");
    case Kind::SwappedDigits:
      return explanation.entries.empty()
                 ? LocalizedText(
                       "The difference can be divided by nine: two digits of an amount may be "
                       "swapped.")
                 : LocalizedText("Two digits of one resolved entry may be swapped.");
    case Kind::UnresolvedSet:
      break;
  }
  return Message("{1} unresolved entries together have this amount.",
                 {std::to_string(explanation.entries.size())});
}

}  // namespace tallyfold
