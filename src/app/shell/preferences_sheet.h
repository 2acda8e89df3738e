#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/problem.h"
#include "app/face/sheet_slot.h"
#include "app/face/window_hooks.h"
#include "app/shell/preferences_sample.h"
#include "app/views/balance_field.h"
#include "ledger/ledger.h"
#include "platform/run_loop.h"
#include "platform/speech_output.h"
#include "plist/value.h"
#include "storage/accounts_store.h"
#include "storage/preferences.h"

namespace tallyfold {

// What the preferences sheet shows.
struct PreferencesSheetState {
  // Typed by the user.
  struct Typed {
    // An edit copy of the settings, which PreferencesSheet::Read() changes: what a setting does not
    // take leaves it as it was. Null while the sheet is closed.
    std::shared_ptr<const LDGRPreferences> settings;
    std::string password;
    std::string password_again;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  // Identifier of the tab that is showing; that of the passwords is PreferencesSheet::kSecurityTab.
  std::string tab;
  // Whether OK would be taken as things stand; pressed all the same, it tells why not.
  bool ok_is_enabled = false;
  bool passwords_differ = false;
  // What a password does and what not.
  std::string security_note;
  // What the settings typed would come to.
  PreferencesSample sample;
  // Of the speech program in use; "" for none.
  std::string voice;
  // What SayExample() says; "" where there is no entry to say.
  std::string spoken_example;
  // The fields are preferencesSheet_PasswordAgain_Field and, of a setting, "preferencesSheet_" with
  // its name.
  std::optional<Problem> problem;
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
                   SpeechOutput& speech, RunLoop& loop, Announcer& announcer) noexcept
      : host_(host),
        desk_(desk),
        ledger_(ledger),
        accounts_(accounts),
        balance_(balance),
        window_(window),
        sheets_(sheets),
        speech_(speech),
        announcer_(announcer),
        focus_(loop) {}
  PreferencesSheet(const PreferencesSheet&) = delete;
  PreferencesSheet& operator=(const PreferencesSheet&) = delete;

  [[nodiscard]] const PreferencesSheetState& State() const noexcept { return state_; }

  // False while a sheet is open or the application is locked.
  bool Open();
  // Takes over what the user typed into the field of that setting: none for what cannot be read.
  // False when the setting does not take it (see app/shell/preference_limits.h), which refuses OK
  // until another value is read, and when the sheet is not open.
  bool Read(std::string_view setting, const plist::Value& value);
  // Whether the other tab shows now. Refused on the security tab while the two passwords differ;
  // the password field then takes the focus after the current event.
  bool SelectTab(std::string_view tab);
  // A keystroke in either password field: takes over both texts.
  void preferencesSheet_PasswordValidate(std::string password, std::string password_again);
  // Speaks the example, where there is a voice.
  void SayExample();
  // Resets what the appearance page resets, in the edit copy.
  void DefaultAppearanceSettings();

  // Puts the settings and the password in force. False when the sheet is not open, or stays open:
  // its state then says why, unless a field of the front end has refused its text.
  bool OK();
  // Closes the sheet; nothing has changed.
  void Cancel();

 private:
  [[nodiscard]] std::optional<Problem> Check() const;
  void ShowSample() { state_.sample = SampleOf(sampled_, *settings_); }
  void Close();

  Host& host_;
  Desk& desk_;
  Ledger& ledger_;
  AccountsStore& accounts_;
  const BalanceField& balance_;
  WindowHooksSlot& window_;
  SheetSlot& sheets_;
  SpeechOutput& speech_;
  Announcer& announcer_;
  PreferencesSheetState state_;
  // That of the state.
  std::shared_ptr<LDGRPreferences> settings_;
  std::vector<SampledEntry> sampled_;
  // Settings whose fields hold what they do not take, by name.
  std::set<std::string, std::less<>> unread_;
  DelayedCall focus_;
};

}  // namespace tallyfold
