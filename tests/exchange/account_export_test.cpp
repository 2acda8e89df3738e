#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/commit_review.h"
#include "exchange/export_options.h"
#include "exchange/exported_entries.h"
#include "exchange/qif_date_formats.h"
#include "exchange/qif_import.h"
#include "exchange/qif_review.h"
#include "exchange/register_export.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/file_text.h"
#include "filters/filter.h"
#include "model/account_records.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRAccountEntryType> AddType(LDGRAccount& account, std::int32_t number,
                                              std::string_view name, bool is_deposit = false) {
  auto type = MakeType(number, name, is_deposit);
  account.AddType(type);
  return type;
}

std::shared_ptr<LDGRAccountEntry> AddEntry(LDGRAccount& account, DateNumber date, double amount,
                                           std::string_view to_from, std::string_view description,
                                           std::int32_t type) {
  auto entry = MakeEntry({.number = account.NextAvailableNumber(),
                          .date = date,
                          .amount = amount,
                          .kind = amount < 0 ? EntryFields::Debit : EntryFields::Deposit,
                          .description = description,
                          .to_from = to_from});
  entry->SetType(type);
  account.AddEntry(entry);
  return entry;
}

std::shared_ptr<LDGRAccountEntrySplit> Split(
    std::initializer_list<std::tuple<std::string_view, std::string_view, double>> lines) {
  auto split = std::make_shared<LDGRAccountEntrySplit>();
  std::size_t index = 0;
  for (const auto& [to_from, description, amount] : lines) {
    split->SetToFrom(to_from, index);
    split->SetDescription(description, index);
    split->SetAmount(amount, index++);
  }
  return split;
}

class AccountExport : public testing::Test {
 protected:
  AccountExport() {
    ambient_.clock.SetLocal({2004, 2, 1, 12, 0, 0});
    account_.SetName("Checking");
    account_.SetStartingBalance(100);
  }
  void FillFromTheBook() {
    AddType(account_, 20, "Groceries");
    AddType(account_, 21, "Salary", true);
    AddType(account_, 22, "Household");
    auto hardware = AddEntry(account_, 20040120, -1, "Hardware Store", "", 22);
    hardware->SetSplit(Split({{"Paint", "walls", 40}, {"Brushes", "", 20}}));
    AddEntry(account_, 20040115, 1200, "Employer", "January pay", 21);
    auto check = AddEntry(account_, 20040102, -45.2, "Corner Market", "Weekly shopping", 20);
    check->SetIsCheck(true);
    check->SetCheckNumber(1001);
    check->SetCleared(true);
    account_.SetStartingBalance(139.7);
  }
  static std::shared_ptr<LDGRFilter> FilterFor(std::string_view description) {
    auto filter = std::make_shared<LDGRFilter>();
    filter->AddRuleForCategory(filter_category::kDescription, FilterLogic::KeepMatching,
                               FilterQualifier::Contains, description);
    return filter;
  }

  FakeAmbient ambient_;
  LDGRAccount account_;
};

TEST_F(AccountExport, WritesTheWholeAccountAsATable) {
  FillFromTheBook();
  EXPECT_EQ(account_.asTabDelimitedStringWithOptions({}),
            FileText(TALLYFOLD_TEST_DATA "/checking.txt"));
}

TEST_F(AccountExport, WritesTheWholeAccountAsQif) {
  FillFromTheBook();
  std::string expected = FileText(TALLYFOLD_TEST_DATA "/checking.qif");
  ASSERT_FALSE(expected.empty());
  expected.replace(expected.find("T100.00"), 7, "T139.70");
  EXPECT_EQ(account_.asQIFStringWithOptions({}), expected);
}

TEST_F(AccountExport, OfAnAccountWithoutEntriesIsDatedToday) {
  ExportOptions options;
  options.date_format = "%y/%m/%d";
  EXPECT_EQ(account_.asQIFStringWithOptions(options),
            "!Account\nNChecking\nTBank\nB100.00\n^\n!Type:Bank\n"
            "D04/02/01\nMStarting Balance\nT100.00\nC*\n^\n");
  EXPECT_EQ(account_.asTabDelimitedStringWithOptions({}),
            "Date\tType\tDescription\tTo/From\tResolved\tTax-Deductible\tAmount\tKind\tCheck #\tID"
            "\tBalance\n02/01/04\t\tStarting Balance\t\tYes\t\t100.00\t\t\t\t100.00\t\n");
}

TEST_F(AccountExport, FollowsItsOptionsAndWritesOddFieldsAsTheyStand) {
  auto debit = AddEntry(account_, 20040110, -5, "a\tb", "x", 99);
  debit->SetCheckNumber(0);
  debit->SetCleared(true);
  debit->SetSplit(Split({{"", "", -3}, {"", "", 0}, {"keep", "", 0}, {"", "", 8}}));
  ExportOptions options;
  options.line_ending = "\r\n";
  options.resolved_means_reconciled = true;
  options.export_filter = FilterFor("X");
  EXPECT_EQ(account_.asQIFStringWithOptions(options),
            "!Account\r\nNChecking\r\nTBank\r\nB95.00\r\n^\r\n!Type:Bank\r\n"
            "D01/10/2004\r\nN0\r\nPa\tb\r\nMx\r\nT-5.00\r\nCX\r\nL\r\n"
            "Skeep\r\nE\r\n$0.00\r\nS\r\nE\r\n$8.00\r\n^\r\n");
}

TEST_F(AccountExport, WritesAShownEntryALineWithTheBalanceSoFar) {
  FillFromTheBook();
  AddEntry(account_, 20040121, -7, "Shop", "Pay back", -1)->SetTaxDeductible(true);
  ExportOptions options;
  options.export_filter = FilterFor("pay");
  const std::string text = account_.asTabDelimitedStringWithOptions(options);
  EXPECT_EQ(text.substr(text.find('\n') + 1),
            "01/15/04\tSalary\tJanuary pay\tEmployer\tNo\tNo\t1200.00\tDeposit\t\t2\t1339.70\n"
            "01/21/04\t\tPay back\tShop\tNo\tYes\t-7.00\tDebit\t\t4\t1332.70\n");
}

// What a QIF file carries of an entry and what it does not.
TEST_F(AccountExport, IsReadBackWithinWhatTheFormatCarries) {
  AddType(account_, 20, "Groceries");
  struct Case {
    std::string_view name;
    void (*change)(LDGRAccountEntry&);
    // Whether the change survives.
    bool carried;
  };
  const Case cases[] = {
      {"plain", [](LDGRAccountEntry&) {}, true},
      {"other texts", [](LDGRAccountEntry& e) { e.SetDescription("Bücher, Ω"); }, true},
      {"cleared", [](LDGRAccountEntry& e) { e.SetCleared(true); }, true},
      {"check",
       [](LDGRAccountEntry& e) {
         e.SetIsCheck(true);
         e.SetCheckNumber(77);
       },
       true},
      {"split",
       [](LDGRAccountEntry& e) {
         e.SetToFrom("Split");
         e.SetAmount(-7);
         e.SetSplit(Split({{"Shop", "", 4}, {"", "glue", 3}}));
       },
       true},
      {"stored amount beside a split",
       [](LDGRAccountEntry& e) {
         e.SetToFrom("Split");
         e.SetSplit(Split({{"Shop", "", 4}}));
       },
       false},
      {"payee beside a split",
       [](LDGRAccountEntry& e) {
         e.SetAmount(-4);
         e.SetSplit(Split({{"Shop", "", 4}}));
       },
       false},
      {"no date", [](LDGRAccountEntry& e) { e.SetDate(0); }, false},
      {"notes", [](LDGRAccountEntry& e) { e.SetNotes("n"); }, false},
      {"tax mark", [](LDGRAccountEntry& e) { e.SetTaxDeductible(true); }, false},
      {"line end in a text", [](LDGRAccountEntry& e) { e.SetDescription("a\nb"); }, false},
      {"record end in a text", [](LDGRAccountEntry& e) { e.SetDescription("a^b"); }, false},
      {"check without a number",
       [](LDGRAccountEntry& e) {
         e.SetIsCheck(true);
         e.SetCheckNumber(0);
       },
       false},
      {"number of what is no check", [](LDGRAccountEntry& e) { e.SetCheckNumber(5); }, false},
      {"type of another account", [](LDGRAccountEntry& e) { e.SetType(99); }, false},
      {"debit that brings money", [](LDGRAccountEntry& e) { e.SetAmount(3); }, false},
      {"transfer",
       [](LDGRAccountEntry& e) {
         e.SetIsDebit(false);
         e.SetIsTransfer(true);
       },
       false},
      {"split of ten lines",
       [](LDGRAccountEntry& e) {
         e.SetToFrom("Split");
         e.SetAmount(-10);
         auto split = std::make_shared<LDGRAccountEntrySplit>();
         for (std::size_t line = 0; line < 10; ++line) split->SetAmount(1, line);
         e.SetSplit(split);
       },
       false},
      {"split of both signs",
       [](LDGRAccountEntry& e) {
         e.SetToFrom("Split");
         e.SetAmount(-1);
         e.SetSplit(Split({{"a", "", 2}, {"b", "", -1}}));
       },
       false},
      {"split line of a negative amount alone",
       [](LDGRAccountEntry& e) {
         e.SetToFrom("Split");
         e.SetAmount(-1);
         e.SetSplit(Split({{"a", "", 2}, {"", "", -1}}));
       },
       false},
  };
  auto entry = AddEntry(account_, 20040229, -12.34, "Shop", "Bread", 20);
  const plist::Dictionary plain = entry->asDictionary();
  for (const Case& each : cases) {
    for (const QifDateFormat& format : kQifDateFormats) {
      auto changed = std::make_shared<LDGRAccountEntry>(plain);
      each.change(*changed);
      account_.SetEntries({changed});
      ExportOptions options;
      options.date_format = format.format;
      options.export_filter = FilterFor("");
      LDGRQIFImport import(account_.asQIFStringWithOptions(options));
      QifOptions read_with;
      read_with.date_format = format.format;
      import.SetOptions(read_with);
      const QifResult result = import.Parse();
      LDGRAccount other;
      AddType(other, 20, "Groceries");
      CommitReview(QifReview(result, result.entries, other), other, false);
      bool carried = other.GetEntries().size() == 1;
      if (carried) {
        changed->SetNumber(other.GetEntries()[0]->GetNumber());
        carried = other.GetEntries()[0]->asDictionary() == changed->asDictionary();
      }
      EXPECT_EQ(carried, each.carried) << each.name << " in " << format.format;
    }
  }
}

// Generated accounts through files of every encoding, with the texts that it can hold.
TEST_F(AccountExport, IsReadBackFromFilesInEveryEncodingAndDateFormat) {
  const IconvEncodings encodings;
  FakeFileSystem files;
  const std::int32_t food = AddType(account_, 20, "Essen & Trinken")->GetNumber();
  const std::int32_t pay = AddType(account_, 21, "Lohn", true)->GetNumber();
  for (const TextEncoding encoding : encodings.List()) {
    std::vector<std::string> texts;
    for (const char* text : {"", "Bread", "Grün", "Łódź", "Ωμέγα", "Хлеб", "お茶", "İzmir", "🍞"}) {
      if (encodings.Decode(*encodings.Encode(text, encoding), encoding) == text) {
        texts.emplace_back(text);
      }
    }
    std::minstd_rand random(static_cast<unsigned>(texts.size()));
    const auto pick = [&](std::size_t count) { return random() % count; };
    account_.SetEntries({});
    for (int i = 0; i < 25; ++i) {
      const auto day =
          static_cast<DateNumber>((1969 + pick(100)) * 10000 + (1 + pick(12)) * 100 + 1 + pick(28));
      const double amount = static_cast<double>(pick(10'000'000)) / 100.0 + 0.01;
      const bool is_debit = pick(3) != 0;
      auto entry = AddEntry(account_, day, is_debit ? -amount : amount, texts[pick(texts.size())],
                            texts[pick(texts.size())], is_debit ? food : pay);
      entry->SetCleared(pick(2) == 0);
      entry->SetIsCheck(is_debit && pick(4) == 0);
      if (entry->IsCheck()) entry->SetCheckNumber(static_cast<std::int32_t>(1 + pick(99999)));
    }
    account_.SetEntries(ExportedEntries(account_, {}));
    for (const QifDateFormat& format : kQifDateFormats) {
      ExportOptions options;
      options.date_format = format.format;
      options.export_filter = FilterFor("");
      const auto bytes = encodings.Encode(account_.asQIFStringWithOptions(options), encoding);
      files.AddFile("/a.qif", *bytes);
      auto import = LDGRQIFImport::importWithContentsOfFile(
          "/a.qif", static_cast<std::int32_t>(encoding), files, encodings);
      import.SetDateFormat(format.format);
      const QifResult result = import.Parse();
      LDGRAccount other;
      AddType(other, 20, "Essen & Trinken");
      AddType(other, 21, "Lohn", true);
      CommitReview(QifReview(result, result.entries, other), other, false);
      ASSERT_EQ(other.GetEntries().size(), account_.GetEntries().size());
      for (std::size_t i = 0; i < other.GetEntries().size(); ++i) {
        auto& read = *other.GetEntries()[i];
        read.SetNumber(account_.GetEntries()[i]->GetNumber());
        EXPECT_EQ(read.asDictionary(), account_.GetEntries()[i]->asDictionary())
            << encodings.Name(encoding) << ' ' << format.format << " row " << i;
      }
    }
  }
}

TEST(RowsForPrograms, AreWholeWhateverTheTextsHold) {
  FakeAmbient ambient;
  const auto account = std::make_shared<LDGRAccount>();
  account->SetName("A, \"B\"");
  const struct {
    std::string_view description;
    double amount;
    std::string csv;
    std::string json;
  } cases[] = {
      {"plain", -1.5, "plain,,-1.50,", "\"plain\",\"to_from\":\"\",\"amount\":-1.50,"},
      {"a\r\nb", 0.0, "\"a\r\nb\",,0.00,",
       "\"a\\u000d\\u000ab\",\"to_from\":\"\",\"amount\":0.00,"},
      {"\\ \"", 2, "\"\\ \"\"\",,2.00,", "\"\\\\ \\\"\",\"to_from\":\"\",\"amount\":2.00,"},
      {"\u202E\u2028\x1B", 3, "\u202E\u2028\x1B,,3.00,",
       "\"\\u202e\\u2028\\u001b\",\"to_from\":\"\",\"amount\":3.00,"},
      {"八百屋", std::numeric_limits<double>::infinity(), "八百屋,,,",
       "\"八百屋\",\"to_from\":\"\",\"amount\":null,"},
  };
  for (const auto& c : cases) {
    const auto entry = AddEntry(*account, 20260302, c.amount, "", c.description, -1);
    const ExportedRow row[] = {{account, entry}};
    const std::string csv = RowsAsCsv(row);
    EXPECT_NE(csv.find("\"A, \"\"B\"\"\"," + std::to_string(entry->GetNumber()) + ",2026-03-02,"),
              std::string::npos);
    EXPECT_NE(csv.find(",," + c.csv), std::string::npos) << csv;
    EXPECT_NE(RowsAsJson(row).find("\"description\":" + c.json), std::string::npos)
        << RowsAsJson(row);
  }
  EXPECT_EQ(RowsAsJson({}), "[\n]\n");
}

}  // namespace
}  // namespace tallyfold
