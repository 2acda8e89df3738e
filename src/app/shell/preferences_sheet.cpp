#include "app/shell/preferences_sheet.h"

#include <chrono>
#include <utility>

#include "app/shell/preference_limits.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

constexpr std::string_view kPasswordField = "preferencesSheet_PasswordAgain_Field";

std::string FieldOf(std::string_view setting) {
  return "preferencesSheet_" + std::string(setting);
}

// What the setting takes, in the user's words.
std::string ExpectedOf(std::string_view setting, const plist::Value& present) {
  if (present.IsString()) {
    return LocalizedText(TextsOfPreference(setting).empty() ? "This must not be empty."
                                                            : "This is none of the choices.");
  }
  const PreferenceLimits limits = LimitsOfPreference(setting);
  const auto text = [](double limit) { return std::to_string(static_cast<std::int64_t>(limit)); };
  if (limits.most >= kAnyPreferenceNumber) return LocalizedText("This must be a whole number.");
  return Message(present.kind() == plist::Kind::Integer
                     ? "This must be a whole number from {1} to {2}."
                     : "This must be a number from {1} to {2}.",
                 {text(limits.least), text(limits.most)});
}

}  // namespace

bool PreferencesSheet::Open() {
  const Announcer::Operation operation(announcer_);
  if (!desk_.IsUnlocked() || !sheets_.Open(Sheet::Preferences, [this] { Cancel(); })) return false;
  state_ = PreferencesSheetState();
  settings_ = std::make_shared<LDGRPreferences>(desk_.preferences().asDictionary());
  settings_->SetBalanceMode(static_cast<std::int32_t>(balance_.Mode()));
  state_.typed = {settings_, accounts_.password(), accounts_.password()};
  state_.is_open = true;
  state_.tab = kFirstTab;
  state_.ok_is_enabled = true;
  state_.security_note = LocalizedText(
      "A password hides your accounts from others who use this computer.  It does not encrypt the "
      "accounts file.");
  sampled_ = SampleEntries(desk_.SelectedAccount().get());
  state_.voice = speech_.VoiceName();
  if (!sampled_.empty()) state_.spoken_example = sampled_.front().entry->asSpeakableString();
  ShowSample();
  announcer_.Changed(Area::PreferencesSheet);
  return true;
}

void PreferencesSheet::SayExample() {
  if (state_.is_open && !state_.spoken_example.empty()) speech_.Speak(state_.spoken_example);
}

bool PreferencesSheet::Read(std::string_view setting, const plist::Value& value) {
  if (!state_.is_open || settings_->FieldValue(setting).IsNone()) return false;
  if (state_.problem && state_.problem->field == FieldOf(setting)) state_.problem.reset();
  const bool is_taken = PreferenceTakes(setting, value) && settings_->SetFieldValue(setting, value);
  if (const auto unread = unread_.find(setting); is_taken && unread != unread_.end()) {
    unread_.erase(unread);
  }
  if (!is_taken) unread_.emplace(setting);
  ShowSample();
  announcer_.Changed(Area::PreferencesSheet);
  return is_taken;
}

bool PreferencesSheet::SelectTab(std::string_view tab) {
  if (!state_.is_open) return false;
  if (state_.tab == kSecurityTab && tab != kSecurityTab && state_.passwords_differ) {
    focus_.Start(std::chrono::milliseconds(0), [this] { window_->FocusPasswordField(); });
    state_.problem = Check();
    announcer_.Changed(Area::PreferencesSheet);
    return false;
  }
  state_.tab = tab;
  announcer_.Changed(Area::PreferencesSheet);
  return true;
}

void PreferencesSheet::preferencesSheet_PasswordValidate(std::string password,
                                                         std::string password_again) {
  if (!state_.is_open) return;
  auto& typed = state_.typed;
  const bool is_another = typed.password != password || typed.password_again != password_again;
  if (is_another && state_.problem && state_.problem->field == kPasswordField) {
    state_.problem.reset();
  }
  typed.password = std::move(password);
  typed.password_again = std::move(password_again);
  state_.passwords_differ = typed.password != typed.password_again;
  state_.ok_is_enabled = !state_.passwords_differ;
  announcer_.Changed(Area::PreferencesSheet);
}

void PreferencesSheet::DefaultAppearanceSettings() {
  if (!state_.is_open) return;
  settings_->DefaultAppearanceSettings();
  ShowSample();
  announcer_.Changed(Area::PreferencesSheet);
}

std::optional<Problem> PreferencesSheet::Check() const {
  if (state_.passwords_differ) {
    return Problem{std::string(kPasswordField), LocalizedText("The two passwords differ.")};
  }
  if (unread_.empty()) return std::nullopt;
  return Problem{FieldOf(*unread_.begin()),
                 ExpectedOf(*unread_.begin(), settings_->FieldValue(*unread_.begin()))};
}

bool PreferencesSheet::OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::Preferences)) return false;
  state_.problem = Check();
  if (state_.problem) {
    announcer_.Changed(Area::PreferencesSheet);
    return false;
  }
  LDGRPreferences& in_force = desk_.preferences();
  for (const auto& field : LDGRPreferences::Fields()) {
    // Only the version cannot be set, and both have the same.
    static_cast<void>(in_force.SetFieldValue(field.key, settings_->FieldValue(field.key)));
  }
  if (state_.typed.password != accounts_.password()) {
    Change change(ledger_);
    change.EditPassword();
    accounts_.setPassword(state_.typed.password);
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
  settings_ = nullptr;
  sampled_.clear();
  unread_.clear();
  announcer_.Changed(Area::PreferencesSheet);
  sheets_.Close(Sheet::Preferences);
}

}  // namespace tallyfold
