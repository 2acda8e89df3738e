#include "registers/register_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <numeric>
#include <span>
#include <string>
#include <utility>

#include "model/entry_walk.h"
#include "model/packed_sort.h"
#include "model/text.h"
#include "model/text_numbers.h"

namespace tallyfold {
namespace {

struct ColumnKey {
  std::string_view identifier;
  RegisterSortKey key;
};

constexpr std::array kColumnKeys = {
    ColumnKey{"check", RegisterSortKey::CheckNumber},
    ColumnKey{"date", RegisterSortKey::Date},
    ColumnKey{"type", RegisterSortKey::Type},
    ColumnKey{"description", RegisterSortKey::Description},
    ColumnKey{"amount", RegisterSortKey::Amount},
    ColumnKey{"cleared", RegisterSortKey::Cleared},
    ColumnKey{"toFrom", RegisterSortKey::ToFrom},
};

using Order = std::vector<std::uint32_t>;

Order OrderAsItIs(std::size_t count) {
  Order order(count);
  std::iota(order.begin(), order.end(), 0U);
  return order;
}

// --- Numbers ------------------------------------------------------------------------------------

Order OrderByKeys(std::vector<PackedKey>& keys, bool descending) {
  if (descending) {
    // The reversed comparison is the mirror of the plain one in every step.
    for (PackedKey& key : keys) key = {~key.high, ~key.low, key.index};
  }
  SortPacked(keys);
  Order order;
  order.reserve(keys.size());
  for (const PackedKey& key : keys) order.push_back(key.index);
  return order;
}

// `make_key` gives the two halves of an entry's key.
template <typename MakeKey>
Order OrderByKeys(const EntryList& entries, bool descending, MakeKey make_key) {
  std::vector<PackedKey> keys;
  keys.reserve(entries.size());
  WalkEntries(entries, [&](const LDGRAccountEntry& entry) {
    const auto [high, low] = make_key(entry);
    keys.push_back({high, low, static_cast<std::uint32_t>(keys.size())});
  });
  return OrderByKeys(keys, descending);
}

using Halves = std::pair<std::uint64_t, std::uint64_t>;

std::uint32_t CheckRank(const LDGRAccountEntry& entry) {
  return entry.IsCheck() ? 0 : 1;
}

// Check number, then entry number.
std::uint64_t Numbers(const LDGRAccountEntry& entry) {
  return Packed(entry.IsCheck() ? InOrder(entry.GetCheckNumber()) : 0, InOrder(entry.GetNumber()));
}

Halves NumberKey(const LDGRAccountEntry& entry) {
  return {InOrder(entry.GetNumber()), 0};
}

Halves CheckNumberKey(const LDGRAccountEntry& entry) {
  return {CheckRank(entry), Numbers(entry)};
}

Halves DateKey(const LDGRAccountEntry& entry) {
  return {Packed(InOrder(entry.GetDate()), CheckRank(entry)), Numbers(entry)};
}

Halves AmountKey(const LDGRAccountEntry& entry) {
  return {InOrder(entry.GetAmount()), InOrder(entry.GetNumber())};
}

Halves ClearedKey(const LDGRAccountEntry& entry) {
  return {entry.GetCleared() ? 1 : 0, InOrder(entry.GetNumber())};
}

// The place of an entry's type name among those of all entries, each looked up once.
class TypeRanks {
 public:
  explicit TypeRanks(const EntryList& entries) {
    for (const auto& entry : entries) {
      const auto [kind, is_new] = ranks_.try_emplace(KindOf(*entry), 0);
      if (is_new) names_.emplace_back(entry->TypeNameInCurrentAccount(), &kind->second);
    }
    std::sort(names_.begin(), names_.end(), [](const auto& a, const auto& b) {
      return CompareIgnoringCase(a.first, b.first) < 0;
    });
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (i > 0 && CompareIgnoringCase(names_[i - 1].first, names_[i].first) != 0) ++rank;
      *names_[i].second = rank;
    }
  }

  [[nodiscard]] std::uint32_t Of(const LDGRAccountEntry& entry) const {
    return ranks_.find(KindOf(entry))->second;
  }

 private:
  using Kind = std::pair<std::int32_t, bool>;
  static Kind KindOf(const LDGRAccountEntry& entry) {
    return {entry.GetType(), entry.IsTransfer()};
  }

  std::map<Kind, std::uint32_t> ranks_;
  std::vector<std::pair<std::string, std::uint32_t*>> names_;
};

Order OrderByType(const EntryList& entries, bool descending) {
  const TypeRanks ranks(entries);
  return OrderByKeys(entries, descending, [&ranks](const LDGRAccountEntry& entry) {
    return Halves{Packed(ranks.Of(entry), InOrder(entry.GetDate())), InOrder(entry.GetNumber())};
  });
}

// --- Texts --------------------------------------------------------------------------------------

using EntryText = const std::string& (LDGRAccountEntry::*)() const noexcept;

// The different ones among many texts, which must stay where they are.
class DifferentTexts {
 public:
  // The number of the text among the different ones, which are numbered as they appear.
  std::uint32_t NumberOf(std::string_view text) {
    const std::uint32_t number = numbers_.NumberOf(text);
    if (number == forms_.size()) {
      const std::size_t start = all_forms_.size();
      AppendOrderForm(all_forms_, text);
      forms_.push_back({start, all_forms_.size() - start});
    }
    return number;
  }

  // By number: the place of each among all, ignoring case. Texts that differ only in that share it.
  [[nodiscard]] std::vector<std::uint32_t> Ranks() const;

 private:
  struct Form {
    std::size_t start;
    std::size_t size;
  };

  [[nodiscard]] std::string_view FormOf(std::uint32_t number) const {
    return std::string_view(all_forms_).substr(forms_[number].start, forms_[number].size);
  }

  TextNumbers numbers_;
  std::vector<Form> forms_;  // by the number of the text
  std::string all_forms_;    // one behind another
};

// Eight bytes of a form, in order as a number; past its end as if there were zeros.
std::uint64_t EightBytes(std::string_view form, std::size_t start) {
  constexpr std::size_t kBytes = sizeof(std::uint64_t);
  std::uint64_t number = 0;
  if (start + kBytes <= form.size()) {
    for (std::size_t i = 0; i < kBytes; ++i) {
      number = number << 8U | static_cast<unsigned char>(form[start + i]);
    }
    return number;
  }
  for (std::size_t i = start; i < form.size(); ++i) {
    number |= std::uint64_t{static_cast<unsigned char>(form[i])}
              << (8 * (kBytes - 1 - (i - start)));
  }
  return number;
}

void SortByBytes(std::span<PackedKey> keys) {
  // Where the passes of the other sort do not pay; the order of equal keys does not matter.
  constexpr std::size_t kFewKeys = 256;
  if (keys.size() >= kFewKeys) return SortPacked(keys);
  std::sort(keys.begin(), keys.end(), [](const PackedKey& a, const PackedKey& b) {
    return a.high != b.high ? a.high < b.high : a.low < b.low;
  });
}

std::vector<std::uint32_t> DifferentTexts::Ranks() const {
  std::vector<PackedKey> keys(forms_.size());
  for (std::uint32_t number = 0; number < keys.size(); ++number) keys[number].index = number;

  // Sixteen bytes at a time; what is equal in them goes on with the next ones.
  struct Stretch {
    std::span<PackedKey> keys;
    std::size_t start;
  };
  std::vector<Stretch> stretches = {{keys, 0}};
  while (!stretches.empty()) {
    const auto [stretch, start] = stretches.back();
    stretches.pop_back();
    const std::size_t next_start = start + 2 * sizeof(std::uint64_t);
    for (PackedKey& key : stretch) {
      key.high = EightBytes(FormOf(key.index), start);
      key.low = EightBytes(FormOf(key.index), start + sizeof(std::uint64_t));
    }
    SortByBytes(stretch);
    for (auto key = stretch.begin(); key != stretch.end();) {
      const auto end = std::find_if(key, stretch.end(), [key](const PackedKey& other) {
        return other.high != key->high || other.low != key->low;
      });
      const std::span<PackedKey> equal(key, end);
      key = end;
      if (equal.size() == 1) continue;
      const auto size_of = [this](const PackedKey& each) { return FormOf(each.index).size(); };
      if (std::ranges::any_of(
              equal, [=](std::size_t size) { return size > next_start; }, size_of)) {
        stretches.push_back({equal, next_start});
      } else {
        std::ranges::sort(equal, {}, size_of);  // they differ in zeros at their ends
      }
    }
  }

  std::vector<std::uint32_t> ranks(keys.size());
  std::uint32_t rank = 0;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (i > 0 && FormOf(keys[i].index) != FormOf(keys[i - 1].index)) ++rank;
    ranks[keys[i].index] = rank;
  }
  return ranks;
}

// Registers say the same things again and again, so that far fewer texts are compared than entries.
Order OrderByText(const EntryList& entries, EntryText text, bool descending) {
  DifferentTexts texts;
  std::vector<PackedKey> keys;
  keys.reserve(entries.size());
  WalkEntryText(entries, text, [&](const LDGRAccountEntry& entry) {
    const auto index = static_cast<std::uint32_t>(keys.size());
    keys.push_back({texts.NumberOf((entry.*text)()), InOrder(entry.GetNumber()), index});
  });
  const std::vector<std::uint32_t> ranks = texts.Ranks();
  for (PackedKey& key : keys) key.high = ranks[key.high];
  return OrderByKeys(keys, descending);
}

}  // namespace

std::optional<RegisterSortKey> SortKeyOfColumn(std::string_view identifier) noexcept {
  const auto* const found = std::ranges::find(kColumnKeys, identifier, &ColumnKey::identifier);
  if (found == kColumnKeys.end()) return std::nullopt;
  return found->key;
}

Order OrderOfEntries(const EntryList& entries, const RegisterOrder& order) {
  const bool descending = order.descending;
  if (!order.key) return OrderByKeys(entries, descending, NumberKey);
  switch (*order.key) {
    case RegisterSortKey::CheckNumber:
      return OrderByKeys(entries, descending, CheckNumberKey);
    case RegisterSortKey::Date:
      return OrderByKeys(entries, descending, DateKey);
    case RegisterSortKey::Type:
      return OrderByType(entries, descending);
    case RegisterSortKey::Description:
      return OrderByText(entries, &LDGRAccountEntry::GetDescription, descending);
    case RegisterSortKey::Amount:
      return OrderByKeys(entries, descending, AmountKey);
    case RegisterSortKey::Cleared:
      return OrderByKeys(entries, descending, ClearedKey);
    case RegisterSortKey::ToFrom:
      return OrderByText(entries, &LDGRAccountEntry::GetToFrom, descending);
  }
  return OrderAsItIs(entries.size());
}

int CompareEntries(const LDGRAccountEntry& a, const LDGRAccountEntry& b,
                   const RegisterOrder& order) {
  const auto compare = [&](auto comparison) {
    const int result = (a.*comparison)(b);
    return order.descending ? -result : result;
  };
  if (!order.key) return compare(&LDGRAccountEntry::NumberIsGreaterThan);
  switch (*order.key) {
    case RegisterSortKey::CheckNumber:
      return compare(&LDGRAccountEntry::CheckNumberIsGreaterThan);
    case RegisterSortKey::Date:
      return compare(&LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan);
    case RegisterSortKey::Type:
      return compare(&LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan);
    case RegisterSortKey::Description:
      return compare(&LDGRAccountEntry::DescriptionIsGreaterThan);
    case RegisterSortKey::Amount:
      return compare(&LDGRAccountEntry::AmountIsGreaterThan);
    case RegisterSortKey::Cleared:
      return compare(&LDGRAccountEntry::ClearedIsGreaterThan);
    case RegisterSortKey::ToFrom:
      return compare(&LDGRAccountEntry::ToFromIsGreaterThan);
  }
  return 0;
}

}  // namespace tallyfold
