#include "exchange/qif_review.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "exchange/entry_type_index.h"
#include "exchange/qif_fields.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRAccountEntrySplit> SplitOf(const std::vector<QifSplitLine>& lines) {
  if (lines.empty() || lines.size() > kMostQifSplitLines) return nullptr;
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    split->SetAmount(LeadingAmount(lines[i].amount), i);
    split->SetDescription(lines[i].description, i);
    split->SetToFrom(lines[i].to_from, i);
    split->SetEnabled(true, i);
  }
  return split;
}

std::shared_ptr<LDGRQIFImportEntry> EntryOf(const QifEntry& read) {
  auto entry = std::make_shared<LDGRQIFImportEntry>();
  entry->SetDescription(read.description);
  entry->SetToFrom(read.to_from);
  entry->SetCleared(read.is_cleared);
  entry->SetDate(read.date.value_or(0));
  entry->SetAmount(read.amount.value_or(0.0));
  if (read.is_deposit) {
    entry->SetIsDeposit(true);
  } else {
    entry->SetIsDebit(true);
  }
  if (read.number) entry->SetCheckNumber(*read.number);
  entry->SetIsCheck(!read.is_deposit && entry->GetCheckNumber() > 0);
  if (auto split = SplitOf(read.splits)) {
    entry->SetSplit(std::move(split));
    entry->SetToFrom(LocalizedText("Split"));
  }
  return entry;
}

void SortByName(EntryTypeList& types) {
  std::stable_sort(types.begin(), types.end(),
                   [](const auto& a, const auto& b) { return a->NameIsGreaterThan(*b) < 0; });
}

}  // namespace

QifReview::QifReview(const QifResult& result, const QifEntryList& entries, LDGRAccount& account) {
  LongOperation operation(LongWork::Reviewing, entries.size() * 2);
  MakeTypes(result.types, account);
  MakeEntries(entries, account);
  MarkAll();
  Import_DoNotImportPotentialDuplicates(account);
  operation.Finish();
}

QifReview::QifReview(QifImportEntryList entries, LDGRAccount& account)
    : entries_(std::move(entries)) {
  LongOperation operation(LongWork::Reviewing, entries_.size());
  std::int32_t number = account.NextAvailableNumber();
  for (const auto& entry : entries_) {
    entry->SetNumber(++number);
    if (!entry->GetImport()) continue;
    ++marked_count_;
    entry->SetImportOrder(next_order_++);
  }
  Import_DoNotImportPotentialDuplicates(account);
  operation.Finish();
}

void QifReview::MakeTypes(const std::vector<QifType>& read, const LDGRAccount& account) {
  // A type that the file lists twice is made twice.
  const EntryTypeIndex known(account);
  std::int32_t number = account.NextAvailableTypeNumber();
  for (const QifType& type : read) {
    if (known.Find(type.name, type.is_deposit)) continue;
    auto made = std::make_shared<LDGRAccountEntryType>();
    made->SetName(type.name);
    made->SetIsDeposit(type.is_deposit);
    made->SetNumber(++number);
    types_.push_back(std::move(made));
  }
  SortByName(types_);
}

void QifReview::MakeEntries(const QifEntryList& read, LDGRAccount& account) {
  EntryTypeIndex new_types;
  for (const auto& type : types_) new_types.Add(type);
  const EntryTypeIndex account_types(account);
  entries_.reserve(read.size());
  std::int32_t number = account.NextAvailableNumber();
  for (const auto& each : read) {
    auto entry = EntryOf(*each);
    if (each->type) {
      auto type = new_types.Find(*each->type, each->is_deposit);
      if (!type) type = account_types.Find(*each->type, each->is_deposit);
      if (type) entry->SetType(type->GetNumber());
      entry->SetActualType(std::move(type));
    }
    entry->SetNumber(++number);
    entries_.push_back(std::move(entry));
    LongOperation::Count(LongWork::Reviewing);
  }
}

QifImportEntryList QifReview::entriesToImport() const {
  QifImportEntryList marked;
  marked.reserve(marked_count_);
  for (const auto& entry : entries_) {
    if (entry->GetImport()) marked.push_back(entry);
  }
  std::sort(marked.begin(), marked.end(),
            [](const auto& a, const auto& b) { return a->GetImportOrder() < b->GetImportOrder(); });
  return marked;
}

std::size_t QifReview::MarkedUndated() const noexcept {
  return static_cast<std::size_t>(
      std::count_if(entries_.begin(), entries_.end(),
                    [](const auto& each) { return each->GetImport() && each->GetDate() == 0; }));
}

double QifReview::Total() const noexcept {
  double total = 0.0;
  for (const auto& entry : entries_) {
    if (entry->GetImport()) total += entry->GetAmount();
  }
  return total;
}

void QifReview::SetMarked(const std::shared_ptr<LDGRQIFImportEntry>& entry, bool marked) {
  if (entry->GetImport() == marked) return;
  entry->SetImport(marked);
  if (!marked) {
    --marked_count_;
    return;
  }
  Free(*entry);
  ++marked_count_;
  entry->SetImportOrder(next_order_++);
}

void QifReview::Toggle(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  SetMarked(entry, !entry->GetImport());
}

void QifReview::MarkAll() {
  next_order_ = 0;
  for (const auto& entry : entries_) {
    Free(*entry);
    entry->SetImport(true);
    entry->SetImportOrder(next_order_++);
  }
  marked_count_ = entries_.size();
}

void QifReview::ToggleAll() {
  if (marked_count_ != entries_.size()) return MarkAll();
  for (const auto& entry : entries_) SetMarked(entry, false);
}

void QifReview::UnmarkUndated() {
  for (const auto& entry : entries_) {
    if (entry->GetDate() == 0) SetMarked(entry, false);
  }
}

void QifReview::Remove(const QifImportEntryList& entries) {
  const std::unordered_set<std::shared_ptr<LDGRQIFImportEntry>> gone(entries.begin(),
                                                                     entries.end());
  const auto count = std::erase_if(entries_, [&](const auto& each) {
    if (!gone.contains(each)) return false;
    Free(*each);
    SetMarked(each, false);
    return true;
  });
  if (count > 0) ForgetMatches();
}

// --- Matching -----------------------------------------------------------------------------------

std::shared_ptr<LDGRAccountEntry> QifReview::MatchFor(const LDGRQIFImportEntry& entry) const {
  if (entry.GetMatched() != nullptr) return entry.GetMatched();
  const auto match = MatchOf(entry);
  if (!match) return nullptr;
  if (!choice_) choice_.emplace(existing_);
  return choice_->Find(entry, match->entry);
}

EntryList QifReview::MatchesFor(const LDGRQIFImportEntry& entry) const {
  auto first = MatchFor(entry);
  if (first == nullptr) return {};
  EntryList all = choice_->AllFor(entry, kMostMatches);
  std::erase(all, first);
  all.insert(all.begin(), std::move(first));
  if (all.size() > kMostMatches) all.pop_back();
  return all;
}

bool QifReview::Match(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  auto found = MatchFor(*entry);
  if (found == nullptr) return false;
  if (entry->GetMatched() == nullptr) Take(entry, std::move(found));
  return true;
}

bool QifReview::MatchWith(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                          const std::shared_ptr<LDGRAccountEntry>& chosen) {
  const EntryList all = MatchesFor(*entry);
  if (std::find(all.begin(), all.end(), chosen) == all.end()) return false;
  Unmatch(entry);
  Take(entry, chosen);
  return true;
}

void QifReview::Take(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                     std::shared_ptr<LDGRAccountEntry> matched) {
  entry->SetWasMarked(entry->GetImport());
  SetMarked(entry, false);
  choice_->Take(matched.get());
  entry->SetMatched(std::move(matched));
  ++matched_count_;
}

void QifReview::Unmatch(const std::shared_ptr<LDGRQIFImportEntry>& entry) {
  if (entry->GetMatched() == nullptr) return;
  Free(*entry);
  if (!entry->WasMarked()) return;
  // In its old place among the others.
  entry->SetImport(true);
  ++marked_count_;
}

void QifReview::Free(LDGRQIFImportEntry& entry) {
  if (entry.GetMatched() == nullptr) return;
  choice_->Release(entry.GetMatched().get());
  entry.SetMatched(nullptr);
  --matched_count_;
}

void QifReview::Import_DoNotImportPotentialDuplicates(const LDGRAccount& account) {
  for (const auto& entry : entries_) Free(*entry);
  choice_.reset();
  existing_ = account.GetEntries();
  near_.reset();
  duplicates_.emplace(existing_, entries_);
  is_counted_ = false;
  for (const auto& entry : entries_) {
    if (duplicates_->Find(*entry)) SetMarked(entry, false);
    LongOperation::Count(LongWork::Reviewing);
  }
}

std::optional<QifMatch> QifReview::MatchOf(const LDGRQIFImportEntry& entry) const {
  if (!duplicates_) duplicates_.emplace(existing_, entries_);
  if (!is_counted_) duplicates_->CountImported(entries_);
  is_counted_ = true;
  if (auto match = duplicates_->Find(entry)) return match;
  if (!near_) near_.emplace(existing_);
  return near_->Find(entry);
}

void QifReview::Commit(Change& change, const std::shared_ptr<LDGRAccount>& account,
                       bool with_all_types) {
  LongOperation operation(LongWork::Importing, marked_count_);
  std::unordered_set<std::int32_t> used;
  EntryList added;
  added.reserve(marked_count_);
  for (const auto& entry : entries_) {
    const auto& matched = entry->GetMatched();
    if (matched == nullptr || matched->GetCleared()) continue;
    change.Edit(account, matched).SetCleared(true);
  }
  for (const auto& entry : entriesToImport()) {
    entry->SetNumber(change.NextNumber(account));
    used.insert(entry->GetType());
    added.push_back(LDGRAccountEntry::entryWithEntry(entry.get()));
    LongOperation::Count(LongWork::Importing);
  }
  change.Add(account, added);
  // With nothing marked all new types are added.
  const bool prune = !with_all_types && !used.empty();
  EntryTypeList types = account->GetTypes();
  const std::size_t before = types.size();
  for (const auto& type : types_) {
    if (!prune || used.contains(type->GetNumber())) types.push_back(type);
  }
  // Also sorts them.
  if (types.size() != before) change.EditTypes(account).SetTypes(std::move(types));
  operation.Finish();
}

}  // namespace tallyfold
