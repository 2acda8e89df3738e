#include <algorithm>
#include <utility>
#include <variant>

#include "model/account.h"
#include "model/field_table.h"
#include "model/stored_numbers.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMissing = "No %@ defined for LDGRAccount.";
constexpr std::string_view kWrong = "%@ is in wrong format for LDGRAccount.";
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

template <typename List>
void WriteRecords(const List& list, plist::Output& output) {
  output.BeginArray();
  for (const auto& record : list) record->WriteTo(output);
  output.EndArray();
}

// How the value of a key is to be read.
struct Reading {
  std::string_view key;
  // Logged for each element of a list that is of a wrong kind; "%@" stands for the key.
  std::string_view wrong;
  // Whether the elements of a list are freed as soon as they are read.
  bool consume;

  void SkipElement() const {
    LogForKey(wrong, key);
    plist::ReportNotTaken(plist::NotTaken::Skipped, key);
  }
};

// Replaces the list by records made of the dictionaries in the array; other elements are skipped.
template <typename Record>
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
  }
}

}  // namespace

// One key of the dictionary form: stored as it stands in a member, or in a way of its own. The
// table gives the order of keys in the file, and so of what is read and logged.
struct LDGRAccount::StoredKey {
  struct Special {
    std::string_view key;
    // Logged when the key is missing or its value is not acceptable; "%@" stands for the key.
    std::string_view missing;
    std::string_view wrong;
    bool (*accepts)(const plist::Value& value);
    void (*write)(const LDGRAccount& account, plist::Output& output);
    void (*read)(LDGRAccount& account, const plist::Value& value, const Reading& reading);
    // True when there is nothing to store; without it there always is.
    bool (*is_absent)(const LDGRAccount& account) = nullptr;
  };
  using Entry = std::variant<Field<LDGRAccount>, Special>;

  static const Entry kTable[];

  static bool IsKnown(std::string_view key);

  static constexpr Entry Plain(std::string_view key, Field<LDGRAccount>::Member member,
                               std::string_view missing = kMissing,
                               std::string_view wrong = kWrong) {
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
        }};
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
                   }};
  }

  template <std::shared_ptr<LDGRAccountEntryType> LDGRAccount::*member>
  static constexpr Entry TypeNumber(std::string_view key) {
    return Special{key,
                   kMissing,
                   kWrong,
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
                   }};
  }

  template <TextList LDGRAccount::*member>
  static constexpr Entry Texts(std::string_view key) {
    return Special{key,
                   kMissing,
                   kWrong,
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
                   }};
  }

  template <plist::Value LDGRAccount::*member>
  static constexpr Entry AnyKind(std::string_view key) {
    return Special{
        key,
        kMissing,
        {},
        IsAnything,
        [](const LDGRAccount& account, plist::Output& output) { output.Write(account.*member); },
        [](LDGRAccount& account, const plist::Value& value, const Reading&) {
          account.*member = value.DeepCopy();
        },
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
                   }};
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
                   }};
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
                   }};
  }

  static constexpr Entry SelectedSummary() {
    return Special{"selectedAccountSummary",
                   kMissing,
                   kWrong,
                   IsNumber,
                   [](const LDGRAccount& account, plist::Output& output) {
                     const auto& list = account.accountSummaries();
                     const auto found =
                         std::find(list.begin(), list.end(), account.selectedAccountSummary());
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
                   }};
  }
};

constinit const LDGRAccount::StoredKey::Entry LDGRAccount::StoredKey::kTable[] = {
    Plain("name", &LDGRAccount::name_,
          "Account does not have a name in LDGRAccount:initWithDictionary",
          "Account name is in the wrong format in LDGRAccount:initWithDictionary"),
    Unchecked<&LDGRAccount::number_>(
        "number",
        "Account does not have an identification number in LDGRAccount:initWithDictionary"),
    Unchecked<&LDGRAccount::version_>(
        "version", "Account does not have a version in LDGRAccount:initWithDictionary"),
    Records<&LDGRAccount::entries_>(
        "entries", "Account does not have entries in LDGRAccount:initWithDictionary",
        "Account entries are in the wrong format in LDGRAccount:initWithDictionary"),
    Records<&LDGRAccount::schedules_>(
        "schedules", "Account does not have schedules in LDGRAccount:initWithDictionary",
        "Account schedules are in the wrong format in LDGRAccount:initWithDictionary"),
    Plain("startingCheckNumber", &LDGRAccount::starting_check_number_,
          "Account does not have a starting check number in LDGRAccount:initWithDictionary",
          "Account starting check number is in the wrong format in "
          "LDGRAccount:initWithDictionary"),
    Plain("numberCount", &LDGRAccount::number_count_),
    StartingBalance(),
    Plain("password", &LDGRAccount::password_,
          "Account does not have a password in LDGRAccount:initWithDictionary",
          "Account password is in the wrong format in LDGRAccount:initWithDictionary"),
    ActiveTypes(),
    Records<&LDGRAccount::inactive_types_>(
        "inactiveTypes", "No inactiveTypes defined for LDGRAccount.",
        "inactiveTypes are in the wrong format for LDGRAccount."),
    TypeNumber<&LDGRAccount::default_debit_type_>("defaultDebitType"),
    TypeNumber<&LDGRAccount::default_deposit_type_>("defaultDepositType"),
    Plain("preference_Descriptions_Style", &LDGRAccount::preference_descriptions_style_),
    Plain("preference_ToFrom_Style", &LDGRAccount::preference_to_from_style_),
    Plain("preference_Descriptions_SomeSelection",
          &LDGRAccount::preference_descriptions_some_selection_),
    Plain("preference_ToFrom_SomeSelection", &LDGRAccount::preference_to_from_some_selection_),
    Texts<&LDGRAccount::preferred_debit_descriptions_>("preferredDebitDescriptions"),
    Texts<&LDGRAccount::preferred_deposit_descriptions_>("preferredDepositDescriptions"),
    Texts<&LDGRAccount::preferred_transfer_descriptions_>("preferredTransferDescriptions"),
    Texts<&LDGRAccount::preferred_tos_>("preferredTos"),
    Texts<&LDGRAccount::preferred_froms_>("preferredFroms"),
    Plain("statementBalance", &LDGRAccount::statement_balance_,
          "Account does not have a statementBalance in LDGRAccount:initWithDictionary",
          "Account statementBalance is in the wrong format in LDGRAccount:initWithDictionary"),
    Summaries(),
    SelectedSummary(),
    Plain("entryFilterType", &LDGRAccount::entry_filter_type_),
    Plain("reconcileFilterType", &LDGRAccount::reconcile_filter_type_),
    AnyKind<&LDGRAccount::entry_filter_data_>("entryFilterData"),
    AnyKind<&LDGRAccount::reconcile_filter_data_>("reconcileFilterData"),
    Plain("QIFImportEncoding", &LDGRAccount::qif_import_encoding_),
    Plain("QIFImportDateFormat", &LDGRAccount::qif_import_date_format_),
    Plain("QIFImportDecimalSeparator", &LDGRAccount::qif_import_decimal_separator_,
          "No %@ defined in LDGRAccount:initWithDictionary",
          "%@ is in the wrong format in LDGRAccount:initWithDictionary"),
    Plain("QIFImportThousandsSeparator", &LDGRAccount::qif_import_thousands_separator_,
          "No %@ defined in LDGRAccount:initWithDictionary",
          "%@ is in the wrong format in LDGRAccount:initWithDictionary"),
    Plain("QIFImportZeroAmountsAsDeposits", &LDGRAccount::qif_import_zero_amounts_as_deposits_),
    Plain("QIFImportAllTypes", &LDGRAccount::qif_import_all_types_),
    Plain("QIFImportSplitLineItems", &LDGRAccount::qif_import_split_line_items_),
    Plain("QIFImport_SwapOptions_ToFrom", &LDGRAccount::qif_import_swap_to_from_),
    Plain("QIFImport_SwapOptions_Type", &LDGRAccount::qif_import_swap_type_),
    Plain("QIFImport_SwapOptions_Description", &LDGRAccount::qif_import_swap_description_),
    Plain("textExport_ExportType", &LDGRAccount::text_export_export_type_),
    Plain("textExport_Encoding", &LDGRAccount::text_export_encoding_),
    Plain("lastTransferAccount", &LDGRAccount::last_transfer_account_),
    Plain("isLastTransferOrigin", &LDGRAccount::is_last_transfer_origin_),
};

bool LDGRAccount::StoredKey::IsKnown(std::string_view key) {
  return std::any_of(std::begin(kTable), std::end(kTable), [key](const Entry& entry) {
    return std::visit([key](const auto& known) { return known.key == key; }, entry);
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

void LDGRAccount::Read(const plist::Dictionary& dictionary, bool consume) {
  std::size_t met = 0;
  for (const StoredKey::Entry& entry : StoredKey::kTable) {
    if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
      if (ReadField(*this, *field, dictionary)) ++met;
      continue;
    }
    const auto& special = std::get<StoredKey::Special>(entry);
    const plist::Value& value = dictionary.Get(special.key);
    if (value.IsNone()) {
      LogForKey(special.missing, special.key);
      continue;
    }
    ++met;
    if (special.accepts(value)) {
      special.read(*this, value, {special.key, special.wrong, consume});
    } else {
      RefuseForKey(special.wrong, special.key);
    }
  }
  plist::ReportUnknownKeys(dictionary, met, StoredKey::IsKnown);
  SetPassword(std::string(password_));
  ForgetChanges();
}

void LDGRAccount::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  for (const StoredKey::Entry& entry : StoredKey::kTable) {
    if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
      WriteField(*this, *field, output);
      continue;
    }
    const auto& special = std::get<StoredKey::Special>(entry);
    if (special.is_absent != nullptr && special.is_absent(*this)) continue;
    output.Key(special.key);
    special.write(*this, output);
  }
  output.EndDictionary();
}

plist::Dictionary LDGRAccount::asDictionary() const {
  plist::TreeBuilder builder;
  WriteTo(builder);
  return builder.Take().DictionaryValue();
}

}  // namespace tallyfold
