#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/field_table.h"
#include "plist/output.h"
#include "plist/value.h"
#include "storage/account_preferences.h"

namespace tallyfold {

using AccountPreferencesList = std::vector<std::shared_ptr<LDGRAccountPreferences>>;

// The settings of the application as a whole, and how each account was last shown. One table of
// fields (Fields()) names every key, in the order of the file; a setting is stored and read back
// because it stands there.
class LDGRPreferences {
 public:
  static constexpr std::int32_t kCurrentVersion = 2;

  // --- The one in force -----------------------------------------------------------------------

  // Set by the store that reads the file; without one, made with defaults on first use. A reference
  // holds until another is put in force.
  [[nodiscard]] static LDGRPreferences& sharedPreferences();
  // Null makes the next use start from defaults again.
  static void SetSharedPreferences(std::shared_ptr<LDGRPreferences> preferences) noexcept;
  // The name of the font that new preferences take for the register. A front end with fonts of its
  // own says it before the preferences are read; "Sans" until then.
  static void SetSystemFontName(std::string_view name);

  // --- Life -----------------------------------------------------------------------------------

  LDGRPreferences();
  // Reads a current dictionary form (see UpdatePreferencesDictionary()). Each missing key or value
  // of a wrong kind is logged and keeps its default.
  explicit LDGRPreferences(const plist::Dictionary& dictionary);
  LDGRPreferences(const LDGRPreferences&) = delete;
  LDGRPreferences& operator=(const LDGRPreferences&) = delete;

  // The whole dictionary, Begin and End included.
  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary asDictionary() const;
  // Whether a dictionary is an old one with entry types to be handed over.
  [[nodiscard]] static bool HandsOverTypes(const plist::Dictionary& dictionary);
  // True when UpdatePreferencesDictionary() changes what the dictionary says.
  [[nodiscard]] static bool IsOfOlderVersion(const plist::Dictionary& dictionary);
  // A copy of a dictionary of any version, brought to the current form. Entry types that old
  // versions kept here are handed over to the accounts (see model/type_handover.h).
  [[nodiscard]] static plist::Dictionary UpdatePreferencesDictionary(
      const plist::Dictionary& dictionary);

  // Short dates, amounts with separators, removal confirmed, debits and deposits in black. Leaves
  // the transfer colour, the font and everything else alone.
  void DefaultAppearanceSettings() noexcept;

  // --- Settings by name -----------------------------------------------------------------------

  // Every setting but the accounts' view preferences, in the order of the file.
  [[nodiscard]] static std::span<const Field<LDGRPreferences>> Fields();
  // A number or a text; none for a name that is no field.
  [[nodiscard]] plist::Value FieldValue(std::string_view name) const;
  // False, and nothing changed, when there is no such field, when the value is a text where a
  // number is stored or the other way round, and for "version", which is not the user's.
  [[nodiscard]] bool SetFieldValue(std::string_view name, const plist::Value& value);

  // --- View preferences of accounts -----------------------------------------------------------

  [[nodiscard]] const AccountPreferencesList& GetAccountPreferences() const noexcept {
    return account_preferences_;
  }
  void SetAccountPreferences(AccountPreferencesList preferences);
  // Those of one account; made and kept when there are none yet. Never null.
  std::shared_ptr<LDGRAccountPreferences> GetPreferencesForAccountNumber(std::int32_t number);
  void RemovePreferencesForAccountNumber(std::int32_t number);
  // Makes these the ones of their account.
  void SetPreferencesForAccount(std::shared_ptr<LDGRAccountPreferences> preferences);

  // --- The settings ---------------------------------------------------------------------------

  [[nodiscard]] std::int32_t GetVersion() const noexcept { return version_; }
  void SetVersion(std::int32_t value) noexcept { version_ = value; }
  // Days between automatic backups of the accounts file.
  [[nodiscard]] std::int32_t GetBackupInterval() const noexcept { return backup_interval_; }
  void SetBackupInterval(std::int32_t value) noexcept { backup_interval_ = value; }
  // 0 short, 1 yyyy-mm-dd, 2 long.
  [[nodiscard]] std::int32_t GetDateFormat() const noexcept { return date_format_; }
  void SetDateFormat(std::int32_t value) noexcept { date_format_ = value; }
  // 0 with thousands separators, 1 without.
  [[nodiscard]] std::int32_t GetAmountFormat() const noexcept { return amount_format_; }
  void SetAmountFormat(std::int32_t value) noexcept { amount_format_ = value; }
  [[nodiscard]] bool GetShowAccountsDrawer() const noexcept { return show_accounts_drawer_; }
  void SetShowAccountsDrawer(bool value) noexcept { show_accounts_drawer_ = value; }
  [[nodiscard]] bool GetEntryRemoveConfirm() const noexcept { return entry_remove_confirm_; }
  void SetEntryRemoveConfirm(bool value) noexcept { entry_remove_confirm_ = value; }
  [[nodiscard]] bool GetItalicizeFutureEntries() const noexcept {
    return italicize_future_entries_;
  }
  void SetItalicizeFutureEntries(bool value) noexcept { italicize_future_entries_ = value; }
  [[nodiscard]] bool GetScheduleRemoveConfirm() const noexcept { return schedule_remove_confirm_; }
  void SetScheduleRemoveConfirm(bool value) noexcept { schedule_remove_confirm_ = value; }
  // Texts too long for their column end in an ellipsis.
  [[nodiscard]] bool GetUseEllipses() const noexcept { return use_ellipses_; }
  void SetUseEllipses(bool value) noexcept { use_ellipses_ = value; }
  [[nodiscard]] bool GetNumberChecksAutomatically() const noexcept {
    return number_checks_automatically_;
  }
  void SetNumberChecksAutomatically(bool value) noexcept { number_checks_automatically_ = value; }
  // Register colours; each part from 0 to 1.
  [[nodiscard]] float GetDebitColor_Red() const noexcept { return debit_color_red_; }
  void SetDebitColor_Red(float value) noexcept { debit_color_red_ = value; }
  [[nodiscard]] float GetDebitColor_Green() const noexcept { return debit_color_green_; }
  void SetDebitColor_Green(float value) noexcept { debit_color_green_ = value; }
  [[nodiscard]] float GetDebitColor_Blue() const noexcept { return debit_color_blue_; }
  void SetDebitColor_Blue(float value) noexcept { debit_color_blue_ = value; }
  [[nodiscard]] float GetDebitColor_Alpha() const noexcept { return debit_color_alpha_; }
  void SetDebitColor_Alpha(float value) noexcept { debit_color_alpha_ = value; }
  [[nodiscard]] float GetDepositColor_Red() const noexcept { return deposit_color_red_; }
  void SetDepositColor_Red(float value) noexcept { deposit_color_red_ = value; }
  [[nodiscard]] float GetDepositColor_Green() const noexcept { return deposit_color_green_; }
  void SetDepositColor_Green(float value) noexcept { deposit_color_green_ = value; }
  [[nodiscard]] float GetDepositColor_Blue() const noexcept { return deposit_color_blue_; }
  void SetDepositColor_Blue(float value) noexcept { deposit_color_blue_ = value; }
  [[nodiscard]] float GetDepositColor_Alpha() const noexcept { return deposit_color_alpha_; }
  void SetDepositColor_Alpha(float value) noexcept { deposit_color_alpha_ = value; }
  [[nodiscard]] float GetTransferColor_Red() const noexcept { return transfer_color_red_; }
  void SetTransferColor_Red(float value) noexcept { transfer_color_red_ = value; }
  [[nodiscard]] float GetTransferColor_Green() const noexcept { return transfer_color_green_; }
  void SetTransferColor_Green(float value) noexcept { transfer_color_green_ = value; }
  [[nodiscard]] float GetTransferColor_Blue() const noexcept { return transfer_color_blue_; }
  void SetTransferColor_Blue(float value) noexcept { transfer_color_blue_ = value; }
  [[nodiscard]] float GetTransferColor_Alpha() const noexcept { return transfer_color_alpha_; }
  void SetTransferColor_Alpha(float value) noexcept { transfer_color_alpha_ = value; }
  // Family and size (points) of the register font.
  [[nodiscard]] const std::string& GetEntryFont() const noexcept { return entry_font_; }
  void SetEntryFont(std::string_view value) { entry_font_ = value; }
  [[nodiscard]] std::int32_t GetEntryFontSize() const noexcept { return entry_font_size_; }
  void SetEntryFontSize(std::int32_t value) noexcept { entry_font_size_ = value; }
  // Number of the account shown last; -1 for none.
  [[nodiscard]] std::int32_t GetSelectedAccountNumber() const noexcept {
    return selected_account_number_;
  }
  void SetSelectedAccountNumber(std::int32_t value) noexcept { selected_account_number_ = value; }
  [[nodiscard]] bool GetAccountListSortDescending() const noexcept {
    return account_list_sort_descending_;
  }
  void SetAccountListSortDescending(bool value) noexcept { account_list_sort_descending_ = value; }
  // Identifier of the column the account list is sorted by.
  [[nodiscard]] const std::string& GetAccountListSortKey() const noexcept {
    return account_list_sort_key_;
  }
  void SetAccountListSortKey(std::string_view value) { account_list_sort_key_ = value; }
  [[nodiscard]] bool GetShowCurrencySymbol() const noexcept { return show_currency_symbol_; }
  void SetShowCurrencySymbol(bool value) noexcept { show_currency_symbol_ = value; }
  // 0 balance, 1 today's, 2 resolved, 3 unresolved, 4 total of the shown entries, 5 at the selected
  // entry.
  [[nodiscard]] std::int32_t GetBalanceMode() const noexcept { return balance_mode_; }
  void SetBalanceMode(std::int32_t value) noexcept { balance_mode_ = value; }
  // Stored only.
  [[nodiscard]] bool GetSaveFilterSettings() const noexcept { return save_filter_settings_; }
  void SetSaveFilterSettings(bool value) noexcept { save_filter_settings_ = value; }
  // Filters are applied while typing.
  [[nodiscard]] bool GetLiveUpdatingFilters() const noexcept { return live_updating_filters_; }
  void SetLiveUpdatingFilters(bool value) noexcept { live_updating_filters_ = value; }
  [[nodiscard]] bool GetCheckForUpdates() const noexcept { return check_for_updates_; }
  void SetCheckForUpdates(bool value) noexcept { check_for_updates_ = value; }
  // 0 date, 1 amount, 2 description, 3 to/from, 4 type.
  [[nodiscard]] std::int32_t GetSelectWhichFieldFirstWhenAddingEntries() const noexcept {
    return select_which_field_first_when_adding_entries_;
  }
  void SetSelectWhichFieldFirstWhenAddingEntries(std::int32_t value) noexcept {
    select_which_field_first_when_adding_entries_ = value;
  }
  [[nodiscard]] std::int32_t GetSelectWhichFieldFirstWhenChangingEntries() const noexcept {
    return select_which_field_first_when_changing_entries_;
  }
  void SetSelectWhichFieldFirstWhenChangingEntries(std::int32_t value) noexcept {
    select_which_field_first_when_changing_entries_ = value;
  }
  // 0 today, 1 that of the last entered entry.
  [[nodiscard]] std::int32_t GetDefaultDateWhenAddingEntries() const noexcept {
    return default_date_when_adding_entries_;
  }
  void SetDefaultDateWhenAddingEntries(std::int32_t value) noexcept {
    default_date_when_adding_entries_ = value;
  }
  // Seconds.
  [[nodiscard]] std::int32_t GetScheduleReminderInterval() const noexcept {
    return schedule_reminder_interval_;
  }
  void SetScheduleReminderInterval(std::int32_t value) noexcept {
    schedule_reminder_interval_ = value;
  }
  [[nodiscard]] const std::string& GetQIFExportDateFormat() const noexcept {
    return qif_export_date_format_;
  }
  void setQIFExportDateFormat(std::string_view value) { qif_export_date_format_ = value; }
  [[nodiscard]] std::int32_t GetQIFExportAccount() const noexcept { return qif_export_account_; }
  void setQIFExportAccount(std::int32_t value) noexcept { qif_export_account_ = value; }
  // An identifier of platform/text_encodings.h.
  [[nodiscard]] std::int32_t GetQIFExportEncoding() const noexcept { return qif_export_encoding_; }
  void setQIFExportEncoding(std::int32_t value) noexcept { qif_export_encoding_ = value; }
  // Stored only.
  [[nodiscard]] std::int32_t GetSpeakEntriesStyle() const noexcept { return speak_entries_style_; }
  void SetSpeakEntriesStyle(std::int32_t value) noexcept { speak_entries_style_ = value; }
  [[nodiscard]] bool GetSpeakEntryAmounts() const noexcept { return speak_entry_amounts_; }
  void SetSpeakEntryAmounts(bool value) noexcept { speak_entry_amounts_ = value; }
  // Seconds.
  [[nodiscard]] float GetPauseBetweenSpokenEntries() const noexcept {
    return pause_between_spoken_entries_;
  }
  void SetPauseBetweenSpokenEntries(float value) noexcept { pause_between_spoken_entries_ = value; }
  // Points; -1 for the default.
  [[nodiscard]] float GetAccountsDrawerWidth() const noexcept { return accounts_drawer_width_; }
  void SetAccountsDrawerWidth(float value) noexcept { accounts_drawer_width_ = value; }
  // Edge of the window the drawer opens at.
  [[nodiscard]] std::int32_t GetAccountsDrawerPreferredEdge() const noexcept {
    return accounts_drawer_preferred_edge_;
  }
  void SetAccountsDrawerPreferredEdge(std::int32_t value) noexcept {
    accounts_drawer_preferred_edge_ = value;
  }
  // How far ahead scheduled entries are announced: a number of days (type 0), weeks (1) or
  // months (2).
  [[nodiscard]] std::int32_t GetScheduleLookAhead() const noexcept { return schedule_look_ahead_; }
  void SetScheduleLookAhead(std::int32_t value) noexcept { schedule_look_ahead_ = value; }
  [[nodiscard]] std::int32_t GetScheduleLookAheadType() const noexcept {
    return schedule_look_ahead_type_;
  }
  void SetScheduleLookAheadType(std::int32_t value) noexcept { schedule_look_ahead_type_ = value; }
  // 0 none, 1 today's, 2 after the marked occurrences.
  [[nodiscard]] std::int32_t GetScheduleReminderBalanceMode() const noexcept {
    return schedule_reminder_balance_mode_;
  }
  void SetScheduleReminderBalanceMode(std::int32_t value) noexcept {
    schedule_reminder_balance_mode_ = value;
  }

 private:
  // Null for a name that is no field.
  [[nodiscard]] static const Field<LDGRPreferences>* FieldNamed(std::string_view name);
  void ReadAccountPreferences(const plist::Dictionary& dictionary);
  void WriteAccountPreferences(plist::Output& output) const;

  std::int32_t version_ = 2;
  std::int32_t backup_interval_ = 7;
  std::int32_t date_format_ = 0;
  std::int32_t amount_format_ = 0;
  bool show_accounts_drawer_ = true;
  bool entry_remove_confirm_ = true;
  bool italicize_future_entries_ = true;
  bool schedule_remove_confirm_ = true;
  bool use_ellipses_ = false;
  bool number_checks_automatically_ = true;
  float debit_color_red_ = 1.0F;
  float debit_color_green_ = 0.1882F;
  float debit_color_blue_ = 0.1608F;
  float debit_color_alpha_ = 1.0F;
  float deposit_color_red_ = 0.2549F;
  float deposit_color_green_ = 0.6392F;
  float deposit_color_blue_ = 0.0039F;
  float deposit_color_alpha_ = 1.0F;
  float transfer_color_red_ = 0.0F;
  float transfer_color_green_ = 0.3922F;
  float transfer_color_blue_ = 0.9098F;
  float transfer_color_alpha_ = 1.0F;
  std::string entry_font_;
  std::int32_t entry_font_size_ = 11;
  AccountPreferencesList account_preferences_;
  std::int32_t selected_account_number_ = -1;
  bool account_list_sort_descending_ = false;
  std::string account_list_sort_key_ = "accounts";
  bool show_currency_symbol_ = true;
  std::int32_t balance_mode_ = 0;
  bool save_filter_settings_ = false;
  bool live_updating_filters_ = true;
  bool check_for_updates_ = false;
  std::int32_t select_which_field_first_when_adding_entries_ = 0;
  std::int32_t select_which_field_first_when_changing_entries_ = 1;
  std::int32_t default_date_when_adding_entries_ = 0;
  std::int32_t schedule_reminder_interval_ = 900;
  std::string qif_export_date_format_ = "%m/%d/%y";
  std::int32_t qif_export_account_ = -5;
  std::int32_t qif_export_encoding_;
  std::int32_t speak_entries_style_ = 0;
  bool speak_entry_amounts_ = false;
  float pause_between_spoken_entries_ = 1.8F;
  float accounts_drawer_width_ = -1.0F;
  std::int32_t accounts_drawer_preferred_edge_ = 2;
  std::int32_t schedule_look_ahead_ = 1;
  std::int32_t schedule_look_ahead_type_ = 0;
  std::int32_t schedule_reminder_balance_mode_ = 2;
};

}  // namespace tallyfold
