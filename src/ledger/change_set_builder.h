#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ledger/change_set.h"
#include "ledger/record_traits.h"

namespace tallyfold {

// Works out from the parts of a change, told in the order in which they are carried out, what comes
// of them in all. Linear in what is told.
class ChangeSetBuilder {
 public:
  // `set` has cause, name and accounts of the order already.
  explicit ChangeSetBuilder(ChangeSet set = {}) : set_(std::move(set)) {}

  template <typename Record>
  void Came(const std::shared_ptr<LDGRAccount>& account, const std::shared_ptr<Record>& record) {
    Of(account).template Fates<Record>().Note(record, Event::Came);
  }
  template <typename Record>
  void Went(const std::shared_ptr<LDGRAccount>& account, const std::shared_ptr<Record>& record) {
    Of(account).template Fates<Record>().Note(record, Event::Went);
  }
  // No kinds: nothing changed after all.
  template <typename Record>
  void Changed(const std::shared_ptr<LDGRAccount>& account, const std::shared_ptr<Record>& record,
               ChangeKinds kinds) {
    if (kinds.IsEmpty()) return;
    Account& of = Of(account);
    of.template Fates<Record>().Note(record, Event::Changed);
    of.changes.kinds |= kinds;
  }
  void Changed(const std::shared_ptr<LDGRAccount>& account, ChangeKinds kinds) {
    if (!kinds.IsEmpty()) Of(account).changes.kinds |= kinds;
  }
  void Counted(const std::shared_ptr<LDGRAccount>& account) { Of(account).changes.counted = true; }
  void AccountCame(const std::shared_ptr<LDGRAccount>& account);
  void AccountWent(const std::shared_ptr<LDGRAccount>& account);
  void PasswordChanged() { set_.password = true; }

  [[nodiscard]] ChangeSet Take();

 private:
  enum class Event : std::uint8_t { Came, Went, Changed };

  // What became of the records of one list.
  template <typename Record>
  class RecordFates {
   public:
    void Note(const std::shared_ptr<Record>& record, Event event) {
      const auto [found, is_new] = places_.try_emplace(record.get(), fates_.size());
      if (is_new) fates_.push_back({record, event != Event::Came});
      Fate& fate = fates_[found->second];
      fate.is_there = event != Event::Went;
      fate.has_moved = fate.has_moved || event != Event::Changed;
    }
    // The kinds of those that came, went or changed places are added to `kinds`.
    void MoveTo(RecordChanges<std::vector<std::shared_ptr<Record>>>& changes, ChangeKinds& kinds) {
      for (Fate& fate : fates_) {
        if (!fate.was_there && !fate.is_there) continue;
        auto& list = !fate.was_there  ? changes.inserted
                     : !fate.is_there ? changes.removed
                                      : changes.changed;
        if (fate.has_moved) kinds |= RecordTraits<Record>::kKinds;
        list.push_back(std::move(fate.record));
      }
    }

   private:
    struct Fate {
      std::shared_ptr<Record> record;
      bool was_there = false;
      bool is_there = false;
      bool has_moved = false;
    };
    std::vector<Fate> fates_;
    std::unordered_map<const Record*, std::size_t> places_;
  };

  struct Account {
    AccountChanges changes;
    RecordFates<LDGRAccountEntry> entries;
    RecordFates<LDGRAccountSchedule> schedules;
    RecordFates<LDGRAccountSummary> summaries;

    template <typename Record>
    RecordFates<Record>& Fates() {
      if constexpr (std::is_same_v<Record, LDGRAccountEntry>) {
        return entries;
      } else if constexpr (std::is_same_v<Record, LDGRAccountSchedule>) {
        return schedules;
      } else {
        return summaries;
      }
    }
  };

  Account& Of(const std::shared_ptr<LDGRAccount>& account);

  ChangeSet set_;
  std::vector<std::unique_ptr<Account>> accounts_;
  // Accounts that came and went again.
  AccountList never_there_;
};

}  // namespace tallyfold
