#include "storage/preferences.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "model/stored_numbers.h"
#include "model/type_handover.h"
#include "platform/ambient.h"
#include "plist/read_report.h"

namespace tallyfold {

namespace {

constexpr std::string_view kPreferencesVersion = "version";
constexpr std::string_view kDateFormat = "dateFormat";
constexpr std::string_view kAccountPreferences = "accountPreferences";
// What is no field: the view preferences, what the store adds, and what an upgrade reads.
constexpr std::string_view kOtherKeys[] = {kAccountPreferences, "appVersion", "types",
                                           "inactiveTypes"};
// The view preferences stand before this field in the file.
constexpr std::string_view kFieldAfterAccountPreferences = "selectedAccountNumber";

// The balance that is shown; the first takes the place of any other.
constexpr std::int32_t kGreatestBalanceMode = 5;
constexpr std::string_view kMissing = "No %@ defined for LDGRPreferences.";
constexpr std::string_view kWrong = "%@ is in wrong format for LDGRPreferences.";

std::shared_ptr<LDGRPreferences>& SharedSlot() noexcept {
  static std::shared_ptr<LDGRPreferences> slot;
  return slot;
}

std::string& SystemFontName() {
  static std::string name = "Sans";
  return name;
}

Field<LDGRPreferences> Of(std::string_view key, Field<LDGRPreferences>::Member member) {
  return {key, member, kMissing, kWrong};
}

// -1 for none.
std::int32_t VersionOf(const plist::Dictionary& dictionary) {
  const plist::Value& stored = dictionary.Get(kPreferencesVersion);
  return stored.IsNone() ? -1 : LooseInteger(stored, kPreferencesVersion);
}

void HandOverTypes(const plist::Dictionary& dictionary) {
  for (const std::string_view key : {"types", "inactiveTypes"}) {
    if (const plist::Value& types = dictionary.Get(key); !types.IsNone()) {
      TypeHandOver().Set(key, types);
    }
  }
}

void RemoveSelectedFilters(const plist::Dictionary& dictionary) {
  for (const plist::Value& account : dictionary.Get(kAccountPreferences).ArrayValue()) {
    for (const plist::Value& table : account.DictionaryValue().Get("tables").ArrayValue()) {
      table.DictionaryValue().Remove("selectedFilterDictionary");
    }
  }
}

}  // namespace

LDGRPreferences& LDGRPreferences::sharedPreferences() {
  auto& slot = SharedSlot();
  if (!slot) slot = std::make_shared<LDGRPreferences>();
  return *slot;
}

void LDGRPreferences::SetSharedPreferences(std::shared_ptr<LDGRPreferences> preferences) noexcept {
  SharedSlot() = std::move(preferences);
}

void LDGRPreferences::SetSystemFontName(std::string_view name) {
  SystemFontName() = name;
}

std::span<const Field<LDGRPreferences>> LDGRPreferences::Fields() {
  static const Field<LDGRPreferences> fields[] = {
      Of("version", &LDGRPreferences::version_),
      Of("backupInterval", &LDGRPreferences::backup_interval_),
      Of("dateFormat", &LDGRPreferences::date_format_),
      Of("amountFormat", &LDGRPreferences::amount_format_),
      Of("showAccountsDrawer", &LDGRPreferences::show_accounts_drawer_),
      Of("entryRemoveConfirm", &LDGRPreferences::entry_remove_confirm_),
      Of("italicizeFutureEntries", &LDGRPreferences::italicize_future_entries_),
      Of("scheduleRemoveConfirm", &LDGRPreferences::schedule_remove_confirm_),
      Of("useEllipses", &LDGRPreferences::use_ellipses_),
      Of("numberChecksAutomatically", &LDGRPreferences::number_checks_automatically_),
      Of("debitColor_Red", &LDGRPreferences::debit_color_red_),
      Of("debitColor_Green", &LDGRPreferences::debit_color_green_),
      Of("debitColor_Blue", &LDGRPreferences::debit_color_blue_),
      Of("debitColor_Alpha", &LDGRPreferences::debit_color_alpha_),
      Of("depositColor_Red", &LDGRPreferences::deposit_color_red_),
      Of("depositColor_Green", &LDGRPreferences::deposit_color_green_),
      Of("depositColor_Blue", &LDGRPreferences::deposit_color_blue_),
      Of("depositColor_Alpha", &LDGRPreferences::deposit_color_alpha_),
      Of("transferColor_Red", &LDGRPreferences::transfer_color_red_),
      Of("transferColor_Green", &LDGRPreferences::transfer_color_green_),
      Of("transferColor_Blue", &LDGRPreferences::transfer_color_blue_),
      Of("transferColor_Alpha", &LDGRPreferences::transfer_color_alpha_),
      Of("entryFont", &LDGRPreferences::entry_font_),
      Of("entryFontSize", &LDGRPreferences::entry_font_size_),
      Of("selectedAccountNumber", &LDGRPreferences::selected_account_number_),
      Of("accountListSortDescending", &LDGRPreferences::account_list_sort_descending_),
      Of("accountListSortKey", &LDGRPreferences::account_list_sort_key_),
      Of("showCurrencySymbol", &LDGRPreferences::show_currency_symbol_),
      Of("balanceMode", &LDGRPreferences::balance_mode_),
      Of("saveFilterSettings", &LDGRPreferences::save_filter_settings_),
      Of("liveUpdatingFilters", &LDGRPreferences::live_updating_filters_),
      Of("checkForUpdates", &LDGRPreferences::check_for_updates_),
      Of("selectWhichFieldFirstWhenAddingEntries",
         &LDGRPreferences::select_which_field_first_when_adding_entries_),
      Of("selectWhichFieldFirstWhenChangingEntries",
         &LDGRPreferences::select_which_field_first_when_changing_entries_),
      Of("defaultDateWhenAddingEntries", &LDGRPreferences::default_date_when_adding_entries_),
      Of("scheduleReminderInterval", &LDGRPreferences::schedule_reminder_interval_),
      Of("QIFExportDateFormat", &LDGRPreferences::qif_export_date_format_),
      Of("QIFExportAccount", &LDGRPreferences::qif_export_account_),
      Of("QIFExportEncoding", &LDGRPreferences::qif_export_encoding_),
      Of("speakEntriesStyle", &LDGRPreferences::speak_entries_style_),
      Of("speakEntryAmounts", &LDGRPreferences::speak_entry_amounts_),
      Of("pauseBetweenSpokenEntries", &LDGRPreferences::pause_between_spoken_entries_),
      Of("accountsDrawerWidth", &LDGRPreferences::accounts_drawer_width_),
      Of("accountsDrawerPreferredEdge", &LDGRPreferences::accounts_drawer_preferred_edge_),
      Of("scheduleLookAhead", &LDGRPreferences::schedule_look_ahead_),
      Of("scheduleLookAheadType", &LDGRPreferences::schedule_look_ahead_type_),
      Of("scheduleReminderBalanceMode", &LDGRPreferences::schedule_reminder_balance_mode_),
  };
  return fields;
}

LDGRPreferences::LDGRPreferences()
    : entry_font_(SystemFontName()), qif_export_encoding_(CurrentLocale().DefaultTextEncoding()) {}

LDGRPreferences::LDGRPreferences(const plist::Dictionary& dictionary) : LDGRPreferences() {
  for (const auto& field : Fields()) {
    if (field.key == kFieldAfterAccountPreferences) ReadAccountPreferences(dictionary);
    ReadField(*this, field, dictionary);
  }
  if (balance_mode_ < 0 || balance_mode_ > kGreatestBalanceMode) {
    plist::ReportNotTaken(plist::NotTaken::OutOfRange, "balanceMode");
  }
  plist::ReportUnknownKeys(dictionary, 0, [](std::string_view key) {
    return FieldNamed(key) != nullptr ||
           std::find(std::begin(kOtherKeys), std::end(kOtherKeys), key) != std::end(kOtherKeys);
  });
}

void LDGRPreferences::ReadAccountPreferences(const plist::Dictionary& dictionary) {
  const plist::Value& list = dictionary.Get(kAccountPreferences);
  if (list.IsNone()) return LogForKey(kMissing, kAccountPreferences);
  if (!list.IsArray()) return RefuseForKey(kWrong, kAccountPreferences);
  for (const plist::Value& element : list.ArrayValue()) {
    if (!element.IsDictionary()) {
      LogForKey(kWrong, kAccountPreferences);
      plist::ReportNotTaken(plist::NotTaken::Skipped, kAccountPreferences);
      continue;
    }
    account_preferences_.push_back(
        std::make_shared<LDGRAccountPreferences>(element.DictionaryValue()));
  }
}

void LDGRPreferences::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  for (const auto& field : Fields()) {
    if (field.key == kFieldAfterAccountPreferences) WriteAccountPreferences(output);
    WriteField(*this, field, output);
  }
  output.EndDictionary();
}

void LDGRPreferences::WriteAccountPreferences(plist::Output& output) const {
  output.Key(kAccountPreferences);
  output.BeginArray();
  for (const auto& preferences : account_preferences_) output.Write(preferences->asDictionary());
  output.EndArray();
}

plist::Dictionary LDGRPreferences::asDictionary() const {
  plist::TreeBuilder builder;
  WriteTo(builder);
  return builder.Take().DictionaryValue();
}

bool LDGRPreferences::HandsOverTypes(const plist::Dictionary& dictionary) {
  return VersionOf(dictionary) < 1 && (dictionary.Has("types") || dictionary.Has("inactiveTypes"));
}

bool LDGRPreferences::IsOfOlderVersion(const plist::Dictionary& dictionary) {
  return VersionOf(dictionary) < kCurrentVersion;
}

plist::Dictionary LDGRPreferences::UpdatePreferencesDictionary(
    const plist::Dictionary& dictionary) {
  plist::Dictionary updated = dictionary.DeepCopy();
  const std::int32_t version = VersionOf(dictionary);
  if (version > kCurrentVersion)
    plist::ReportNotTaken(plist::NotTaken::OutOfRange, kPreferencesVersion);
  if (version < kCurrentVersion) {
    if (version < 0) updated.Set(kDateFormat, 0);
    if (version < 1) HandOverTypes(updated);
    RemoveSelectedFilters(updated);
  }
  updated.Set(kPreferencesVersion, kCurrentVersion);
  return updated;
}

void LDGRPreferences::DefaultAppearanceSettings() noexcept {
  date_format_ = 0;
  amount_format_ = 0;
  entry_remove_confirm_ = true;
  debit_color_red_ = debit_color_green_ = debit_color_blue_ = 0.0F;
  debit_color_alpha_ = 1.0F;
  deposit_color_red_ = deposit_color_green_ = deposit_color_blue_ = 0.0F;
  deposit_color_alpha_ = 1.0F;
}

const Field<LDGRPreferences>* LDGRPreferences::FieldNamed(std::string_view name) {
  const auto fields = Fields();
  const auto field = std::find_if(fields.begin(), fields.end(),
                                  [name](const auto& each) { return each.key == name; });
  return field == fields.end() ? nullptr : &*field;
}

plist::Value LDGRPreferences::FieldValue(std::string_view name) const {
  const Field<LDGRPreferences>* field = FieldNamed(name);
  if (field == nullptr) return {};
  plist::TreeBuilder builder;
  builder.BeginDictionary();
  WriteField(*this, *field, builder);
  builder.EndDictionary();
  return builder.Take().DictionaryValue().Get(name);
}

bool LDGRPreferences::SetFieldValue(std::string_view name, const plist::Value& value) {
  const Field<LDGRPreferences>* field = FieldNamed(name);
  if (field == nullptr || name == kPreferencesVersion) return false;
  const bool is_text = std::holds_alternative<std::string LDGRPreferences::*>(field->member);
  if (is_text ? !value.IsString() : !value.IsNumber()) return false;
  plist::Dictionary dictionary;
  dictionary.Set(name, value);
  ReadField(*this, *field, dictionary);
  return true;
}

void LDGRPreferences::SetAccountPreferences(AccountPreferencesList preferences) {
  account_preferences_ = std::move(preferences);
}

std::shared_ptr<LDGRAccountPreferences> LDGRPreferences::GetPreferencesForAccountNumber(
    std::int32_t number) {
  for (const auto& preferences : account_preferences_) {
    if (preferences->GetAccountNumber() == number) return preferences;
  }
  auto made = std::make_shared<LDGRAccountPreferences>();
  made->SetAccountNumber(number);
  account_preferences_.push_back(made);
  return made;
}

void LDGRPreferences::SetPreferencesForAccount(
    std::shared_ptr<LDGRAccountPreferences> preferences) {
  RemovePreferencesForAccountNumber(preferences->GetAccountNumber());
  account_preferences_.push_back(std::move(preferences));
}

void LDGRPreferences::RemovePreferencesForAccountNumber(std::int32_t number) {
  std::erase_if(account_preferences_, [number](const auto& preferences) {
    return preferences->GetAccountNumber() == number;
  });
}

}  // namespace tallyfold
