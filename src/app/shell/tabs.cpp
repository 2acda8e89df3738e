#include "app/shell/tabs.h"

#include <array>
#include <cstddef>

#include "filters/filter_types.h"

namespace tallyfold {
namespace {

constexpr std::array<std::string_view, 4> kIdentifiers = {"entry", "reconcile", "schedule",
                                                          "summary"};

}  // namespace

std::string_view TabIdentifier(Tab tab) noexcept {
  return kIdentifiers[static_cast<std::size_t>(tab)];
}

std::optional<Tab> TabWithIdentifier(std::string_view identifier) noexcept {
  for (std::size_t i = 0; i < kIdentifiers.size(); ++i) {
    if (kIdentifiers[i] == identifier) return static_cast<Tab>(i);
  }
  return std::nullopt;
}

RegisterKind Tabs::ShownRegister() const noexcept {
  switch (state_.mirrored) {
    case Tab::Entry:
      return RegisterKind::Entry;
    case Tab::Reconcile:
      return RegisterKind::Reconcile;
    default:
      return RegisterKind::Other;
  }
}

void Tabs::Select(Tab tab) {
  const Announcer::Operation operation(announcer_);
  if (state_.selected == tab) return;
  willSelectTabViewItem(TabIdentifier(tab));
  state_.selected = tab;
  announcer_.Changed(Area::Tabs);
}

void Tabs::willSelectTabViewItem(std::string_view identifier) {
  const Announcer::Operation operation(announcer_);
  if (const auto tab = TabWithIdentifier(identifier)) {
    // What the enter operations set up belongs to the register that is showing from here on.
    state_.mirrored = *tab;
    switch (*tab) {
      case Tab::Entry:
        EntryTab_Enter();
        break;
      case Tab::Reconcile:
        ReconcileTab_Enter();
        break;
      case Tab::Schedule:
        ScheduleTab_Enter();
        break;
      case Tab::Summary:
        AccountSummaryTab_Enter();
        break;
    }
  }
  speaker_.StopSpeech();
}

void Tabs::entry_MenuItem() {
  const Announcer::Operation operation(announcer_);
  Select(Tab::Entry);
  state_.entry_item_is_checked = true;
  state_.reconcile_item_is_checked = false;
  announcer_.Changed(Area::Tabs);
}

void Tabs::reconcile_MenuItem() {
  const Announcer::Operation operation(announcer_);
  Select(Tab::Reconcile);
  state_.entry_item_is_checked = false;
  state_.reconcile_item_is_checked = true;
  announcer_.Changed(Area::Tabs);
}

void Tabs::EntryTab_Enter() {
  const Announcer::Operation operation(announcer_);
  search_.CancelDelayedSearch();
  refresh_.AccountBalance_Field_Update();
  registers_.SetCurrent(RegisterKind::Entry);
  FillCurrentRegister();
}

void Tabs::ReconcileTab_Enter() {
  const Announcer::Operation operation(announcer_);
  search_.CancelDelayedSearch();
  refresh_.ReconcileTab_UpdateBalances();
  registers_.SetCurrent(RegisterKind::Reconcile);
  FillCurrentRegister();
}

void Tabs::FillCurrentRegister() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  const bool is_reconcile = registers_.CurrentKind() == RegisterKind::Reconcile;
  if (account == nullptr) {
    ShowFilter(nullptr, filter_type::kNone);
  } else {
    reveal_.Forget();
    registers_.Reload(registers_.CurrentKind());
    if (is_reconcile) {
      ShowFilter(account->reconcileFilter(), account->reconcileFilterType());
    } else {
      ShowFilter(account->entryFilter(), account->entryFilterType());
    }
  }
}

void Tabs::ShowFilter(const std::shared_ptr<LDGRFilter>& filter, std::int32_t type) {
  search_.PopulateForFilter(filter.get());
  search_.PopulateForFilterType(type);
}

void Tabs::ScheduleTab_Enter() {
  refresh_.SchedulesChanged();
}

void Tabs::AccountSummaryTab_Enter() {
  summary_.Show();
}

}  // namespace tallyfold
