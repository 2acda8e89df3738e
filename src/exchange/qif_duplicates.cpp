#include "exchange/qif_duplicates.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "model/calendar.h"

namespace tallyfold {
namespace {

using Reason = QifMatch::Reason;

constexpr std::int64_t kNearDays = 4;

std::size_t Combined(std::size_t hash, std::size_t value) noexcept {
  return hash ^ (value + 0x9e3779b97f4a7c15U + (hash << 6U) + (hash >> 2U));
}

std::size_t HashOf(double amount, DateNumber date) noexcept {
  return Combined(std::hash<double>()(amount), std::hash<DateNumber>()(date));
}

struct PairHash {
  std::size_t operator()(const std::pair<double, DateNumber>& pair) const noexcept {
    return HashOf(pair.first, pair.second);
  }
};

std::uint8_t KindOf(const LDGRAccountEntry& entry) noexcept {
  return static_cast<std::uint8_t>((entry.IsDebit() ? 1 : 0) | (entry.IsDeposit() ? 2 : 0));
}

bool KindsAgree(std::uint8_t a, std::uint8_t b) noexcept {
  return (a & 1) == (b & 1) || (a & 2) == (b & 2);
}

std::int64_t DayOf(const LDGRAccountEntry& entry) {
  const CivilTime day = DateNumberToNSCalendarDate(entry.GetDate());
  return DayCount(day.year, day.month, day.day);
}

}  // namespace

std::size_t QifDuplicates::Hash::operator()(const Key& key) const noexcept {
  std::size_t hash = HashOf(key.amount, key.date);
  hash =
      Combined(hash, static_cast<std::size_t>(key.kind) * 4 + static_cast<std::size_t>(key.reason));
  hash = Combined(hash, std::hash<std::int32_t>()(key.check_number));
  return Combined(hash, std::hash<std::string_view>()(key.text));
}

QifDuplicates::Key QifDuplicates::KeyOf(const LDGRAccountEntry& entry, Reason reason) {
  Key key{entry.GetAmount(), entry.GetDate(), KindOf(entry), reason, 0, {}};
  switch (reason) {
    case Reason::CheckNumber:
      key.check_number = entry.GetCheckNumber();
      break;
    case Reason::ToFrom:
      key.text = entry.GetToFrom();
      break;
    default:
      key.text = entry.GetDescription();
      break;
  }
  return key;
}

QifDuplicates::QifDuplicates(const EntryList& existing, const QifImportEntryList& imported) {
  // Most entries of the account share amount and day with none of those to be imported.
  std::unordered_set<std::pair<double, DateNumber>, PairHash> wanted;
  wanted.reserve(imported.size());
  for (const auto& entry : imported) wanted.emplace(entry->GetAmount(), entry->GetDate());
  for (const auto& entry : existing) {
    if (!wanted.contains({entry->GetAmount(), entry->GetDate()})) continue;
    if (entry->IsCheck()) AddExisting(entry, Reason::CheckNumber);
    AddExisting(entry, Reason::ToFrom);
    AddExisting(entry, Reason::Description);
  }
  if (alike_.empty()) return;
  for (const auto& entry : imported) {
    VisitMatches(alike_, *entry, [](Reason, Alike& alike) { ++alike.in_file; });
  }
}

void QifDuplicates::AddExisting(const std::shared_ptr<LDGRAccountEntry>& entry, Reason reason) {
  Alike& alike = alike_[KeyOf(*entry, reason)];
  if (alike.in_account++ == 0) alike.first = entry;
}

template <typename Map, typename Visit>
void QifDuplicates::VisitMatches(Map& alike, const LDGRAccountEntry& imported, Visit visit) {
  const std::uint8_t kind = KindOf(imported);
  for (const Reason reason : {Reason::CheckNumber, Reason::ToFrom, Reason::Description}) {
    if (reason == Reason::CheckNumber && !imported.IsCheck()) continue;
    bool is_found = false;
    Key key = KeyOf(imported, reason);
    for (key.kind = 0; key.kind < 4; ++key.kind) {
      if (!KindsAgree(kind, key.kind)) continue;
      if (const auto found = alike.find(key); found != alike.end()) {
        visit(reason, found->second);
        is_found = true;
      }
    }
    if (is_found) return;
  }
}

std::optional<QifMatch> QifDuplicates::Find(const LDGRAccountEntry& imported) const {
  if (alike_.empty()) return std::nullopt;
  std::optional<QifMatch> match;
  VisitMatches(alike_, imported, [&match](Reason reason, const Alike& alike) {
    if (!match) match = QifMatch{alike.first, reason};
    match->in_account += alike.in_account;
    // The same entries of the file match each of the kinds that agree.
    match->in_file = std::max(match->in_file, alike.in_file);
  });
  return match;
}

QifNearMatches::QifNearMatches(const EntryList& existing) {
  places_.reserve(existing.size());
  for (const auto& entry : existing) {
    // Not-a-number equals nothing and would upset the order.
    const double amount = entry->GetAmount();
    if (amount == amount) places_.push_back({amount, DayOf(*entry), entry});
  }
  std::stable_sort(places_.begin(), places_.end(), [](const Place& a, const Place& b) {
    return std::tie(a.amount, a.day) < std::tie(b.amount, b.day);
  });
}

std::optional<QifMatch> QifNearMatches::Find(const LDGRAccountEntry& imported) const {
  const double amount = imported.GetAmount();
  const std::int64_t day = DayOf(imported);
  const auto before = [amount](const Place& place, std::int64_t limit) {
    return std::tie(place.amount, place.day) < std::tie(amount, limit);
  };
  // The first on or after the day, and the last before it.
  const auto after = std::lower_bound(places_.begin(), places_.end(), day, before);
  const Place* nearest = nullptr;
  const auto consider = [&](const Place& place) {
    if (place.amount != amount || std::abs(place.day - day) > kNearDays) return;
    if (nearest == nullptr || std::abs(place.day - day) < std::abs(nearest->day - day)) {
      nearest = &place;
    }
  };
  if (after != places_.begin()) consider(*std::prev(after));
  if (after != places_.end()) consider(*after);
  if (nearest == nullptr) return std::nullopt;
  return QifMatch{nearest->entry, Reason::NearDate};
}

}  // namespace tallyfold
