#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "app/desk.h"
#include "app/entries/entry_reveal.h"
#include "app/face/announcer.h"
#include "app/face/refresh.h"
#include "app/views/account_summary_tab.h"
#include "app/views/registers.h"
#include "filters/filter.h"
#include "filters/register_search.h"
#include "model/account.h"
#include "registers/entry_speaker.h"

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
  Tabs(Desk& desk, Registers& registers, RegisterSearch& search, AccountSummaryTab& summary,
       EntrySpeaker& speaker, EntryReveal& reveal, Refresh& refresh, Announcer& announcer) noexcept
      : desk_(desk),
        registers_(registers),
        search_(search),
        summary_(summary),
        speaker_(speaker),
        reveal_(reveal),
        refresh_(refresh),
        announcer_(announcer) {}
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
  // Gives the current register the selected account's filtered entries and sets up its filter.
  void FillCurrentRegister();

 private:
  void ShowFilter(const std::shared_ptr<LDGRFilter>& filter, std::int32_t type);

  Desk& desk_;
  Registers& registers_;
  RegisterSearch& search_;
  AccountSummaryTab& summary_;
  EntrySpeaker& speaker_;
  EntryReveal& reveal_;
  Refresh& refresh_;
  Announcer& announcer_;
  TabsState state_;
};

}  // namespace tallyfold
