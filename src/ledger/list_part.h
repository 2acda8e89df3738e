#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

#include "ledger/change_set_builder.h"
#include "ledger/part_visitor.h"
#include "ledger/record_traits.h"
#include "ledger/step_part.h"

namespace tallyfold {

// Records that came into or left a list, one or many, each with the place it has in the list that
// holds them all. Whichever way, and however many, the list is passed over once.
template <typename Record>
class ListPart final : public StepPart {
 public:
  using Traits = RecordTraits<Record>;
  struct Row {
    std::size_t place = 0;
    std::shared_ptr<Record> record;
  };

  // `inserts` says what the part does on the way forward.
  ListPart(std::shared_ptr<LDGRAccount> account, bool inserts)
      : account_(std::move(account)), inserts_(inserts) {}

  [[nodiscard]] bool Inserts() const noexcept { return inserts_; }
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& account() const noexcept { return account_; }
  // By place, ascending.
  [[nodiscard]] const std::vector<Row>& rows() const noexcept { return rows_; }
  [[nodiscard]] std::vector<Row>& rows() noexcept { return rows_; }

  void MakeRoom(Way way) override {
    if (!InsertsOn(way)) return;
    auto& list = Traits::ListOf(*account_);
    const std::size_t needed = list.size() + rows_.size();
    if (needed > list.capacity()) list.reserve(std::max(needed, list.capacity() * 2));
  }

  void Exchange(Way way) noexcept override {
    if (InsertsOn(way)) {
      Insert();
    } else {
      Erase();
    }
  }

  void Tell(ChangeSetBuilder& builder, Way way) const override {
    for (const Row& row : rows_) {
      if (InsertsOn(way)) {
        builder.Came(account_, row.record);
      } else {
        builder.Went(account_, row.record);
      }
    }
  }

  void Accept(PartVisitor& visitor, Way way) const override {
    visitor.Visit(*this, InsertsOn(way));
  }

  [[nodiscard]] std::size_t MemorySize() const override {
    std::size_t size = sizeof(*this) + rows_.capacity() * sizeof(Row);
    for (const Row& row : rows_) size += Traits::MemorySize(*row.record);
    return size;
  }

 private:
  [[nodiscard]] bool InsertsOn(Way way) const noexcept { return inserts_ == (way == Way::Forward); }

  // From the end, so that each record that stays is moved once.
  void Insert() noexcept {
    auto& list = Traits::ListOf(*account_);
    std::size_t old = list.size();
    std::size_t next = rows_.size();
    std::size_t target = old + next;
    list.resize(target);
    while (next > 0) {
      --target;
      if (rows_[next - 1].place >= target || old == 0) {
        list[target] = rows_[--next].record;
      } else {
        list[target] = std::move(list[--old]);
      }
    }
    for (const Row& row : rows_) Traits::SetOwner(*row.record, account_.get());
  }

  void Erase() noexcept {
    auto& list = Traits::ListOf(*account_);
    const bool in_place = std::all_of(rows_.begin(), rows_.end(), [&list](const Row& row) {
      return row.place < list.size() && list[row.place] == row.record;
    });
    if (in_place && !rows_.empty()) {
      std::size_t kept = rows_.front().place;
      auto row = rows_.begin();
      for (std::size_t from = kept; from < list.size(); ++from) {
        if (row != rows_.end() && row->place == from) {
          ++row;
        } else {
          list[kept++] = std::move(list[from]);
        }
      }
      list.resize(kept);
    } else {
      for (const Row& row : rows_) {
        const auto found = std::find(list.begin(), list.end(), row.record);
        if (found != list.end()) list.erase(found);
      }
    }
    for (const Row& row : rows_) Traits::SetOwner(*row.record, nullptr);
    SelectAgain();
  }

  void SelectAgain() noexcept {
    if constexpr (std::is_same_v<Record, LDGRAccountSummary>) {
      AccountLists::SelectSummaryOfList(*account_);
    }
  }

  std::shared_ptr<LDGRAccount> account_;
  bool inserts_;
  std::vector<Row> rows_;
};

}  // namespace tallyfold
