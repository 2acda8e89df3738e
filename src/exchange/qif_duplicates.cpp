#include "exchange/qif_duplicates.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <tuple>
#include <utility>

#include "model/calendar.h"

namespace tallyfold {
namespace {

using Reason = QifMatch::Reason;

// A larger group is looked up by keys.
constexpr std::uint32_t kSmallGroup = 16;
constexpr std::array kReasons = {Reason::CheckNumber, Reason::ToFrom, Reason::Description};

std::size_t Mixed(std::uint64_t value) noexcept {
  value ^= value >> 32U;
  value *= 0x9e3779b97f4a7c15U;
  return static_cast<std::size_t>(value ^ (value >> 29U));
}

std::uint8_t KindOf(const LDGRAccountEntry& entry) noexcept {
  return static_cast<std::uint8_t>((entry.IsDebit() ? 1 : 0) | (entry.IsDeposit() ? 2 : 0));
}

bool KindsAgree(std::uint8_t a, std::uint8_t b) noexcept {
  return (a & 1) == (b & 1) || (a & 2) == (b & 2);
}

bool AreAlike(const LDGRAccountEntry& a, const LDGRAccountEntry& b, Reason reason) {
  switch (reason) {
    case Reason::CheckNumber:
      return a.IsCheck() && b.IsCheck() && a.GetCheckNumber() == b.GetCheckNumber();
    case Reason::ToFrom:
      return a.GetToFrom() == b.GetToFrom();
    default:
      return a.GetDescription() == b.GetDescription();
  }
}

bool IsWithoutText(const LDGRAccountEntry& entry, Reason reason) {
  return (reason == Reason::ToFrom && entry.GetToFrom().empty()) ||
         (reason == Reason::Description && entry.GetDescription().empty());
}

std::int64_t DayOf(const LDGRAccountEntry& entry) {
  const CivilTime day = DateNumberToNSCalendarDate(entry.GetDate());
  return DayCount(day.year, day.month, day.day);
}

}  // namespace

QifDuplicates::QifDuplicates(const EntryList& existing, const QifImportEntryList& imported) {
  // Most entries of the account share amount and day with none of those to be imported.
  MakeGroups(imported);
  FillGroups(existing);
}

std::size_t QifDuplicates::SlotOf(double amount, DateNumber date) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  // Adding zero makes the negative zero a positive one, which it equals.
  std::size_t slot = Mixed(std::bit_cast<std::uint64_t>(amount + 0.0) ^
                           (static_cast<std::uint64_t>(static_cast<std::uint32_t>(date)) << 20U)) &
                     mask;
  while (slots_[slot] != kNone) {
    const Group& group = groups_[slots_[slot]];
    if (group.date == date && group.amount == amount) break;
    slot = (slot + 1) & mask;
  }
  return slot;
}

void QifDuplicates::MakeGroups(const QifImportEntryList& imported) {
  slots_.assign(std::bit_ceil(imported.size() * 2 + 2), kNone);
  for (const auto& entry : imported) {
    const double amount = entry->GetAmount();
    // Not-a-number equals nothing.
    if (amount != amount) continue;
    const std::size_t slot = SlotOf(amount, entry->GetDate());
    if (slots_[slot] != kNone) continue;
    slots_[slot] = static_cast<std::uint32_t>(groups_.size());
    groups_.push_back({amount, entry->GetDate()});
  }
}

std::uint32_t QifDuplicates::GroupOf(const LDGRAccountEntry& entry) const noexcept {
  const double amount = entry.GetAmount();
  return amount == amount ? slots_[SlotOf(amount, entry.GetDate())] : kNone;
}

void QifDuplicates::FillGroups(const EntryList& existing) {
  std::vector<std::uint32_t> group_of;
  group_of.reserve(existing.size());
  for (const auto& entry : existing) {
    group_of.push_back(GroupOf(*entry));
    if (group_of.back() != kNone) ++groups_[group_of.back()].count;
  }
  std::uint32_t next = 0;
  for (Group& group : groups_) {
    group.first = next;
    next += std::exchange(group.count, 0);
  }
  members_.resize(next);
  for (std::size_t i = 0; i < existing.size(); ++i) {
    if (group_of[i] == kNone) continue;
    Group& group = groups_[group_of[i]];
    members_[group.first + group.count++] = existing[i];
  }
  for (const Group& group : groups_) {
    if (group.count > kSmallGroup) AddToKeys(group);
  }
}

// --- Large groups -------------------------------------------------------------------------------

std::size_t QifDuplicates::Hash::operator()(const Key& key) const noexcept {
  const std::size_t place = Mixed(std::uint64_t{key.group} << 8U | std::uint64_t{key.kind} << 4U |
                                  static_cast<std::uint64_t>(key.reason));
  return Mixed(place ^ static_cast<std::uint32_t>(key.check_number)) ^
         std::hash<std::string_view>()(key.text);
}

QifDuplicates::Key QifDuplicates::KeyOf(std::uint32_t group, const LDGRAccountEntry& entry,
                                        Reason reason) {
  Key key{group, KindOf(entry), reason, 0, {}};
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

void QifDuplicates::AddToKeys(const Group& group) {
  const auto number = static_cast<std::uint32_t>(&group - groups_.data());
  for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
    for (const Reason reason : kReasons) {
      if (reason == Reason::CheckNumber && !members_[i]->IsCheck()) continue;
      Alike& alike = keys_[KeyOf(number, *members_[i], reason)];
      if (alike.count++ == 0) alike.first = i;
    }
  }
}

QifDuplicates::Alike QifDuplicates::FindByKey(std::uint32_t group, const LDGRAccountEntry& imported,
                                              Reason reason) const {
  Alike alike;
  if (reason == Reason::CheckNumber && !imported.IsCheck()) return alike;
  Key key = KeyOf(group, imported, reason);
  const std::uint8_t kind = key.kind;
  for (key.kind = 0; key.kind < 4; ++key.kind) {
    if (!KindsAgree(kind, key.kind)) continue;
    const auto found = keys_.find(key);
    if (found == keys_.end()) continue;
    alike.first =
        alike.count == 0 ? found->second.first : std::min(alike.first, found->second.first);
    alike.count += found->second.count;
  }
  return alike;
}

// --- Look-up ------------------------------------------------------------------------------------

QifDuplicates::Alike QifDuplicates::FindInGroup(const Group& group,
                                                const LDGRAccountEntry& imported,
                                                Reason reason) const {
  Alike alike;
  const std::uint8_t kind = KindOf(imported);
  for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
    const LDGRAccountEntry& entry = *members_[i];
    if (!KindsAgree(kind, KindOf(entry)) || !AreAlike(imported, entry, reason)) continue;
    if (alike.count++ == 0) alike.first = i;
  }
  return alike;
}

QifDuplicates::Alike QifDuplicates::FindAlike(std::uint32_t group, const LDGRAccountEntry& imported,
                                              Reason reason) const {
  if (group == kNone || groups_[group].count == 0) return {};
  return groups_[group].count > kSmallGroup ? FindByKey(group, imported, reason)
                                            : FindInGroup(groups_[group], imported, reason);
}

std::optional<QifMatch> QifDuplicates::Find(const LDGRAccountEntry& imported) const {
  const std::uint32_t group = GroupOf(imported);
  std::optional<QifMatch> by_lack;
  for (const Reason reason : kReasons) {
    const Alike alike = FindAlike(group, imported, reason);
    if (alike.count == 0) continue;
    const bool says_nothing = IsWithoutText(imported, reason);
    if (says_nothing && by_lack) continue;
    const auto counted = in_file_.find(NumberOf(alike, reason));
    QifMatch match{members_[alike.first], reason, alike.count,
                   counted != in_file_.end() ? counted->second : 0};
    if (!says_nothing) return match;
    match.reason = Reason::AmountAndDate;
    by_lack = std::move(match);
  }
  return by_lack;
}

void QifDuplicates::CountImported(const QifImportEntryList& imported) {
  in_file_.clear();
  for (const auto& entry : imported) {
    const std::uint32_t group = GroupOf(*entry);
    for (const Reason reason : kReasons) {
      const Alike alike = FindAlike(group, *entry, reason);
      if (alike.count > 0) ++in_file_[NumberOf(alike, reason)];
    }
  }
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
