#pragma once

#include <string_view>

#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/face/refresh.h"
#include "app/face/window_hooks.h"
#include "app/shell/application_lock.h"
#include "app/shell/idle_watch.h"
#include "app/shell/recovery.h"
#include "app/shell/saving.h"
#include "app/shell/text_editing.h"
#include "app/shell/update_check.h"
#include "platform/application_host.h"
#include "platform/notification_center.h"
#include "registers/entry_speaker.h"
#include "storage/accounts_store.h"
#include "storage/data_folder_lock.h"
#include "storage/preferences_store.h"

namespace tallyfold {

// Posted by a front end: the machine is about to go down.
inline constexpr std::string_view kWillPowerOffNotification = "LDGRWorkspaceWillPowerOff";

// The start and the end of the application, and its coming and going in between.
class Lifecycle {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Gives the registers their view preferences and the account that is going to be shown, and
    // fills the pop-up of the balance.
    virtual void SetUpRegisters() = 0;
  };

  // What the launch brings up, in the order in which it does.
  struct Parts {
    DataFolderLock& data_lock;
    WindowHooksSlot& window;
    UpdateCheck& updates;
    PreferencesStore& preferences;
    AccountsStore& accounts;
    NotificationCenter& notifications;
    AccountsDrawer& drawer;
    IdleWatch& idle;
    ApplicationLock& lock;
    AccountSelection& selection;
    Refresh& refresh;
    ApplicationHost& application;
    Saving& saving;
    TextEditing& text_editing;
    EntrySpeaker& speaker;
    Recovery& recovery;
  };

  Lifecycle(Host& host, const Parts& parts) noexcept : host_(host), parts_(parts) {}
  Lifecycle(const Lifecycle&) = delete;
  Lifecycle& operator=(const Lifecycle&) = delete;

  // Before the launch: where another copy has the data, this one does not end but looks at what was
  // saved last, and writes nothing of its own.
  void LookOnlyWhereInUse() noexcept { parts_.data_lock.LookOnlyWhereInUse(); }
  [[nodiscard]] bool OnlyLooks() const noexcept { return parts_.data_lock.OnlyLooks(); }

  // Before the launch: keys for commands without a visible button.
  void awakeFromNib();
  // The launch, step by step. False when it stopped because the program ends: another copy has the
  // data, or the user quit at a question about the accounts file.
  [[nodiscard]] bool applicationDidFinishLaunching();

  // Both always true: nothing is asked at the end.
  [[nodiscard]] bool applicationShouldTerminate() const noexcept { return true; }
  [[nodiscard]] bool applicationShouldTerminateAfterLastWindowClosed() const noexcept {
    return true;
  }
  // Saves accounts and preferences, unless the application is locked or never got to load them. May
  // be called more than once.
  void applicationWillTerminate();
  void workspaceWillPowerOffNotification() { applicationWillTerminate(); }

  void applicationWillBecomeActive();
  void applicationWillResignActive() { parts_.speaker.StopSpeech(); }
  // The main window closes: so does the application.
  void windowWillClose();
  void Quit() { parts_.application.Terminate(); }

 private:
  Host& host_;
  Parts parts_;
  NotificationCenter::Observation power_off_;
  NotificationCenter::Observation user_input_;
};

}  // namespace tallyfold
