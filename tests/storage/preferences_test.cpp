#include "storage/preferences.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <vector>

#include "fakes/fake_ambient.h"
#include "model/type_handover.h"
#include "plist/reader.h"
#include "plist/writer.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

plist::Dictionary ParsedFile(const std::string& content) {
  return plist::Read("<plist><dict>" + content + "</dict></plist>").value.DictionaryValue();
}

// "key=value" for each key in order; reals as the 32-bit numbers they are read into.
std::string Listing(const plist::Dictionary& dictionary) {
  std::string listing;
  for (const plist::DictionaryItem& item : dictionary) {
    const plist::Value& value = item.value();
    listing.append(listing.empty() ? "" : " ").append(item.key()).append("=");
    if (value.kind() == plist::Kind::Real) {
      char digits[32];
      const auto number = static_cast<float>(value.DoubleValue());
      listing.append(digits, std::to_chars(digits, std::end(digits), number).ptr).append("f");
    } else if (value.kind() == plist::Kind::Boolean) {
      listing += value.BooleanValue() ? "true" : "false";
    } else {
      listing += value.IsString()  ? '"' + std::string(value.StringValue()) + '"'
                 : value.IsArray() ? "[]"
                                   : std::to_string(value.IntegerValue());
    }
  }
  return listing;
}

TEST(Preferences, AreStoredUnderTheirNamesInTheirOrderWithTheirDefaults) {
  FakeAmbient ambient;
  ambient.locale.default_encoding = 30;
  EXPECT_EQ(
      Listing(LDGRPreferences().asDictionary()),
      "version=2 backupInterval=7 dateFormat=0 amountFormat=0 showAccountsDrawer=true "
      "entryRemoveConfirm=true italicizeFutureEntries=true scheduleRemoveConfirm=true "
      "useEllipses=false numberChecksAutomatically=true debitColor_Red=1f debitColor_Green=0.1882f "
      "debitColor_Blue=0.1608f debitColor_Alpha=1f depositColor_Red=0.2549f "
      "depositColor_Green=0.6392f depositColor_Blue=0.0039f depositColor_Alpha=1f "
      "transferColor_Red=0f transferColor_Green=0.3922f transferColor_Blue=0.9098f "
      "transferColor_Alpha=1f entryFont=\"Sans\" entryFontSize=11 accountPreferences=[] "
      "selectedAccountNumber=-1 accountListSortDescending=false accountListSortKey=\"accounts\" "
      "showCurrencySymbol=true balanceMode=0 saveFilterSettings=false liveUpdatingFilters=true "
      "checkForUpdates=false selectWhichFieldFirstWhenAddingEntries=0 "
      "selectWhichFieldFirstWhenChangingEntries=1 defaultDateWhenAddingEntries=0 "
      "scheduleReminderInterval=900 QIFExportDateFormat=\"%m/%d/%y\" QIFExportAccount=-5 "
      "QIFExportEncoding=30 speakEntriesStyle=0 speakEntryAmounts=false "
      "pauseBetweenSpokenEntries=1.8f accountsDrawerWidth=-1f accountsDrawerPreferredEdge=2 "
      "scheduleLookAhead=1 scheduleLookAheadType=0 scheduleReminderBalanceMode=2");
}

TEST(Preferences, LogEachMissingKeyAndEachWrongKindAndKeepItsDefault) {
  FakeAmbient ambient;
  const plist::Dictionary whole = LDGRPreferences().asDictionary();
  for (const plist::DictionaryItem& item : whole) {
    const std::string key(item.key());
    SCOPED_TRACE(key);
    plist::Dictionary dictionary = whole.DeepCopy();
    dictionary.Remove(key);
    EXPECT_EQ(LDGRPreferences(dictionary).asDictionary(), whole);
    EXPECT_EQ(ambient.log.Take(), Lines{"No " + key + " defined for LDGRPreferences."});

    std::vector<plist::Value> wrong = {plist::Dictionary(),
                                       plist::Value::Opaque(plist::Kind::Date, "2007"),
                                       plist::Value::Opaque(plist::Kind::Data, "AA==")};
    if (!item.value().IsString()) wrong.emplace_back("1");
    if (!item.value().IsNumber()) wrong.emplace_back(1);
    if (!item.value().IsArray()) wrong.emplace_back(plist::Array());
    for (const plist::Value& value : wrong) {
      dictionary.Set(key, value);
      EXPECT_EQ(LDGRPreferences(dictionary).asDictionary(), whole);
      EXPECT_EQ(ambient.log.Take(), Lines{key + " is in wrong format for LDGRPreferences."});
    }
  }
}

TEST(Preferences, AreBroughtToTheCurrentVersion) {
  const std::string old_keys =
      "<key>dateFormat</key><integer>2</integer><key>types</key><array><string>a</string></array>"
      "<key>accountPreferences</key><array><string>x</string><dict><key>tables</key><array>"
      "<dict><key>selectedFilterDictionary</key><dict/><key>selectedRow</key><integer>1</integer>"
      "</dict><true/></array></dict></array>";
  struct {
    const char* version;
    int date_format;
    bool types_handed_over;
    bool filter_removed;
  } const cases[] = {
      {"", 0, true, true},
      {"<integer>-3</integer>", 0, true, true},
      {"<integer>0</integer>", 2, true, true},
      {"<string>none</string>", 2, true, true},
      {"<integer>1</integer>", 2, false, true},
      {"<integer>2</integer>", 2, false, false},
      {"<integer>3</integer>", 2, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.version);
    TypeHandOver().Clear();
    const std::string version =
        *c.version == '\0' ? "" : std::string("<key>version</key>") + c.version;
    const plist::Dictionary old = ParsedFile(old_keys + version);
    const plist::Dictionary before = old.DeepCopy();
    const plist::Dictionary updated = LDGRPreferences::UpdatePreferencesDictionary(old);
    EXPECT_EQ(updated.Get("version"), plist::Value(2));
    EXPECT_EQ(updated.Get("dateFormat"), plist::Value(c.date_format));
    EXPECT_EQ(TypeHandOver().Has("types"), c.types_handed_over);
    EXPECT_FALSE(TypeHandOver().Has("inactiveTypes"));
    const plist::Dictionary table = updated.Get("accountPreferences")
                                        .ArrayValue()
                                        .At(1)
                                        .DictionaryValue()
                                        .Get("tables")
                                        .ArrayValue()
                                        .At(0)
                                        .DictionaryValue();
    EXPECT_NE(table.Has("selectedFilterDictionary"), c.filter_removed);
    EXPECT_TRUE(table.Has("selectedRow"));
    EXPECT_EQ(old, before);
  }
  TypeHandOver().Clear();
}

TEST(Preferences, ReadTheViewsOfAccountsAndSkipWhatIsNone) {
  FakeAmbient ambient;
  plist::Dictionary dictionary = LDGRPreferences().asDictionary();
  plist::Array list;
  list.Append(1);
  list.Append(LDGRAccountPreferences().asDictionary());
  list.Append("x");
  dictionary.Set("accountPreferences", list);
  LDGRPreferences preferences(dictionary);
  const std::string wrong = "accountPreferences is in wrong format for LDGRPreferences.";
  EXPECT_EQ(ambient.log.Take(), (Lines{wrong, wrong}));
  EXPECT_EQ(preferences.GetAccountPreferences().size(), 1U);

  const auto made = preferences.GetPreferencesForAccountNumber(4);
  EXPECT_EQ(made->GetAccountNumber(), 4);
  EXPECT_EQ(preferences.GetPreferencesForAccountNumber(4), made);
  EXPECT_EQ(preferences.GetAccountPreferences().size(), 2U);
  preferences.RemovePreferencesForAccountNumber(4);
  EXPECT_EQ(preferences.GetAccountPreferences().size(), 1U);
}

TEST(Preferences, CanBeSetByName) {
  LDGRPreferences preferences;
  struct {
    const char* name;
    plist::Value value;
    plist::Value kept;  // none where it is refused
  } const cases[] = {
      {"backupInterval", 3, 3},
      {"showCurrencySymbol", 0, false},
      {"scheduleLookAhead", 1e300, 2147483647},
      {"entryFontSize", std::nan(""), {}},
      {"backupInterval", "4", {}},
      {"entryFont", 4, {}},
      {"backupInterval", {}, {}},
      {"version", 1, {}},
      {"accountPreferences", "x", {}},
      {"nothing", 1, {}},
  };
  for (const auto& c : cases) {
    EXPECT_NE(preferences.SetFieldValue(c.name, c.value), c.kept.IsNone()) << c.name;
    if (c.kept.IsNone()) continue;
    EXPECT_EQ(preferences.FieldValue(c.name), c.kept) << c.name;
  }
  EXPECT_TRUE(preferences.FieldValue("nothing").IsNone());
}

TEST(Preferences, ResetOfAppearanceBlackensDebitsAndDepositsAlone) {
  LDGRPreferences preferences;
  std::string listing = Listing(preferences.asDictionary());
  for (const std::string color : {"debitColor", "depositColor"}) {
    for (const std::string part : {"_Red=", "_Green=", "_Blue="}) {
      const std::size_t start = listing.find(color + part) + (color + part).size();
      listing.replace(start, listing.find(' ', start) - start, "0f");
    }
  }
  preferences.SetDateFormat(2);
  preferences.SetAmountFormat(1);
  preferences.SetEntryRemoveConfirm(false);
  preferences.SetDebitColor_Alpha(0.5F);
  preferences.DefaultAppearanceSettings();
  EXPECT_EQ(Listing(preferences.asDictionary()), listing);
}

}  // namespace
}  // namespace tallyfold
