#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "exchange/match_choice.h"
#include "exchange/qif_duplicates.h"
#include "exchange/qif_entry.h"
#include "exchange/qif_import_entry.h"
#include "model/account.h"

namespace tallyfold {

class Change;

// The entries of an import between reading and committing. The account is only looked at until
// Commit().
class QifReview {
 public:
  // An empty review.
  QifReview() = default;
  // Entries for `account` made of what was read, all marked for import but those that the account
  // seems to hold already. `entries` is a list of `result`.
  QifReview(const QifResult& result, const QifEntryList& entries, LDGRAccount& account);
  // Of entries that another reader made, those not marked for import left so, and those unmarked
  // that the account seems to hold already. Their types are the account's own.
  QifReview(QifImportEntryList entries, LDGRAccount& account);

  [[nodiscard]] const QifImportEntryList& entries() const noexcept { return entries_; }
  // In the order in which they were marked.
  [[nodiscard]] QifImportEntryList entriesToImport() const;
  [[nodiscard]] std::size_t MarkedCount() const noexcept { return marked_count_; }
  // Of the marked entries those of day 0: they came without a date that could be read.
  [[nodiscard]] std::size_t MarkedUndated() const noexcept;
  // Types that the account does not have yet, by name.
  [[nodiscard]] const EntryTypeList& types() const noexcept { return types_; }
  // The sum of the marked entries.
  [[nodiscard]] double Total() const noexcept;

  // How many entries are matched: instead of one of them, that of the account which it repeats gets
  // the cleared mark.
  [[nodiscard]] std::size_t MatchedCount() const noexcept { return matched_count_; }

  // Marks an unmarked entry, unmarks a marked one. A matched entry that gets marked is matched no
  // longer.
  void Toggle(const std::shared_ptr<LDGRQIFImportEntry>& entry);
  void SetMarked(const std::shared_ptr<LDGRQIFImportEntry>& entry, bool marked);
  // Unmarks all when all are marked, else marks all in the order of the review.
  void ToggleAll();
  void MarkAll();
  // Unmarks every entry of day 0.
  void UnmarkUndated();
  // The entry of the account that Match() would take, or has taken; null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> MatchFor(const LDGRQIFImportEntry& entry) const;
  // What the entry can be matched with: that of MatchFor(), then all others of its amount within
  // four days that no entry of the review has, the nearest first. No more than so many.
  static constexpr std::size_t kMostMatches = 20;
  [[nodiscard]] EntryList MatchesFor(const LDGRQIFImportEntry& entry) const;
  // Matches the entry with what MatchOf() finds, or where another entry of the review has that,
  // with the nearest that is free; the entry is unmarked. False when there is none.
  bool Match(const std::shared_ptr<LDGRQIFImportEntry>& entry);
  // The same with `chosen`, whatever it was matched with before. False, and nothing has changed,
  // when that is none of MatchesFor().
  bool MatchWith(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                 const std::shared_ptr<LDGRAccountEntry>& chosen);
  // The entry gets back the mark that it had before. Nothing when it is not matched.
  void Unmatch(const std::shared_ptr<LDGRQIFImportEntry>& entry);

  // Takes them out of the review; those that are not in it are passed over.
  void Remove(const QifImportEntryList& entries);
  // Unmarks every entry that the account seems to hold already. None is matched any longer.
  void Import_DoNotImportPotentialDuplicates(const LDGRAccount& account);
  // An entry has been edited: matches are looked for again. No mark changes.
  void ForgetMatches() noexcept {
    duplicates_.reset();
    is_counted_ = false;
  }

  // The entry of the account that an entry repeats, else one that comes near it; none for none. As
  // the account was when the review was made. Of many, only the first after Remove() or
  // ForgetMatches() takes long.
  [[nodiscard]] std::optional<QifMatch> MatchOf(const LDGRQIFImportEntry& entry) const;

  // Adds copies of the marked entries, each with the account's next number, and the new types: all
  // of them when `with_all_types` or when nothing is marked, else those that marked entries use.
  // What entries are matched with gets its cleared mark and nothing else.
  void Commit(Change& change, const std::shared_ptr<LDGRAccount>& account, bool with_all_types);

 private:
  void Take(const std::shared_ptr<LDGRQIFImportEntry>& entry,
            std::shared_ptr<LDGRAccountEntry> matched);
  void Free(LDGRQIFImportEntry& entry);
  void MakeTypes(const std::vector<QifType>& read, const LDGRAccount& account);
  void MakeEntries(const QifEntryList& read, LDGRAccount& account);

  QifImportEntryList entries_;
  std::size_t marked_count_ = 0;
  std::size_t matched_count_ = 0;
  std::size_t next_order_ = 0;
  EntryTypeList types_;
  // Made when first asked for.
  mutable std::optional<QifDuplicates> duplicates_;
  mutable std::optional<QifNearMatches> near_;
  mutable std::optional<MatchChoice> choice_;
  mutable bool is_counted_ = false;
  EntryList existing_;
};

}  // namespace tallyfold
