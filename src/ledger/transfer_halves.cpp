#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

#include "ledger/change.h"
#include "ledger/transfer_links.h"

namespace tallyfold {
namespace {

// The entries of one account that may be other halves.
struct Halves {
  // Those with a number that is wanted: the first two, for an entry is not its own other half.
  std::unordered_map<std::int32_t, EntryList> by_number;
  // Those that point back, by their number and by the number they point at.
  std::unordered_map<std::uint64_t, EntryList> pointing_back;
};

std::uint64_t Link(std::int32_t from, std::int32_t to) noexcept {
  return std::uint64_t{static_cast<std::uint32_t>(from)} << 32U | static_cast<std::uint32_t>(to);
}

void Take(Halves& halves, const LDGRAccount& account,
          const std::shared_ptr<LDGRAccountEntry>& half) {
  const auto wanted = halves.by_number.find(half->GetNumber());
  if (wanted == halves.by_number.end()) return;
  if (wanted->second.size() < 2) wanted->second.push_back(half);
  if (half->IsTransfer() && half->GetTransferAccount() == account.GetNumber()) {
    halves.pointing_back[Link(half->GetNumber(), half->GetTransferEntry())].push_back(half);
  }
}

}  // namespace

std::vector<TransferLinks::Search> TransferLinks::FindOtherHalves(const LDGRAccount& account,
                                                                  const EntryList& entries) const {
  std::unordered_map<std::int32_t, Halves> by_account;
  for (const auto& entry : entries) {
    if (!entry->IsTransfer()) continue;
    by_account[entry->GetTransferAccount()].by_number[entry->GetTransferEntry()];
  }
  for (auto& [number, halves] : by_account) {
    const auto other = store_.AccountWithNumber(number);
    if (other == nullptr) continue;
    for (const auto& half : other->GetEntries()) Take(halves, account, half);
  }

  std::vector<Search> found;
  found.reserve(entries.size());
  for (const auto& entry : entries) {
    found.emplace_back();
    if (!entry->IsTransfer()) continue;
    const Halves& halves = by_account[entry->GetTransferAccount()];
    const auto is_other = [&entry](const auto& half) { return half != entry; };
    std::shared_ptr<LDGRAccountEntry> first;
    if (entry->GetTransferEntry() != kNotLinked) {
      const EntryList& alike = halves.by_number.at(entry->GetTransferEntry());
      const auto other = std::ranges::find_if(alike, is_other);
      if (other != alike.end()) first = *other;
    }
    EntryList pointing_back;
    const auto linked =
        halves.pointing_back.find(Link(entry->GetTransferEntry(), entry->GetNumber()));
    if (linked != halves.pointing_back.end()) {
      std::ranges::copy_if(linked->second, std::back_inserter(pointing_back), is_other);
    }
    found.back() = Choose(*entry, std::move(pointing_back), first);
  }
  return found;
}

void TransferLinks::UnlinkOtherHalves(Change& change, const LDGRAccount& account,
                                      const EntryList& entries) const {
  const auto halves = FindOtherHalves(account, entries);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (halves[i].half == nullptr) continue;
    auto& half =
        change.Edit(store_.AccountWithNumber(entries[i]->GetTransferAccount()), halves[i].half);
    half.SetTransferEntry(kNotLinked);
    half.SetTransferAccount(kNotLinked);
  }
}

void TransferLinks::RemoveOtherHalves(Change& change, const LDGRAccount& account,
                                      const EntryList& entries) const {
  const auto halves = FindOtherHalves(account, entries);
  std::map<std::int32_t, EntryList> removed;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (halves[i].half != nullptr) {
      removed[entries[i]->GetTransferAccount()].push_back(halves[i].half);
    }
  }
  for (const auto& [number, list] : removed) {
    change.Remove(store_.AccountWithNumber(number), list);
  }
}

}  // namespace tallyfold
