#include "app/views/entry_find.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "model/amount_input.h"
#include "model/amounts.h"
#include "model/entry_split.h"
#include "model/entry_walk.h"
#include "model/text.h"
#include "registers/register_order.h"

namespace tallyfold {
namespace {

// What is looked for, in each of the meanings the text may have.
class Sought {
 public:
  explicit Sought(std::string_view text) : needle_(text), amount_(ParsePlainOrUsersAmount(text)) {
    if (amount_) amount_ = std::fabs(RoundedAmount(*amount_));
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && rest == end) check_number_ = number;
  }

  [[nodiscard]] bool empty() const noexcept { return needle_.empty(); }
  [[nodiscard]] bool OccursIn(std::string_view text) const noexcept {
    return needle_.OccursIn(text);
  }
  [[nodiscard]] bool IsIn(const LDGRAccountEntry& entry) const {
    return OccursIn(entry.GetDescription()) || OccursIn(entry.GetToFrom()) ||
           OccursIn(entry.GetNotes()) || IsAmount(entry.GetAmount()) ||
           (entry.IsCheck() && check_number_ == entry.GetCheckNumber()) ||
           (entry.GetSplit() != nullptr && IsIn(*entry.GetSplit()));
  }

 private:
  [[nodiscard]] bool IsAmount(double amount) const noexcept {
    // To round takes its time, and few amounts come near.
    return amount_ && std::fabs(std::fabs(amount) - *amount_) < 0.01 &&
           std::fabs(RoundedAmount(amount)) == *amount_;
  }
  [[nodiscard]] bool IsIn(const LDGRAccountEntrySplit& split) const {
    for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
      const double amount = split.GetAmount(line);
      if (OccursIn(split.GetDescription(line)) || OccursIn(split.GetToFrom(line)) ||
          (amount != 0.0 && IsAmount(amount))) {
        return true;
      }
    }
    return false;
  }

  CaselessNeedle needle_;
  std::optional<double> amount_;
  std::optional<std::int32_t> check_number_;
};

std::unordered_set<std::int32_t> TypesWith(const Sought& sought, const LDGRAccount& account) {
  std::unordered_set<std::int32_t> types;
  for (const auto* list : {&account.GetTypes(), &account.GetInactiveTypes()}) {
    for (const auto& type : *list) {
      if (sought.OccursIn(type->GetName())) types.insert(type->GetNumber());
    }
  }
  return types;
}

EntryList FoundIn(const LDGRAccount& account, const Sought& sought) {
  const auto types = TypesWith(sought, account);
  EntryList found;
  std::size_t row = 0;
  const EntryList& entries = account.GetEntries();
  WalkEntryTexts(entries, [&](const LDGRAccountEntry& entry) {
    const bool has_type = !types.empty() && !entry.IsTransfer() && types.contains(entry.GetType());
    if (has_type || sought.IsIn(entry)) found.push_back(entries[row]);
    ++row;
  });
  return found;
}

}  // namespace

const EntryFindState& EntryFind::State() {
  if (!state_.text.empty() && accounts_ != Accounts()) Search();
  return state_;
}

void EntryFind::Open() {
  if (!desk_.IsUnlocked() || !sheets_.IsFree()) return;
  state_.is_open = true;
  announcer_.Changed(Area::EntryFind);
}

void EntryFind::Close() {
  if (!state_.is_open) return;
  state_.is_open = false;
  announcer_.Changed(Area::EntryFind);
}

void EntryFind::Forget() {
  state_ = {};
  accounts_.clear();
  announcer_.Changed(Area::EntryFind);
}

void EntryFind::Find(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  state_.text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  Search();
  announcer_.Changed(Area::EntryFind);
}

void EntryFind::Search() {
  state_.rows.clear();
  state_.locked = 0;
  accounts_ = Accounts();
  const Sought sought(state_.text);
  if (sought.empty() || !desk_.IsUnlocked()) return;
  for (const auto& account : desk_.accounts()) {
    if (account->IsLocked()) {
      ++state_.locked;
      continue;
    }
    const EntryList found = FoundIn(*account, sought);
    for (const std::uint32_t index : OrderOfEntries(found, RegisterOrder())) {
      state_.rows.push_back({account, found[index]});
    }
  }
}

std::vector<std::uint64_t> EntryFind::Accounts() const {
  std::vector<std::uint64_t> accounts = {desk_.IsUnlocked() ? std::uint64_t{1} : 0};
  for (const auto& account : desk_.accounts()) {
    accounts.push_back(account->Revision());
    accounts.push_back(account->IsLocked() ? 1 : 0);
  }
  return accounts;
}

bool EntryFind::Show(std::size_t row) {
  const auto& rows = State().rows;
  if (row >= rows.size()) return false;
  const FoundEntry found = rows[row];
  return reveal_.Show(found.account, found.entry);
}

}  // namespace tallyfold
