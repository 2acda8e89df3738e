#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "app/face/front_end.h"
#include "app/face/refresh.h"
#include "filters/filter.h"
#include "filters/register_search.h"
#include "model/account.h"

namespace tallyfold {

// The tabs of the main window.
enum class Tab : std::uint8_t { Entry, Reconcile, Schedule, Summary };

// "entry", "reconcile", "schedule", "summary".
[[nodiscard]] std::string_view TabIdentifier(Tab tab) noexcept;
[[nodiscard]] std::optional<Tab> TabWithIdentifier(std::string_view identifier) noexcept;

struct TabsState {
  // Of the main tab view, and of the second one that follows it.
  Tab selected = Tab::Entry;
  Tab mirrored = Tab::Entry;
  // The marks of the menu items of the two registers.
  bool entry_item_is_checked = true;
  bool reconcile_item_is_checked = false;

  friend bool operator==(const TabsState&, const TabsState&) = default;
};

// Which tab is showing, and what entering each does.
class Tabs {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Null when no account is selected.
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> SelectedAccount() const = 0;
    virtual void CancelDelayedSearch() = 0;
    // The commands for registers act on that one from here on.
    virtual void SetCurrentRegister(RegisterKind kind) = 0;
    virtual void GiveCurrentRegister(EntryList entries) = 0;
    virtual void PopulateForFilter(const LDGRFilter* filter) = 0;
    virtual void PopulateForFilterType(std::int32_t type) = 0;
    virtual void ShowSummary(LDGRAccount* account) = 0;
    virtual void StopSpeech() = 0;
  };

  Tabs(Host& host, Refresh& refresh, FrontEnd& front_end) noexcept
      : host_(host), refresh_(refresh), front_end_(front_end) {}
  Tabs(const Tabs&) = delete;
  Tabs& operator=(const Tabs&) = delete;

  [[nodiscard]] const TabsState& State() const noexcept { return state_; }
  // The register of the tab that is showing.
  [[nodiscard]] RegisterKind ShownRegister() const noexcept;

  // The user chose a tab of the main tab view.
  void Select(Tab tab);
  // A tab view is about to show that tab. Only the tabs of the main window are entered; any other
  // identifier just ends speech.
  void willSelectTabViewItem(std::string_view identifier);
  // Select the tab and mark its menu item instead of the other one.
  void entry_MenuItem();
  void reconcile_MenuItem();

  void EntryTab_Enter();
  void ReconcileTab_Enter();
  void ScheduleTab_Enter();
  void AccountSummaryTab_Enter();

 private:
  void ShowFilter(const std::shared_ptr<LDGRFilter>& filter, std::int32_t type);

  Host& host_;
  Refresh& refresh_;
  FrontEnd& front_end_;
  TabsState state_;
};

}  // namespace tallyfold
