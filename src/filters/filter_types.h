#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "filters/date_ranges.h"

namespace tallyfold {

// How the filter of a register is made. The numbers are stored with accounts and are the tags of
// the filter menu's items.
namespace filter_type {
inline constexpr std::int32_t kGeneral = 0;
inline constexpr std::int32_t kThroughToday = 20;
// No filter at all: no item of the menu is marked.
inline constexpr std::int32_t kNone = -9999;
}  // namespace filter_type

struct FilterType {
  enum class Rule : std::uint8_t {
    SearchText,    // the typed text, in the list `category`
    ThroughToday,  // from the account's first entry to today
    Days,          // the stretch of days `mnemonic`
    Mark,          // a cleared or tax-deductible mark, in the list `category`
  };

  std::int32_t number;
  std::string_view name;  // English key
  Rule rule;
  std::string_view category = {};
  DateMnemonic mnemonic = DateMnemonic::Today;
  bool mark = false;
};

// All filter types, in the order of their numbers.
[[nodiscard]] std::span<const FilterType> FilterTypes() noexcept;
// Null for a number that is none.
[[nodiscard]] const FilterType* FilterTypeWithNumber(std::int32_t number) noexcept;

enum class MenuMark : std::uint8_t { Off, On, Mixed };

// An item of the filter menu: a filter type, a submenu of them, or a line between groups.
struct FilterMenuItem {
  std::int32_t tag = 0;    // the filter type; -2 and -3 for the two submenus
  std::string_view title;  // English key
  bool is_separator = false;
  std::span<const FilterMenuItem> submenu = {};
};

// The menu from top to bottom.
[[nodiscard]] std::span<const FilterMenuItem> FilterMenu() noexcept;
// A check mark where the item stands for the type; a mixed one where an item of its submenu does.
[[nodiscard]] MenuMark MarkOfFilterMenuItem(const FilterMenuItem& item, std::int32_t type) noexcept;

}  // namespace tallyfold
