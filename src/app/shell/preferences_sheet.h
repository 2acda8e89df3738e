#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"
#include "app/views/balance_field.h"
#include "ledger/ledger.h"
#include "platform/run_loop.h"
#include "storage/accounts_store.h"
#include "storage/preferences.h"

namespace tallyfold {

// What the preferences sheet shows.
struct PreferencesSheetState {
  // Typed by the user. The settings are an edit copy, changed through its setters; null while the
  // sheet is closed.
  std::shared_ptr<LDGRPreferences> settings;
  std::string password;
  std::string password_again;

  // Decided by the program.
  bool is_open = false;
  // Identifier of the tab that is showing; that of the passwords is PreferencesSheet::kSecurityTab.
  std::string tab;
  bool ok_is_enabled = false;
  bool passwords_differ = false;
  // What a password does and what not.
  std::string security_note;
};

// The preferences sheet: every setting and the application password.
class PreferencesSheet {
 public:
  static constexpr std::string_view kFirstTab = "general";
  static constexpr std::string_view kSecurityTab = "security";

  class Host {
   public:
    virtual ~Host() = default;
    // Shows everything anew by the preferences.
    virtual void PreferencesChanged() = 0;
  };

  PreferencesSheet(Host& host, Desk& desk, Ledger& ledger, AccountsStore& accounts,
                   const BalanceField& balance, WindowHooksSlot& window, SheetSlot& sheets,
                   RunLoop& loop, Announcer& announcer) noexcept
      : host_(host),
        desk_(desk),
        ledger_(ledger),
        accounts_(accounts),
        balance_(balance),
        window_(window),
        sheets_(sheets),
        announcer_(announcer),
        focus_(loop) {}
  PreferencesSheet(const PreferencesSheet&) = delete;
  PreferencesSheet& operator=(const PreferencesSheet&) = delete;

  [[nodiscard]] const PreferencesSheetState& State() const noexcept { return state_; }

  // False while a sheet is open or the application is locked.
  bool Open();
  // Types into the field of that setting (see app/shell/preference_texts.h). False when it refuses
  // the text, or the sheet is not open.
  bool SetField(std::string_view name, std::string_view text);
  // Whether the other tab shows now. Refused on the security tab while the two passwords differ;
  // the password field then takes the focus after the current event.
  bool SelectTab(std::string_view tab);
  // A keystroke in either password field: takes over both texts.
  void PasswordValidate(std::string password, std::string password_again);
  // Resets what the appearance page resets, in the edit copy.
  void DefaultAppearanceSettings();

  // Puts the settings and the password in force. False while the passwords differ or a field
  // refuses its text.
  bool OK();
  // Closes the sheet; nothing has changed.
  void Cancel();

 private:
  void Close();

  Host& host_;
  Desk& desk_;
  Ledger& ledger_;
  AccountsStore& accounts_;
  const BalanceField& balance_;
  WindowHooksSlot& window_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  PreferencesSheetState state_;
  DelayedCall focus_;
};

}  // namespace tallyfold
