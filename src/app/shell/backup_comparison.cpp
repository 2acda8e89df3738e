#include "app/shell/backup_comparison.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tallyfold {
namespace {

using Kind = EntryDifference::Kind;

EntryList ByNumber(const LDGRAccount* account) {
  if (account == nullptr) return {};
  EntryList entries = account->GetEntries();
  std::ranges::stable_sort(
      entries, [](const auto& a, const auto& b) { return a->GetNumber() < b->GetNumber(); });
  return entries;
}

const LDGRAccountEntry& Present(const EntryDifference& difference) {
  return difference.now != nullptr ? *difference.now : *difference.then;
}

bool IsShownBefore(const EntryDifference& a, const EntryDifference& b) {
  const LDGRAccountEntry& first = Present(a);
  const LDGRAccountEntry& second = Present(b);
  return std::make_tuple(second.GetDate(), second.GetNumber()) <
         std::make_tuple(first.GetDate(), first.GetNumber());
}

bool IsHidden(const LDGRAccount* now, const LDGRAccount* then) {
  if (now != nullptr && now->IsLocked()) return true;
  if (then == nullptr || !then->HasPassword()) return false;
  return now == nullptr || now->GetPassword() != then->GetPassword();
}

AccountDifference Compare(const LDGRAccount* now, const LDGRAccount* then) {
  const LDGRAccount& either = now != nullptr ? *now : *then;
  AccountDifference difference;
  difference.name = either.GetName();
  difference.number = either.GetNumber();
  difference.is_locked = IsHidden(now, then);
  if (difference.is_locked) return difference;
  const EntryList here = ByNumber(now);
  const EntryList there = ByNumber(then);
  auto& entries = difference.entries;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < here.size() || j < there.size()) {
    const bool has_both = i < here.size() && j < there.size();
    if (has_both && here[i]->GetNumber() == there[j]->GetNumber()) {
      if (!here[i]->DifferenceFrom(*there[j]).IsEmpty()) {
        ++difference.changed;
        entries.push_back({Kind::Changed, here[i], there[j]});
      }
      ++i;
      ++j;
    } else if (j == there.size() || (has_both && here[i]->GetNumber() < there[j]->GetNumber())) {
      ++difference.added;
      entries.push_back({Kind::Added, here[i++], nullptr});
    } else {
      ++difference.gone;
      entries.push_back({Kind::Gone, nullptr, there[j++]});
    }
  }
  std::ranges::stable_sort(entries, IsShownBefore);
  return difference;
}

}  // namespace

BackupComparison CompareWithNow(const AccountsStore::AccountsOfFile& backup, const AccountList& now,
                                const std::string& password_now) {
  BackupComparison comparison;
  comparison.is_locked = !backup.password.empty() && backup.password != password_now;
  if (comparison.is_locked) return comparison;
  std::unordered_map<std::int32_t, const LDGRAccount*> then;
  for (const auto& account : backup.accounts) then.try_emplace(account->GetNumber(), account.get());
  for (const auto& account : now) {
    const auto found = then.find(account->GetNumber());
    comparison.accounts.push_back(
        Compare(account.get(), found == then.end() ? nullptr : found->second));
    if (found != then.end()) then.erase(found);
  }
  for (const auto& account : backup.accounts) {
    const auto left = then.find(account->GetNumber());
    if (left != then.end() && left->second == account.get()) {
      comparison.accounts.push_back(Compare(nullptr, account.get()));
    }
  }
  return comparison;
}

}  // namespace tallyfold
