#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "filters/filter.h"
#include "filters/filter_types.h"
#include "model/account_entry.h"
#include "platform/run_loop.h"

namespace tallyfold {

// What the main window shows: a register, or something else.
enum class RegisterKind : std::uint8_t { Entry, Reconcile, Other };

// The search field of a register and the label beside it.
struct SearchFieldState {
  // Typed by the user, or set by the program.
  std::string text;
  // Decided by the program.
  bool is_enabled = false;
  std::string label;
  bool label_is_enabled = false;

  friend bool operator==(const SearchFieldState&, const SearchFieldState&) = default;
};

struct RegisterSearchState {
  SearchFieldState entry;
  SearchFieldState reconcile;
  // The filter type marked in the filter menu, see MarkOfFilterMenuItem().
  std::int32_t menu_type = filter_type::kNone;
};

// The search field and the filter menu of the registers. Both change what the selected account
// (see model/current_account.h) stores as the filter of the register that is showing.
class RegisterSearch {
 public:
  class Host {
   public:
    virtual ~Host() = default;

    [[nodiscard]] virtual RegisterKind ShownRegister() const = 0;
    // Gives the register that is showing the selected account's filtered entries again.
    virtual void ReloadShownRegister() = 0;
    virtual void UpdateEntryDependentButtons() = 0;
    virtual void UpdateBalanceField() = 0;
    virtual void StopSpeech() = 0;
    // Runs the steps, which change several things, as one operation.
    virtual void AsOne(const std::function<void()>& steps) = 0;
    // The search field of the register that is showing takes the keyboard focus.
    virtual void FocusSearchField() = 0;
    virtual void SearchStateChanged() = 0;
  };

  // Both must outlive the component.
  RegisterSearch(RunLoop& loop, Host& host) noexcept : host_(host), search_(loop) {}

  [[nodiscard]] const RegisterSearchState& State() const noexcept { return state_; }

  // The text in the field has changed: it is stored at once and searched for half a second after
  // the last change. None, and no selected account, do nothing.
  void Search_Field(std::optional<std::string_view> text);
  // Filters the register that is showing by what is stored.
  void Search();
  // Empties the search; a filter that takes no text gives way to the general one.
  void Search_Cancel();
  // Drops a search that has been typed but not yet run; the stored text stays.
  void CancelDelayedSearch() noexcept { search_.Cancel(); }

  // An item of the filter menu has been chosen.
  void Filter_Menu(std::int32_t tag) { Filter_Select(tag); }
  // Makes `type` the filter of the register that is showing, without a text.
  void Filter_Select(std::int32_t type);

  // Marks the menu's item of that type and no other.
  void PopulateForFilterType(std::int32_t type);
  // No account is selected: empties and disables both fields, marks nothing in the menu and drops a
  // search that has not run.
  void Clear();
  // Sets up the field and label of the register that is showing; null empties and disables them.
  void PopulateForFilter(const LDGRFilter* filter);

 private:
  [[nodiscard]] SearchFieldState* ShownField() noexcept;

  Host& host_;
  DelayedCall search_;
  RegisterSearchState state_;
};

}  // namespace tallyfold
