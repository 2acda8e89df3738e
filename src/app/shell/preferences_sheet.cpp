#include "app/shell/preferences_sheet.h"

#include <chrono>
#include <utility>

#include "app/shell/preference_texts.h"
#include "ledger/change.h"
#include "platform/ambient.h"

namespace tallyfold {

bool PreferencesSheet::Open() {
  const Announcer::Operation operation(announcer_);
  if (!desk_.IsUnlocked() || !sheets_.Open(Sheet::Preferences, [this] { Cancel(); })) return false;
  state_ = PreferencesSheetState();
  state_.settings = std::make_shared<LDGRPreferences>(desk_.preferences().asDictionary());
  state_.settings->SetBalanceMode(static_cast<std::int32_t>(balance_.Mode()));
  state_.password = accounts_.password();
  state_.password_again = accounts_.password();
  state_.is_open = true;
  state_.tab = kFirstTab;
  state_.ok_is_enabled = true;
  state_.security_note = LocalizedText(
      "A password hides your accounts from others who use this computer.  It does not encrypt the "
      "accounts file.");
  announcer_.Changed(Area::PreferencesSheet);
  return true;
}

bool PreferencesSheet::SetField(std::string_view name, std::string_view text) {
  if (!state_.is_open || !SetPreferenceText(*state_.settings, name, text)) return false;
  announcer_.Changed(Area::PreferencesSheet);
  return true;
}

bool PreferencesSheet::SelectTab(std::string_view tab) {
  if (!state_.is_open) return false;
  if (state_.tab == kSecurityTab && tab != kSecurityTab && state_.passwords_differ) {
    focus_.Start(std::chrono::milliseconds(0), [this] { window_->FocusPasswordField(); });
    return false;
  }
  state_.tab = tab;
  announcer_.Changed(Area::PreferencesSheet);
  return true;
}

void PreferencesSheet::PasswordValidate(std::string password, std::string password_again) {
  if (!state_.is_open) return;
  state_.password = std::move(password);
  state_.password_again = std::move(password_again);
  state_.passwords_differ = state_.password != state_.password_again;
  state_.ok_is_enabled = !state_.passwords_differ;
  announcer_.Changed(Area::PreferencesSheet);
}

void PreferencesSheet::DefaultAppearanceSettings() {
  if (!state_.is_open) return;
  state_.settings->DefaultAppearanceSettings();
  announcer_.Changed(Area::PreferencesSheet);
}

bool PreferencesSheet::OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::Preferences) || !state_.ok_is_enabled) {
    return false;
  }
  LDGRPreferences& in_force = desk_.preferences();
  for (const auto& field : LDGRPreferences::Fields()) {
    // Only the version cannot be set, and both have the same.
    static_cast<void>(in_force.SetFieldValue(field.key, state_.settings->FieldValue(field.key)));
  }
  if (state_.password != accounts_.password()) {
    Change change(ledger_);
    change.EditPassword();
    accounts_.setPassword(state_.password);
    change.Close();
  }
  Close();
  host_.PreferencesChanged();
  return true;
}

void PreferencesSheet::Cancel() {
  const Announcer::Operation operation(announcer_);
  if (state_.is_open) Close();
}

void PreferencesSheet::Close() {
  focus_.Cancel();
  state_ = PreferencesSheetState();
  announcer_.Changed(Area::PreferencesSheet);
  sheets_.Close(Sheet::Preferences);
}

}  // namespace tallyfold
