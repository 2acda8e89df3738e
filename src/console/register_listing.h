#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "console/command.h"
#include "console/console.h"
#include "model/account_entry.h"

namespace tallyfold {
class LDGRAccount;
}

namespace tallyfold::console {

struct ListedEntry {
  std::shared_ptr<LDGRAccount> account;
  std::shared_ptr<LDGRAccountEntry> entry;
};

// The entries that `register` shows and that are exported as it shows them.
struct RegisterListing {
  std::vector<ListedEntry> rows;
  bool is_of_all_accounts = false;
  // Whether entries of these accounts are left out.
  bool is_part = false;
  // How many accounts are left out because they are locked.
  std::size_t locked = 0;
};

// The options that choose among entries.
[[nodiscard]] std::span<const Option> ListingOptions();

// What the filter passes in the selected account, or everything in all that are not locked, as the
// options choose and sort it. A column that is named to sort the selected account by is the one
// that its register is sorted by from here on.
[[nodiscard]] RegisterListing ListRegister(Console& console, const Arguments& arguments);

}  // namespace tallyfold::console
