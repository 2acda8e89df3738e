#include <algorithm>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "model/account_keys.h"
#include "model/stored_numbers.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/progress.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMissingInAccount = "No %@ defined for LDGRAccount.";
constexpr std::string_view kWrongInAccount = "%@ is in wrong format for LDGRAccount.";
constexpr std::int32_t kNoType = -1;

bool IsAnything(const plist::Value&) {
  return true;
}
bool IsArray(const plist::Value& value) {
  return value.IsArray();
}
bool IsNumber(const plist::Value& value) {
  return value.IsNumber();
}

// Entries alone are what loading and saving is counted in.
template <typename Record>
void CountRecord(LongWork work) {
  if constexpr (std::is_same_v<Record, LDGRAccountEntry>) LongOperation::Count(work);
}

template <typename Record>
void WriteRecords(const std::vector<std::shared_ptr<Record>>& list, plist::Output& output) {
  output.BeginArray();
  for (const auto& record : list) {
    record->WriteTo(output);
    CountRecord<Record>(LongWork::Saving);
  }
  output.EndArray();
}

// Replaces the list by records made of the dictionaries in the array; other elements are skipped.
template <typename Record, typename Reading>
void ReadRecords(std::vector<std::shared_ptr<Record>>& list, plist::Array array,
                 const Reading& reading) {
  list.clear();
  list.reserve(array.size());
  for (std::size_t i = 0; i < array.size(); ++i) {
    const plist::Value element = reading.consume ? array.Take(i) : array.At(i);
    if (element.IsDictionary()) {
      list.push_back(std::make_shared<Record>(element.DictionaryValue()));
    } else {
      reading.SkipElement();
    }
    CountRecord<Record>(LongWork::Loading);
  }
}

}  // namespace

// The entries of the table.
struct LDGRAccount::StoredKey::Make {
  static const StoredKey kTable[];

  static constexpr Entry Plain(std::string_view key, Field<LDGRAccount>::Member member,
                               std::string_view missing = kMissingInAccount,
                               std::string_view wrong = kWrongInAccount) {
    return Field<LDGRAccount>{key, member, missing, wrong};
  }

  // A number that is taken from a value of any kind.
  template <std::int32_t LDGRAccount::*member>
  static constexpr Entry Unchecked(std::string_view key, std::string_view missing) {
    return Special{
        key,
        missing,
        {},
        IsAnything,
        [](const LDGRAccount& account, plist::Output& output) { output.Integer(account.*member); },
        [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
          account.*member = LooseInteger(value, reading.key);
        },
        KeepingOf<member>()};
  }

  template <auto member>
  static constexpr Entry Records(std::string_view key, std::string_view missing,
                                 std::string_view wrong) {
    return Special{key,
                   missing,
                   wrong,
                   IsArray,
                   [](const LDGRAccount& account, plist::Output& output) {
                     WriteRecords(account.*member, output);
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     ReadRecords(account.*member, value.ArrayValue(), reading);
                   },
                   KeepingOf<member>()};
  }

  template <std::shared_ptr<LDGRAccountEntryType> LDGRAccount::*member>
  static constexpr Entry TypeNumber(std::string_view key) {
    return Special{key,
                   kMissingInAccount,
                   kWrongInAccount,
                   IsNumber,
                   [](const LDGRAccount& account, plist::Output& output) {
                     const auto& type = account.*member;
                     output.Integer(type ? type->GetNumber() : kNoType);
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     const std::int32_t number = StoredInteger(value, reading.key);
                     account.*member = account.AccountEntryTypeForNumber(number);
                     if (account.*member == nullptr && number != kNoType) {
                       plist::ReportNotTaken(plist::NotTaken::OutOfRange, reading.key);
                     }
                   },
                   KeepingOf<member>()};
  }

  template <TextList LDGRAccount::*member>
  static constexpr Entry Texts(std::string_view key) {
    return Special{key,
                   kMissingInAccount,
                   kWrongInAccount,
                   IsArray,
                   [](const LDGRAccount& account, plist::Output& output) {
                     output.BeginArray();
                     for (const std::string& text : account.*member) output.String(text);
                     output.EndArray();
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     TextList& texts = account.*member;
                     texts.clear();
                     for (const plist::Value& element : value.ArrayValue()) {
                       if (element.IsString()) {
                         texts.emplace_back(element.StringValue());
                       } else {
                         reading.SkipElement();
                       }
                     }
                   },
                   KeepingOf<member>()};
  }

  template <plist::Value LDGRAccount::*member>
  static constexpr Entry AnyKind(std::string_view key) {
    return Special{
        key,
        kMissingInAccount,
        {},
        IsAnything,
        [](const LDGRAccount& account, plist::Output& output) { output.Write(account.*member); },
        [](LDGRAccount& account, const plist::Value& value, const Reading&) {
          account.*member = value.DeepCopy();
        },
        KeepingOf<member>(),
        [](const LDGRAccount& account) { return (account.*member).IsNone(); }};
  }

  static constexpr Entry StartingBalance() {
    return Special{"startingBalance",
                   "Account does not have a starting balance in LDGRAccount:initWithDictionary",
                   "Account starting balance is in the wrong format in "
                   "LDGRAccount:initWithDictionary",
                   IsNumber,
                   [](const LDGRAccount& account, plist::Output& output) {
                     output.Real(account.starting_balance_);
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     account.SetStartingBalance(StoredReal(value, reading.key));
                   },
                   KeepingOf<&LDGRAccount::starting_balance_>()};
  }

  static constexpr Entry ActiveTypes() {
    return Special{"types",
                   "No types defined for LDGRAccount.",
                   "types are in the wrong format for LDGRAccount.",
                   IsArray,
                   [](const LDGRAccount& account, plist::Output& output) {
                     WriteRecords(account.Types(), output);
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     EntryTypeList types;
                     ReadRecords(types, value.ArrayValue(), reading);
                     account.SetTypes(std::move(types));
                   },
                   KeepingOf<&LDGRAccount::types_, &LDGRAccount::GetTypes>()};
  }

  static constexpr Entry Summaries() {
    return Special{"accountSummaries",
                   "Account does not have any account summaries in LDGRAccount:initWithDictionary",
                   "Account Summaries are in the wrong format in LDGRAccount:initWithDictionary",
                   IsArray,
                   [](const LDGRAccount& account, plist::Output& output) {
                     account.WriteAccountSummaries(output);
                   },
                   [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
                     account.ReadAccountSummaries(value.ArrayValue(),
                                                  [&reading] { reading.SkipElement(); });
                   },
                   KeepingOf<&LDGRAccount::account_summaries_, &LDGRAccount::accountSummaries>()};
  }

  static constexpr Entry SelectedSummary() {
    return Special{
        "selectedAccountSummary",
        kMissingInAccount,
        kWrongInAccount,
        IsNumber,
        [](const LDGRAccount& account, plist::Output& output) {
          const auto& list = account.accountSummaries();
          const auto found = std::find(list.begin(), list.end(), account.selectedAccountSummary());
          output.Integer(found != list.end() ? found - list.begin() : 0);
        },
        [](LDGRAccount& account, const plist::Value& value, const Reading& reading) {
          const std::int32_t index = StoredInteger(value, reading.key);
          const auto count = account.accountSummaries().size();
          if (index >= 0 && static_cast<std::size_t>(index) < count) {
            account.selectAccountSummaryAtIndex(static_cast<std::size_t>(index));
          } else if (index != 0) {
            plist::ReportNotTaken(plist::NotTaken::OutOfRange, reading.key);
          }
        },
        KeepingOf<&LDGRAccount::selected_account_summary_, &LDGRAccount::selectedAccountSummary>()};
  }
};

constinit const LDGRAccount::StoredKey LDGRAccount::StoredKey::Make::kTable[] = {
    {Plain("name", &LDGRAccount::name_,
           "Account does not have a name in LDGRAccount:initWithDictionary",
           "Account name is in the wrong format in LDGRAccount:initWithDictionary")},
    {Unchecked<&LDGRAccount::number_>(
        "number",
        "Account does not have an identification number in LDGRAccount:initWithDictionary")},
    {Unchecked<&LDGRAccount::version_>(
        "version", "Account does not have a version in LDGRAccount:initWithDictionary")},
    {Records<&LDGRAccount::entries_>(
         "entries", "Account does not have entries in LDGRAccount:initWithDictionary",
         "Account entries are in the wrong format in LDGRAccount:initWithDictionary"),
     AccountPart::Records},
    {Records<&LDGRAccount::schedules_>(
         "schedules", "Account does not have schedules in LDGRAccount:initWithDictionary",
         "Account schedules are in the wrong format in LDGRAccount:initWithDictionary"),
     AccountPart::Records},
    {Plain("startingCheckNumber", &LDGRAccount::starting_check_number_,
           "Account does not have a starting check number in LDGRAccount:initWithDictionary",
           "Account starting check number is in the wrong format in "
           "LDGRAccount:initWithDictionary")},
    {Plain("numberCount", &LDGRAccount::number_count_), AccountPart::Records},
    {StartingBalance()},
    {Plain("password", &LDGRAccount::password_,
           "Account does not have a password in LDGRAccount:initWithDictionary",
           "Account password is in the wrong format in LDGRAccount:initWithDictionary")},
    {ActiveTypes(), AccountPart::Types},
    {Records<&LDGRAccount::inactive_types_>(
         "inactiveTypes", "No inactiveTypes defined for LDGRAccount.",
         "inactiveTypes are in the wrong format for LDGRAccount."),
     AccountPart::Types},
    {TypeNumber<&LDGRAccount::default_debit_type_>("defaultDebitType"), AccountPart::Types},
    {TypeNumber<&LDGRAccount::default_deposit_type_>("defaultDepositType"), AccountPart::Types},
    {Plain("preference_Descriptions_Style", &LDGRAccount::preference_descriptions_style_)},
    {Plain("preference_ToFrom_Style", &LDGRAccount::preference_to_from_style_)},
    {Plain("preference_Descriptions_SomeSelection",
           &LDGRAccount::preference_descriptions_some_selection_)},
    {Plain("preference_ToFrom_SomeSelection", &LDGRAccount::preference_to_from_some_selection_)},
    {Texts<&LDGRAccount::preferred_debit_descriptions_>("preferredDebitDescriptions")},
    {Texts<&LDGRAccount::preferred_deposit_descriptions_>("preferredDepositDescriptions")},
    {Texts<&LDGRAccount::preferred_transfer_descriptions_>("preferredTransferDescriptions")},
    {Texts<&LDGRAccount::preferred_tos_>("preferredTos")},
    {Texts<&LDGRAccount::preferred_froms_>("preferredFroms")},
    {Plain("statementBalance", &LDGRAccount::statement_balance_,
           "Account does not have a statementBalance in LDGRAccount:initWithDictionary",
           "Account statementBalance is in the wrong format in LDGRAccount:initWithDictionary")},
    {Summaries(), AccountPart::Records},
    {SelectedSummary(), AccountPart::Settings},
    {Plain("entryFilterType", &LDGRAccount::entry_filter_type_), AccountPart::Settings},
    {Plain("reconcileFilterType", &LDGRAccount::reconcile_filter_type_), AccountPart::Settings},
    {AnyKind<&LDGRAccount::entry_filter_data_>("entryFilterData"), AccountPart::Settings},
    {AnyKind<&LDGRAccount::reconcile_filter_data_>("reconcileFilterData"), AccountPart::Settings},
    {Plain("QIFImportEncoding", &LDGRAccount::qif_import_encoding_), AccountPart::Settings},
    {Plain("QIFImportDateFormat", &LDGRAccount::qif_import_date_format_), AccountPart::Settings},
    {Plain("QIFImportDecimalSeparator", &LDGRAccount::qif_import_decimal_separator_,
           "No %@ defined in LDGRAccount:initWithDictionary",
           "%@ is in the wrong format in LDGRAccount:initWithDictionary"),
     AccountPart::Settings},
    {Plain("QIFImportThousandsSeparator", &LDGRAccount::qif_import_thousands_separator_,
           "No %@ defined in LDGRAccount:initWithDictionary",
           "%@ is in the wrong format in LDGRAccount:initWithDictionary"),
     AccountPart::Settings},
    {Plain("QIFImportZeroAmountsAsDeposits", &LDGRAccount::qif_import_zero_amounts_as_deposits_),
     AccountPart::Settings},
    {Plain("QIFImportAllTypes", &LDGRAccount::qif_import_all_types_), AccountPart::Settings},
    {Plain("QIFImportSplitLineItems", &LDGRAccount::qif_import_split_line_items_),
     AccountPart::Settings},
    {Plain("QIFImport_SwapOptions_ToFrom", &LDGRAccount::qif_import_swap_to_from_),
     AccountPart::Settings},
    {Plain("QIFImport_SwapOptions_Type", &LDGRAccount::qif_import_swap_type_),
     AccountPart::Settings},
    {Plain("QIFImport_SwapOptions_Description", &LDGRAccount::qif_import_swap_description_),
     AccountPart::Settings},
    {Plain("textExport_ExportType", &LDGRAccount::text_export_export_type_), AccountPart::Settings},
    {Plain("textExport_Encoding", &LDGRAccount::text_export_encoding_), AccountPart::Settings},
    {Plain("lastTransferAccount", &LDGRAccount::last_transfer_account_)},
    {Plain("isLastTransferOrigin", &LDGRAccount::is_last_transfer_origin_)},
};

std::span<const LDGRAccount::StoredKey> LDGRAccount::StoredKey::Table() {
  return Make::kTable;
}

bool LDGRAccount::StoredKey::IsKnown(std::string_view key) {
  const auto table = Table();
  return std::any_of(table.begin(), table.end(), [key](const StoredKey& stored) {
    return std::visit([key](const auto& known) { return known.key == key; }, stored.entry);
  });
}

LDGRAccount::LDGRAccount(const std::optional<plist::Dictionary>& dictionary) : LDGRAccount() {
  if (!dictionary) {
    Log("Invalid theDictionary supplied to LDGRAccount:initWithDictionary");
    return;
  }
  Read(*dictionary, false);
}

std::shared_ptr<LDGRAccount> LDGRAccount::accountByConsuming(const plist::Dictionary& dictionary) {
  auto account = std::make_shared<LDGRAccount>();
  account->Read(dictionary, true);
  return account;
}

bool LDGRAccount::StoredKey::Read(const Entry& entry, LDGRAccount& account,
                                  const plist::Dictionary& dictionary, bool consume) {
  if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
    return ReadField(account, *field, dictionary);
  }
  const auto& special = std::get<Special>(entry);
  const plist::Value& value = dictionary.Get(special.key);
  if (value.IsNone()) {
    LogForKey(special.missing, special.key);
    return false;
  }
  if (special.accepts(value)) {
    special.read(account, value, {special.key, special.wrong, consume});
  } else {
    RefuseForKey(special.wrong, special.key);
  }
  return true;
}

void LDGRAccount::StoredKey::Write(const Entry& entry, const LDGRAccount& account,
                                   plist::Output& output) {
  if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
    return WriteField(account, *field, output);
  }
  const auto& special = std::get<Special>(entry);
  if (special.is_absent != nullptr && special.is_absent(account)) return;
  output.Key(special.key);
  special.write(account, output);
}

void LDGRAccount::Read(const plist::Dictionary& dictionary, bool consume) {
  std::size_t met = 0;
  for (const StoredKey& key : StoredKey::Table()) {
    if (StoredKey::Read(key.entry, *this, dictionary, consume)) ++met;
  }
  plist::ReportUnknownKeys(dictionary, met, StoredKey::IsKnown);
  SetPassword(std::string(password_));
  ForgetChanges();
}

void LDGRAccount::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  for (const StoredKey& key : StoredKey::Table()) StoredKey::Write(key.entry, *this, output);
  output.EndDictionary();
}

plist::Dictionary LDGRAccount::asDictionary() const {
  plist::TreeBuilder builder;
  WriteTo(builder);
  return builder.Take().DictionaryValue();
}

}  // namespace tallyfold
