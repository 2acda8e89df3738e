#include "model/account_entry.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/current_account.h"
#include "model/plist_literals.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

const std::string kWrong = "theValue is in the wrong format in LDGRAccountEntry:initWithDictionary";

std::string Missing(const std::string& key) {
  return "No " + key + " defined for theDictionary in LDGRAccountEntry:initWithDictionary";
}

plist::Dictionary SplitOf(double first, double second) {
  LDGRAccountEntrySplit split;
  split.SetAmount(first, 0);
  split.SetAmount(second, 1);
  return split.asDictionary();
}

plist::Dictionary WholeRecord() {
  return Dict({{"date", 20040307},
               {"number", 12},
               {"checkNumber", 1042},
               {"entryFlags", 1 + 4 + 16 + 32 + 64 + 256},
               {"type", 3},
               {"amount", -12.345},
               {"description", "Groceries"},
               {"toFrom", "Corner Shop"},
               {"cleared", true},
               {"notes", "two bags"},
               {"transferEntry", 7},
               {"transferAccount", 2},
               {"split", SplitOf(10.0, 2.34)}});
}

TEST(Entries, AreReadFromKeysInAnyOrderAmongOthers) {
  const plist::Dictionary record = WholeRecord();
  plist::Dictionary shuffled;
  for (const plist::DictionaryItem* item = record.end(); item != record.begin();) {
    --item;
    shuffled.Set(std::string(item->key()) + "?", 1);
    shuffled.Set(item->key(), item->value());
  }
  EXPECT_EQ(LDGRAccountEntry(shuffled).asDictionary(), record);
}

TEST(Entries, LogWhatIsMissingOrWrongInTheOrderOfReading) {
  FakeAmbient ambient;
  const plist::Dictionary defaults = LDGRAccountEntry().asDictionary();
  EXPECT_EQ(defaults, Dict({{"date", 0},
                            {"number", -1},
                            {"checkNumber", -1},
                            {"entryFlags", 0},
                            {"type", -1},
                            {"amount", 0.0},
                            {"description", ""},
                            {"toFrom", ""},
                            {"cleared", false}}));

  EXPECT_EQ(LDGRAccountEntry(Dict({})).asDictionary(), defaults);
  EXPECT_EQ(ambient.log.Take(),
            (Lines{Missing("date"), Missing("number"), Missing("checkNumber"),
                   Missing("entryFlags"), Missing("description"), Missing("type"),
                   Missing("amount"), Missing("toFrom"), Missing("cleared")}));
  EXPECT_EQ(LDGRAccountEntry(std::nullopt).asDictionary(), defaults);
  EXPECT_TRUE(ambient.log.Lines().empty());

  // One wrong value at a time; numbers stand for one another, texts never for numbers.
  for (const plist::DictionaryItem& item : WholeRecord()) {
    const std::string key(item.key());
    plist::Dictionary record = WholeRecord();
    record.Set(key, item.value().IsString() ? plist::Value(5) : plist::Value("5"));
    const LDGRAccountEntry entry(record);
    const bool is_notes = key == "notes";
    EXPECT_EQ(ambient.log.Take(),
              Lines{is_notes ? "notes are in the wrong format in LDGRAccountEntry:"
                               "initWithDictionary"
                             : kWrong})
        << key;
    // The others were read all the same; the wrong one has its default or, optional, is gone.
    plist::Dictionary expected = WholeRecord();
    if (key == "transferEntry" || key == "transferAccount") {
      expected.Set(key, -1);
    } else if (key == "entryFlags") {
      expected.Set(key, 0);
      expected.Remove("transferEntry");
      expected.Remove("transferAccount");
    } else {
      expected.Set(key, defaults.Get(key));
    }
    EXPECT_EQ(entry.asDictionary(), expected) << key;
  }
}

TEST(Entries, AreCopiedDeeply) {
  const LDGRAccountEntry entry(WholeRecord());
  const auto copy = LDGRAccountEntry::entryWithEntry(&entry);
  EXPECT_EQ(copy->asDictionary(), entry.asDictionary());
  copy->GetSplit()->SetAmount(99.0, 0);
  EXPECT_EQ(entry.GetSplit()->GetTotal(), 12.34);

  const auto blank = LDGRAccountEntry::entryWithEntry(nullptr);
  EXPECT_EQ(blank->GetNumber(), 0);
  EXPECT_EQ(blank->GetCheckNumber(), 0);
  EXPECT_EQ(blank->GetType(), 0);
  EXPECT_EQ(blank->GetTransferEntry(), 0);
  EXPECT_EQ(blank->GetTransferAccount(), 0);
}

TEST(Entries, ChangeTheirFlagsOneSidedly) {
  using Entry = LDGRAccountEntry;
  const struct {
    std::int32_t before;
    void (*change)(Entry&);
    std::int32_t after;
  } cases[] = {{2 + 4 + 8 + 16 + 64, [](Entry& e) { e.SetIsDebit(true); }, 1 + 16 + 64},
               {1 + 2 + 4, [](Entry& e) { e.SetIsDebit(false); }, 2 + 4},
               {1, [](Entry& e) { e.SetIsDeposit(true); }, 3},
               {1 + 2, [](Entry& e) { e.SetIsTransfer(true); }, 1 + 2 + 4},
               {1 + 4, [](Entry& e) { e.SetIsTransferOrigin(true); }, 1 + 4 + 8},
               {4 + 8, [](Entry& e) { e.SetIsTransfer(false); }, 8},
               {1 + 32, [](Entry& e) { e.SetIsCheck(true); }, 1 + 16 + 32},
               {1 + 64, [](Entry& e) { e.SetTaxDeductible(false); }, 1}};
  for (const auto& c : cases) {
    Entry entry(Dict({{"entryFlags", c.before}}));
    c.change(entry);
    EXPECT_EQ(entry.asDictionary().Get("entryFlags"), plist::Value(c.after)) << c.before;
  }
}

TEST(Entries, RefuseNoneAndDaysBeforeAll) {
  LDGRAccountEntry entry(WholeRecord());
  entry.SetDate(-1);
  entry.SetDescription(std::nullopt);
  entry.SetToFrom(std::nullopt);
  EXPECT_EQ(entry.asDictionary(), LDGRAccountEntry(WholeRecord()).asDictionary());
  entry.SetNotes(std::nullopt);
  entry.SetSplit(nullptr);
  EXPECT_EQ(entry.GetNotes(), "");
  EXPECT_FALSE(entry.asDictionary().Has("notes") || entry.asDictionary().Has("split"));
  entry.SetAmount(1.005);
  EXPECT_EQ(entry.GetStoredAmount(), 1.01);
}

TEST(Entries, CountTheirSplitsByKind) {
  const struct {
    std::int32_t flags;
    bool has_split;
    double amount;
  } cases[] = {{1, true, -15.25}, {2, true, 15.25}, {1 + 2, true, 15.25}, {1 + 4, true, -15.25},
               {4, true, 3.0},    {0, true, 3.0},   {1, false, 3.0}};
  for (const auto& c : cases) {
    LDGRAccountEntry entry(Dict({{"entryFlags", c.flags}, {"amount", 3.0}}));
    if (c.has_split) {
      entry.SetSplit(std::make_shared<LDGRAccountEntrySplit>(SplitOf(10.0, 5.25)));
    }
    EXPECT_EQ(entry.GetAmount(), c.amount) << c.flags;
  }
}

TEST(Entries, SpeakWhatTheyHave) {
  FakeAmbient ambient;
  LDGRAccount account(Dict({}));
  const ScopedCurrentAccount current(&account);
  plist::Dictionary deposit = WholeRecord();
  deposit.Set("entryFlags", 2);
  deposit.Set("type", 99);
  deposit.Set("description", "");
  ambient.locale.short_date_format = "%e %B %Y";
  // The stored amount is spoken, not the split's.
  EXPECT_EQ(LDGRAccountEntry(deposit).asSpeakableString(),
            "7 March 2004.  Deposit in the Amount of:  -12.35 .  Type:   .  From:  Corner Shop .  "
            "Resolved .  ");
  deposit.Set("entryFlags", 4);
  EXPECT_EQ(LDGRAccountEntry(deposit).asSpeakableString(),
            "7 March 2004.  Transfer in the Amount of:  -12.35 .  Type:  Transfer .  Resolved .  ");
  EXPECT_EQ(LDGRAccountEntry(Dict({})).asSpeakableString(), "30 November -0001.  Unresolved .  ");
}

}  // namespace
}  // namespace tallyfold
