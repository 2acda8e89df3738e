#include "registers/register_order.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <numeric>
#include <string>
#include <utility>

#include "model/packed_sort.h"
#include "model/text.h"

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

// `make_key` gives the two halves of an entry's key.
template <typename MakeKey>
Order OrderByKeys(const EntryList& entries, bool descending, MakeKey make_key) {
  std::vector<PackedKey> keys;
  keys.reserve(entries.size());
  for (const auto& entry : entries) {
    const auto [high, low] = make_key(*entry);
    // The reversed comparison is the mirror of the plain one in every step.
    const auto index = static_cast<std::uint32_t>(keys.size());
    keys.push_back(descending ? PackedKey{~high, ~low, index} : PackedKey{high, low, index});
  }
  SortPacked(keys);
  Order order;
  order.reserve(keys.size());
  for (const PackedKey& key : keys) order.push_back(key.index);
  return order;
}

using Halves = std::pair<std::uint64_t, std::uint64_t>;

std::uint32_t CheckRank(const LDGRAccountEntry& entry) {
  return entry.IsCheck() ? 0 : 1;
}

// Check number, then entry number.
std::uint64_t Numbers(const LDGRAccountEntry& entry) {
  return Packed(entry.IsCheck() ? InOrder(entry.GetCheckNumber()) : 0, InOrder(entry.GetNumber()));
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
      if (is_new) names_.emplace_back(entry->TypeNameInOrders(), &kind->second);
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

struct TextKey {
  std::uint64_t beginning;  // the first eight bytes of the form, in order as a number
  std::size_t start;        // where the form begins among all forms, and how long it is
  std::uint32_t length;
  std::int32_t number;
  std::uint32_t index;
};

std::uint64_t Beginning(std::string_view form) {
  std::uint64_t beginning = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    const auto byte = i < form.size() ? static_cast<unsigned char>(form[i]) : 0U;
    beginning = beginning << 8U | byte;
  }
  return beginning;
}

Order OrderByText(const EntryList& entries, EntryText text, bool descending) {
  std::string forms;
  std::vector<TextKey> keys;
  keys.reserve(entries.size());
  for (const auto& entry : entries) {
    const std::size_t start = forms.size();
    AppendOrderForm(forms, ((*entry).*text)());
    const std::string_view form = std::string_view(forms).substr(start);
    keys.push_back({Beginning(form), start, static_cast<std::uint32_t>(form.size()),
                    entry->GetNumber(), static_cast<std::uint32_t>(keys.size())});
  }
  const auto form_of = [&forms](const TextKey& key) {
    return std::string_view(forms).substr(key.start, key.length);
  };
  const auto comes_before = [&](const TextKey& a, const TextKey& b) {
    if (a.beginning != b.beginning) return a.beginning < b.beginning;
    if (const int order = form_of(a).compare(form_of(b)); order != 0) return order < 0;
    return a.number < b.number;
  };
  std::stable_sort(keys.begin(), keys.end(), [&](const TextKey& a, const TextKey& b) {
    return descending ? comes_before(b, a) : comes_before(a, b);
  });
  Order order;
  order.reserve(keys.size());
  for (const TextKey& key : keys) order.push_back(key.index);
  return order;
}

}  // namespace

std::optional<RegisterSortKey> SortKeyOfColumn(std::string_view identifier) noexcept {
  const auto* const found = std::ranges::find(kColumnKeys, identifier, &ColumnKey::identifier);
  if (found == kColumnKeys.end()) return std::nullopt;
  return found->key;
}

Order OrderOfEntries(const EntryList& entries, RegisterSortKey key, bool descending) {
  switch (key) {
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

}  // namespace tallyfold
