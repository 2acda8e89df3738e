#include "exchange/match_choice.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>

#include "exchange/qif_duplicates.h"
#include "model/date_number.h"

namespace tallyfold {

MatchChoice::MatchChoice(const EntryList& existing) {
  places_.reserve(existing.size());
  for (const auto& entry : existing) {
    // Not-a-number equals nothing and would upset the order.
    const double amount = entry->GetAmount();
    if (amount == amount) places_.push_back({amount, DayCountOf(entry->GetDate()), entry});
  }
  std::stable_sort(places_.begin(), places_.end(), [](const Place& a, const Place& b) {
    return std::tie(a.amount, a.day) < std::tie(b.amount, b.day);
  });
  for (std::size_t i = 0; i < places_.size(); ++i) place_of_.emplace(places_[i].entry.get(), i);
}

std::size_t MatchChoice::Follow(std::vector<std::size_t>& links, std::size_t place) {
  std::size_t end = place;
  while (links[end] != end) end = links[end];
  while (links[place] != end) {
    const std::size_t next = links[place];
    links[place] = end;
    place = next;
  }
  return end;
}

void MatchChoice::Link() const {
  if (is_linked_) return;
  after_.resize(places_.size() + 2);
  before_.resize(places_.size() + 2);
  for (std::size_t i = 0; i < after_.size(); ++i) {
    const bool is_taken = i > 0 && i <= places_.size() && places_[i - 1].is_taken;
    after_[i] = is_taken ? i + 1 : i;
    before_[i] = is_taken ? i - 1 : i;
  }
  is_linked_ = true;
}

std::size_t MatchChoice::StartFor(double amount, std::int64_t day) const {
  const auto start = std::lower_bound(
      places_.begin(), places_.end(), day, [amount](const Place& place, std::int64_t limit) {
        return std::tie(place.amount, place.day) < std::tie(amount, limit);
      });
  return static_cast<std::size_t>(start - places_.begin());
}

std::shared_ptr<LDGRAccountEntry> MatchChoice::Find(
    const LDGRAccountEntry& row, const std::shared_ptr<LDGRAccountEntry>& wanted) const {
  const auto known = place_of_.find(wanted.get());
  if (known != place_of_.end() && !places_[known->second].is_taken) return wanted;
  const EntryList nearest = AllFor(row, 1);
  return nearest.empty() ? nullptr : nearest.front();
}

EntryList MatchChoice::AllFor(const LDGRAccountEntry& row, std::size_t most) const {
  Link();
  const double amount = row.GetAmount();
  const std::int64_t day = DayCountOf(row.GetDate());
  const std::size_t start = StartFor(amount, day);
  std::size_t before = Follow(before_, start);
  std::size_t after = Follow(after_, start + 1);
  // How far away a place is; none for one that does not fit.
  const auto distance_of = [&](std::size_t place) -> std::optional<std::int64_t> {
    if (place == 0 || place > places_.size()) return std::nullopt;
    const Place& each = places_[place - 1];
    const std::int64_t distance = std::abs(each.day - day);
    if (each.amount != amount || distance > kNearDays) return std::nullopt;
    return distance;
  };
  EntryList found;
  while (found.size() < most) {
    const auto earlier = distance_of(before);
    const auto later = distance_of(after);
    if (!earlier && !later) break;
    if (earlier && (!later || *earlier <= *later)) {
      found.push_back(places_[before - 1].entry);
      before = Follow(before_, before - 1);
    } else {
      found.push_back(places_[after - 1].entry);
      after = Follow(after_, after + 1);
    }
  }
  return found;
}

void MatchChoice::Take(const LDGRAccountEntry* entry) {
  const auto known = place_of_.find(entry);
  if (known == place_of_.end()) return;
  places_[known->second].is_taken = true;
  if (!is_linked_) return;
  const std::size_t place = known->second + 1;
  after_[place] = place + 1;
  before_[place] = place - 1;
}

void MatchChoice::Release(const LDGRAccountEntry* entry) {
  const auto known = place_of_.find(entry);
  if (known == place_of_.end()) return;
  places_[known->second].is_taken = false;
  is_linked_ = false;
}

}  // namespace tallyfold
