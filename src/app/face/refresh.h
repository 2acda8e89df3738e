#pragma once

#include <memory>

#include "app/face/announcer.h"
#include "app/face/front_end.h"
#include "model/account_entry.h"

namespace tallyfold {

// What is brought up to date after a change of entries: the one place that knows it all, so that
// no operation forgets a part.
class Refresh {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Whether a saved entry is filtered again at once.
    [[nodiscard]] virtual bool LiveUpdatingFilters() const = 0;
    // Gives both registers the selected account's filtered entries again.
    virtual void ReloadRegisters() = 0;
    // Shows saved entries in the registers without filtering the others again.
    virtual void TakeSavedEntries(const EntryList& entries) = 0;
    // Gives the schedule list the selected account's schedules again.
    virtual void ReloadSchedules() = 0;
    // Gives the accounts list the accounts again.
    virtual void ReloadAccountsList() = 0;
    // Draws the rows of both registers anew.
    virtual void RedrawRegisters() = 0;
    virtual void Search_Cancel() = 0;
    // Selects the entry in the current register.
    virtual void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) = 0;
    // Tells the user when the current register's filter hides the entry.
    virtual void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) = 0;
  };

  Refresh(Host& host, Announcer& announcer) noexcept : host_(host), announcer_(announcer) {}
  Refresh(const Refresh&) = delete;
  Refresh& operator=(const Refresh&) = delete;

  // After OK in an entry sheet: `entry` was added (`is_new`) or changed.
  void EntrySaved(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new);
  // After entries were added at once: the last one is selected. There is at least one.
  void EntriesAdded(const EntryList& entries);
  // After an entry was added to another account than the selected one, which may have its other
  // half.
  void EntrySavedElsewhere() { EntryRemoved(); }
  // After entries were removed.
  void EntryRemoved();
  // After an import, whether it added anything or not; all but the list of accounts.
  void ImportEnded();
  // After something of an entry changed in place that no filter follows at once.
  void EntryMarked();
  // After scheduled entries were committed, skipped or changed.
  void SchedulesChanged();
  // After names, numbers or types of accounts changed.
  void AccountsChanged();

  // After midnight: filters, balances, schedules and the look of rows go by today.
  void DayChanged();

  // After a step was undone or redone, whatever it changed.
  void StepTaken();
  // The entry comes before the user: selected, or told of where the filter hides it.
  void ShowEntry(const std::shared_ptr<LDGRAccountEntry>& entry);
  // After the application was locked: what was shown is no longer.
  void Locked();

  void EntryButtons_Update() { announcer_.Changed(Area::EntryButtons); }
  void AccountBalance_Field_Update() { announcer_.Changed(Area::Balance); }
  void ReconcileTab_UpdateBalances() { announcer_.Changed(Area::ReconcileBalances); }
  void AccountsList_Redraw() {
    host_.ReloadAccountsList();
    announcer_.Changed(Area::Accounts);
  }
  void Account_Menu_Show_Menu_Populate() { announcer_.Changed(Area::AccountMenu); }
  void entryMenu_Types_Menu_Populate() { announcer_.Changed(Area::EntryTypeMenu); }

 private:
  void Balances();
  void EntriesSaved(const EntryList& entries, bool are_new);

  Host& host_;
  Announcer& announcer_;
};

}  // namespace tallyfold
