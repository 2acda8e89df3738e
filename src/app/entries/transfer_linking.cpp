#include "app/entries/transfer_linking.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "app/entries/link_offers.h"
#include "ledger/change.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::string_view kImport = "Import";
constexpr std::size_t kMostCandidates = 20;

template <typename List>
void Take(std::unordered_set<const void*>& records, const List& list) {
  for (const auto& record : list) records.insert(record.get());
}

}  // namespace

TransferLinking::TransferLinking(Desk& desk, Ledger& ledger, const SheetSlot& sheets,
                                 Refresh& refresh, Announcer& announcer)
    : desk_(desk), ledger_(ledger), sheets_(sheets), refresh_(refresh), announcer_(announcer) {
  ledger_.AddListener(*this);
}

TransferLinking::~TransferLinking() {
  ledger_.RemoveListener(*this);
}

void TransferLinking::Forget() {
  state_ = {};
  asked_ = {};
  candidates_.clear();
  announcer_.Changed(Area::TransferLinking);
}

// --- The selected entry -------------------------------------------------------------------------

const std::vector<TransferPair>& TransferLinking::Candidates() const {
  const auto account = desk_.SelectedAccount();
  Asked asked{account != nullptr ? desk_.SelectedEntry() : nullptr, {}};
  if (asked.entry == nullptr) {
    asked_ = {};
    candidates_.clear();
    return candidates_;
  }
  for (const auto& each : desk_.accounts()) {
    asked.accounts.push_back(each->Revision());
    asked.accounts.push_back(each->IsLocked() ? 1 : 0);
  }
  if (asked == asked_) return candidates_;
  candidates_ = PairsFor(desk_.accounts(), account, asked.entry, kMostCandidates);
  asked_ = std::move(asked);
  return candidates_;
}

bool TransferLinking::CanLink() const {
  const auto& pairs = Candidates();
  return pairs.size() == 1 || (pairs.size() > 1 && DaysBetween(pairs[0]) < DaysBetween(pairs[1]));
}

bool TransferLinking::Entry_Link() {
  if (!CanLink()) return false;
  const TransferPair pair = Candidates().front();
  return Link(pair.other_account, pair.other);
}

bool TransferLinking::Link(const std::shared_ptr<LDGRAccount>& other_account,
                           const std::shared_ptr<LDGRAccountEntry>& other) {
  const Announcer::Operation operation(announcer_);
  const TransferPair pair{desk_.SelectedAccount(), desk_.SelectedEntry(), other_account, other};
  if (pair.account == nullptr || pair.entry == nullptr || other_account == nullptr ||
      other == nullptr || !sheets_.IsFree()) {
    return false;
  }
  announcer_.Changed(Area::TransferLinking);
  state_.note.clear();
  state_.problem = ProblemOfPair(desk_.accounts(), pair);
  if (state_.problem.empty() &&
      std::ranges::find(other_account->GetEntries(), other) == other_account->GetEntries().end()) {
    state_.problem = LocalizedText("The entry has been removed.");
  }
  return state_.problem.empty() && LinkAll({pair});
}

bool TransferLinking::LinkAll(const std::vector<TransferPair>& pairs) {
  Change change(ledger_, Plural("Link as Transfer", "Link as Transfers", pairs.size()),
                pairs.front().account);
  std::vector<std::string> dropped_types;
  for (const TransferPair& pair : pairs) {
    for (std::string& type : LinkPair(change, pair)) {
      if (std::ranges::find(dropped_types, type) == dropped_types.end()) {
        dropped_types.push_back(std::move(type));
      }
    }
  }
  change.Close();
  if (!dropped_types.empty()) {
    state_.note =
        Message("A transfer has no type: {1} gave way.", {StringsToEnglishList(dropped_types)});
  }
  if (pairs.front().account == desk_.SelectedAccount()) {
    refresh_.EntrySaved(pairs.back().entry, false);
  } else {
    refresh_.AccountsList_Redraw();
  }
  return true;
}

// --- After an import ----------------------------------------------------------------------------

void TransferLinking::LedgerChanged(const ChangeSet& set) {
  DropChanged(set);
  if (set.cause != ChangeSet::Cause::Change || set.name != kImport || set.accounts.empty()) return;
  const AccountChanges& changes = set.accounts.front();
  state_.offers = CertainPairs(desk_.accounts(), changes.account, changes.entries.inserted);
  OffersChanged();
}

void TransferLinking::DropChanged(const ChangeSet& set) {
  if (state_.offers.empty()) return;
  std::unordered_set<const void*> changed;
  Take(changed, set.accounts_removed);
  for (const AccountChanges& changes : set.accounts) {
    Take(changed, changes.entries.removed);
    Take(changed, changes.entries.changed);
  }
  std::erase_if(state_.offers, [&changed](const TransferPair& pair) {
    return changed.contains(pair.account.get()) || changed.contains(pair.entry.get()) ||
           changed.contains(pair.other_account.get()) || changed.contains(pair.other.get());
  });
  OffersChanged();
}

void TransferLinking::OffersChanged() {
  const std::size_t count = state_.offers.size();
  state_.offer_text =
      count == 0 ? ""
                 : Message(Plural("{1} imported entry is half of a transfer whose other half is in "
                                  "another account.",
                                  "{1} imported entries are halves of transfers whose other halves "
                                  "are in other accounts.",
                                  count),
                           {std::to_string(count)});
  announcer_.Changed(Area::TransferLinking);
}

bool TransferLinking::LinkOffered() {
  const Announcer::Operation operation(announcer_);
  if (state_.offers.empty() || !desk_.IsUnlocked() || !sheets_.IsFree()) return false;
  announcer_.Changed(Area::TransferLinking);
  state_.note.clear();
  for (const TransferPair& pair : state_.offers) {
    state_.problem = ProblemOfPair(desk_.accounts(), pair);
    if (!state_.problem.empty()) return false;
  }
  // The change takes the offers away.
  const std::vector<TransferPair> pairs = state_.offers;
  return LinkAll(pairs);
}

void TransferLinking::DropOffers() {
  if (state_.offers.empty()) return;
  state_.offers.clear();
  OffersChanged();
}

}  // namespace tallyfold
