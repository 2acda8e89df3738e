#include "exchange/qif_import.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exchange/qif_date_formats.h"
#include "exchange/qif_fields.h"
#include "exchange/qif_hints.h"
#include "exchange/qif_review.h"
#include "exchange/qif_simple_converter.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "model/account.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

QifResult Parsed(std::string_view text, QifOptions options = {}) {
  LDGRQIFImport import(text);
  import.SetOptions(std::move(options));
  return import.Parse();
}

// What was read, a word each in the order of the record.
std::string Told(const QifEntry& entry) {
  std::string told = entry.is_deposit ? "deposit" : "debit";
  if (entry.date) told += " D" + std::to_string(*entry.date);
  if (entry.amount) told += " T" + std::to_string(*entry.amount).substr(0, 8);
  if (entry.to_from) told += " P" + *entry.to_from;
  if (entry.description) told += " M" + *entry.description;
  if (entry.type) told += " L" + *entry.type;
  if (entry.is_cleared) told += " C";
  if (entry.number) told += " N" + std::to_string(*entry.number);
  for (const QifSplitLine& line : entry.splits) {
    told += " [" + line.to_from + "|" + line.description + "|" + line.amount + "]";
  }
  return told;
}

std::string Told(const QifEntryList& entries) {
  std::string told;
  for (const auto& entry : entries) told += Told(*entry) + '\n';
  return told;
}

std::vector<std::string> NamesIn(const QifResult& result) {
  std::vector<std::string> names;
  for (const QifAccount& account : result.accounts) names.push_back(account.name);
  return names;
}

TEST(QifDays, AreReadInEachOfTheTwelveFormats) {
  struct Case {
    std::string_view format;
    std::string_view with_separators;
    std::string_view without;
  };
  const Case cases[] = {
      {"%m/%d/%y", "3/ 7'04", "030704"},      {"%m/%y/%d", "3/04/7", "030407"},
      {"%d/%m/%y", "7.3.04", "070304"},       {"%d/%y/%m", "7-04-3", "070403"},
      {"%y/%d/%m", "04/7/3", "040703"},       {"%y/%m/%d", "'04 (3) 7", "040307"},
      {"%m/%d/%Y", "03/07/2004", "03072004"}, {"%m/%Y/%d", "3/2004/7", "03200407"},
      {"%d/%m/%Y", "7/3' 2004", "07032004"},  {"%d/%Y/%m", "7/2004/3", "07200403"},
      {"%Y/%d/%m", "2004|7|3", "20040703"},   {"%Y/%m/%d", "2004-03-07", "20040307"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(QifDay(each.with_separators, each.format), 20040307) << each.format;
    EXPECT_EQ(QifDay(each.without, each.format), 20040307) << each.format;
  }
}

TEST(QifDays, ThatCannotBeReadAreZeroAndYearsFollowTheFormat) {
  struct Case {
    std::string_view text;
    std::string_view format;
    DateNumber day;
  };
  const Case cases[] = {
      {"1/2", "%m/%d/%y", 0},
      {"", "%m/%d/%y", 0},
      {"13/2/04", "%m/%d/%y", 0},
      {"2/30/04", "%m/%d/%y", 0},
      {"2/29/04", "%m/%d/%y", 20040229},
      {"12345", "%m/%d/%y", 0},
      {"010204123", "%m/%d/%y", 0},
      {"a/b/c", "%m/%d/%y", 0},
      {"1/2/69", "%m/%d/%y", 19690102},
      {"1/2/68", "%m/%d/%y", 20680102},
      {"1/2/1904", "%m/%d/%y", 20040102},  // the last two digits alone count
      {"1/2/104", "%m/%d/%Y", 1040102},    // the year is literal
      {"1/2/99999999999999999999", "%m/%d/%Y", 0},
      {"1/2/2004/5", "%m/%d/%Y", 20040102},
  };
  for (const Case& each : cases) EXPECT_EQ(QifDay(each.text, each.format), each.day) << each.text;
}

TEST(QifDays, KnowTheirFormatsByTagWithOneFallback) {
  EXPECT_EQ(QifDateFormatForTag(15), "%Y/%m/%d");
  for (const std::int32_t unknown : {-1, 6, 9, 16}) {
    EXPECT_EQ(QifDateFormatForTag(unknown), "%m/%y/%d");
  }
  EXPECT_EQ(QifDateFormatTag("%d/%Y/%m"), 13);
  EXPECT_EQ(QifDateFormatTag("%e"), std::nullopt);
}

TEST(QifAmounts, AreCleanedAndReadAsFarAsTheyGo) {
  struct Case {
    std::string_view text;
    std::string_view decimal;
    std::string_view thousands;
    double amount;
  };
  const std::string digits(400, '9');
  const Case cases[] = {
      {"-1,234.50", ".", ",", -1234.5}, {"1.234,56", ",", ".", 1234.56},
      {"$ (12.00)", ".", ",", 12.0},    {"", ".", ",", 0.0},
      {"--5", ".", ",", 0.0},           {"1.2.3", ".", ",", 1.2},
      {"12-", ".", ",", 12.0},          {" +5", ".", ",", 5.0},
      {"1 234", "", "", 1234.0},        {"EUR 7", ".", ",", 7.0},
      {digits, ".", ",", 0.0},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(LeadingAmount(TweakAmountString(each.text, each.decimal, each.thousands)),
              each.amount)
        << each.text;
  }
}

TEST(QifRecords, GiveTheFieldsOfTheirFirstLines) {
  struct Case {
    std::string_view record;
    std::string_view told;
  };
  const Case cases[] = {
      {"\rD1/ 2'04\rT-1,234.50\rPCorner Market\rMWeekly\rLGroceries\rC*\rN1001",
       "debit D20040102 T-1234.50 PCorner Market MWeekly LGroceries C N1001"},
      {"\rD\rD1/2/04\rT5", "deposit T5.000000"},  // an empty first line hides the second
      {"\rPone\rPtwo", "debit Pone"},
      {"\rT0", "deposit T0.000000"},
      {"\rC", "debit C"},
      {"\rNATM", "debit N0"},
      {"\rN2147483647", "debit"},
      {"\rN99999999999", "debit"},
      {"\rN-7x", "debit N-7"},
      {"Dnot behind a line end\rXunknown\rzodd", "debit"},
      {"\rT-5\rSPaint\rEwalls\r$-3.00\rSBrush\rE\r$-2",
       "debit T-5.00000 [Paint|walls|3.00] [Brush||2]"},
      {"\rT5\r$3\r$2\rEa\rEb", "deposit T5.000000 [|a|3] [|b|2]"},
      {"\rT5\rSa\r$-10.00\rSb\r$5.00", "deposit T5.000000"},  // mixed signs
      {"\rT5\rSa\r$3\r$2", "deposit T5.000000"},              // one to/from for two amounts
      {"\rT5\rSa\rEb", "deposit T5.000000"},                  // no amounts
  };
  LDGRQIFImport import{std::string_view()};
  for (const Case& each : cases) {
    const auto entry = import.EntryStringToEntry(each.record);
    ASSERT_TRUE(entry) << each.record;
    EXPECT_EQ(Told(*entry), each.told) << each.record;
  }
  EXPECT_FALSE(import.EntryStringToEntry("\r\r"));
  EXPECT_FALSE(import.EntryStringToEntry(""));
}

TEST(QifRecords, SendPayeeMemoAndCategoryWhereTheOptionsSay) {
  struct Case {
    std::int32_t type, to_from, description;  // destinations of L, P and M
    std::string_view told;
  };
  const Case cases[] = {
      {0, 1, 2, "debit Pp Mm Ll"}, {0, 2, 1, "debit Pm Mp Ll"}, {1, 0, 2, "debit Pl Mm Lp"},
      {1, 1, 1, "debit Pl"},       {9, 1, 1, "debit Pm"},       {-1, -1, -1, "debit"},
  };
  for (const Case& each : cases) {
    QifOptions options;
    options.swap_type = each.type;
    options.swap_to_from = each.to_from;
    options.swap_description = each.description;
    EXPECT_EQ(Told(Parsed("Pp\nMm\nLl\n^", options).entries), std::string(each.told) + '\n');
  }
}

TEST(QifFiles, AreReadWhateverTheirHeadersAndLineEnds) {
  struct Case {
    std::string_view text;
    std::string_view told;
  };
  const Case cases[] = {
      {"", ""},
      {"^", ""},
      {"!Type:Bank\n", ""},
      {"!Type:Bank\nT1\n^\nT2\n", "deposit T1.000000\n"},  // no end to the second
      {"!Type:Bank\rT1\r^\rT2\r^\r", "deposit T1.000000\ndeposit T2.000000\n"},
      {"!Type:Bank\r\nT1\r\n^\r\n", "deposit T1.000000\n"},
      {"\xEF\xBB\xBF!Type:Bank\nT1\n^\n", "deposit T1.000000\n"},
      {"T1\n^\n", "deposit T1.000000\n"},
      {"!Type: bank \nT1\n^\n!Type:Invst\nT2\n^\n!Type:Oth L\nT3\n^\n",
       "deposit T1.000000\ndeposit T3.000000\n"},
      {"!Option:AutoSwitch\n!Account\nNGhost\n^\n!Clear:AutoSwitch\n!Type:Cash\nT1\n^\n",
       "deposit T1.000000\n"},
  };
  for (const Case& each : cases) EXPECT_EQ(Told(Parsed(each.text).entries), each.told) << each.text;
}

TEST(QifFiles, WithoutTextOrWithAnUnendedListOfAccountsAreErrors) {
  FakeAmbient ambient;
  EXPECT_EQ(LDGRQIFImport(std::nullopt).GetError(), LDGRQIFImport::kNoText);
  LDGRQIFImport import("!Type:Bank\nT1\n^\n!Option:AutoSwitch\n!Account\n");
  EXPECT_EQ(import.GetError(), LDGRQIFImport::kUnendedAutoSwitch);
  EXPECT_TRUE(import.Entries().empty());
  EXPECT_EQ(ambient.log.Take(),
            std::vector<std::string>{
                "No end to !Option:AutoSwitch tag in [LDGRQIFImport SetDataString:]."});
  import.SetDataString("T1\n^");
  EXPECT_EQ(import.GetError(), LDGRQIFImport::kNone);
  EXPECT_EQ(import.Entries().size(), 1U);
}

TEST(QifFiles, AreDecodedAsToldElseByWhatTheyLookLike) {
  struct Case {
    std::string_view name;
    std::string bytes;
    TextEncoding told;
    std::string payee;
    TextEncoding read;
    std::size_t replaced = 0;
  };
  const auto file = [](std::string_view payee) {
    return "!Type:Bank\nP" + std::string(payee) + "\n^\n";
  };
  const auto wide = [](std::string bytes, bool odd) {
    for (const char16_t letter : std::u16string_view(u"!Type:Bank\nPŁódź\n^\n")) {
      bytes += {static_cast<char>(letter & 0xFF), static_cast<char>(letter >> 8)};
    }
    return odd ? bytes + 'x' : bytes;
  };
  const std::string mark = "\xFF\xFE";
  const Case cases[] = {
      {"as told", file("T\xFCr"), TextEncoding::Latin1, "Tür", TextEncoding::Latin1},
      {"UTF-8 though told otherwise", file("Tür"), TextEncoding::Ascii, "Tür", TextEncoding::Utf8},
      {"no UTF-8", file("T\xFCr"), TextEncoding::Utf8, "Tür", TextEncoding::Windows1252},
      {"bytes without a character", file("T\xFCr\x81\x9D!"), TextEncoding::Utf8, "Tür\uFFFD\uFFFD!",
       TextEncoding::Windows1252, 2},
      {"the same for Windows-1252", file("\x90 T\xFCr"), TextEncoding::Windows1252, "\uFFFD Tür",
       TextEncoding::Windows1252, 1},
      {"more characters than bad bytes", file("Tür für \xFC"), TextEncoding::Utf8, "Tür für \uFFFD",
       TextEncoding::Utf8, 1},
      {"as many of them", file("Tür \xFC"), TextEncoding::Utf8, "TÃ¼r ü",
       TextEncoding::Windows1252},
      {"a character cut short", file("Łódź \xE2\x82"), TextEncoding::Utf8, "Łódź \uFFFD",
       TextEncoding::Utf8, 2},
      {"by its mark", wide(mark, false), TextEncoding::Utf8, "Łódź", TextEncoding::Utf16},
      {"by its mark before what would do", wide(mark, false), TextEncoding::Latin1, "Łódź",
       TextEncoding::Utf16},
      {"of odd length", wide(mark, true), TextEncoding::MacRoman, "Łódź", TextEncoding::Utf16},
      {"of odd length as told", wide(mark, true), TextEncoding::Utf16, "Łódź", TextEncoding::Utf16},
      {"of odd length without a mark", wide("", true), TextEncoding::Utf16LittleEndian, "Łódź",
       TextEncoding::Utf16LittleEndian},
      {"of odd length but not wide", file("Uneven"), TextEncoding::Utf16, "Uneven",
       TextEncoding::Utf8},
      {"mark of UTF-8 for Latin 1", "\xEF\xBB\xBFPDoor\n^", TextEncoding::Latin1, "Door",
       TextEncoding::Latin1},
      {"mark of UTF-8 for Mac", "\xEF\xBB\xBFPDoor\n^", TextEncoding::MacRoman, "Door",
       TextEncoding::MacRoman},
      {"no such encoding", file("Tür"), static_cast<TextEncoding>(99), "Tür", TextEncoding::Utf8},
      {"NUL and other control characters", file(std::string("D\0o\x1Ao\x01r", 7)),
       TextEncoding::Utf8, "Door", TextEncoding::Utf8},
  };
  const IconvEncodings encodings;
  FakeFileSystem files;
  for (const Case& each : cases) {
    files.AddFile("/a.qif", each.bytes);
    const auto import = LDGRQIFImport::importWithContentsOfFile(
        "/a.qif", static_cast<std::int32_t>(each.told), files, encodings);
    EXPECT_EQ(Told(import.Entries()), "debit P" + each.payee + "\n") << each.name;
    EXPECT_EQ(import.Reading().encoding, each.read) << each.name;
    EXPECT_EQ(import.Reading().replaced_bytes, each.replaced) << each.name;
  }
}

// Whatever is large or broken is read in one pass.
TEST(QifFiles, OfBadSizesAndShapesAreReadWhole) {
  const auto repeated = [](std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
  };
  std::string noise;
  for (std::uint32_t state = 1; noise.size() < 1'000'000; state = state * 1664525 + 1013904223) {
    noise += static_cast<char>(state >> 24U);
  }
  struct Case {
    std::string_view name;
    std::string text;
    std::size_t entries;
    std::size_t accounts;
  };
  const Case cases[] = {
      {"50,000 accounts of one name", repeated("!Account\nNa\n^\n!Type:Bank\nT1\n^\n", 50'000),
       50'000, 50'000},
      {"50,000 accounts of shares", repeated("!Account\nNa\n^\n!Type:Invst\nT1\n^\n", 50'000), 0,
       0},
      {"a million split lines", "!Type:Bank\nT1\n" + repeated("Sa\n", 1'000'000) + "^\n", 1, 0},
      {"a million split amounts", "!Type:Bank\nT1\n" + repeated("Sa\n$1\n", 500'000) + "^\n", 1, 0},
      {"only ends", repeated("^", 1'000'000), 0, 0},
      {"only headers", repeated("!Type:Bank\n", 300'000), 0, 0},
      {"a long amount", "T" + std::string(400, '9') + "." + std::string(400, '9') + "\n^", 1, 0},
      {"noise", noise, LDGRQIFImport(noise).Entries().size(), 0},
  };
  for (const Case& each : cases) {
    LDGRQIFImport import(each.text);
    const QifResult result = import.Parse();
    EXPECT_EQ(result.entries.size(), each.entries) << each.name;
    EXPECT_EQ(result.accounts.size(), each.accounts) << each.name;
    LDGRAccount account;
    EXPECT_EQ(QifReview(result, result.entries, account).entries().size(), each.entries);
    static_cast<void>(HintsFor(import, result.entries, 20040307));
  }
}

TEST(QifAccounts, KeepTheirOwnEntriesAndAreFoundByTheBeginningOfTheirNames) {
  const QifResult result = Parsed(
      "!Account\nNChecking\nTBank\n^\n!Type:Bank\nT1\n^\n!Type:Cash\nT2\n^\n"
      "!Account\nNBroker\nTInvst\n^\n!Type:Invst\nT9\n^\n"
      "!Account\nTBank\n^\n!Type:Bank\nT3\n^\n"
      "!Account\nNCheck\nTBank\n^\n!Type:Bank\nT4\n^\n");
  EXPECT_EQ(Told(result.entries),
            "deposit T1.000000\ndeposit T2.000000\ndeposit T3.000000\ndeposit T4.000000\n");
  EXPECT_EQ(NamesIn(result), (std::vector<std::string>{"Checking", "Check"}));
  EXPECT_EQ(Told(*result.accounts[0].entries), "deposit T1.000000\ndeposit T2.000000\n");
  // "Checking" begins with "Check" and comes first.
  EXPECT_EQ(Told(*result.accounts[1].entries), Told(*result.accounts[0].entries));
  EXPECT_EQ(result.accounts[1].source, "Checking");
}

TEST(QifTypes, AreThoseOfTheListThenThoseEntriesUseBeyondThem) {
  const QifResult result = Parsed(
      "!Type:Cat\nNFood\nE\n^\nNSalary\nI\n^\nNFood\n^\n!Type:Bank\n"
      "T-1\nLFood\n^\nT1\nLFood\n^\nT1\nLGift\n^\nLGift\n^\n");
  std::string told;
  for (const QifType& type : result.types) told += type.name + (type.is_deposit ? "+ " : "- ");
  EXPECT_EQ(told, "Food- Salary+ Food- Food+ Gift+ Gift- ");
}

TEST(QifSimpleConverters, MakeEntriesAndTheTypesTheyLack) {
  LDGRAccount account;
  QifSimpleConverter converter({}, account);
  const auto entries = converter.EntryListStringToLDGREntries(
      "\rD01/02/04\rT-5.25\rPShop\rMbread\rLFood\rCx\r^\rT3\rLFood\r^\rT-1\rLDebit "
      "Card\r^\rT-1\rLFood\r^");
  ASSERT_EQ(entries.size(), 4U);
  EXPECT_EQ(entries[0]->GetDate(), 20040102);
  EXPECT_EQ(entries[0]->GetAmount(), -5.25);
  EXPECT_TRUE(entries[0]->IsDebit() && entries[0]->GetCleared());
  EXPECT_EQ(entries[0]->GetNumber() + 3, entries[3]->GetNumber());
  EXPECT_EQ(entries[0]->GetActualType(), entries[3]->GetActualType());
  EXPECT_NE(entries[0]->GetActualType(), entries[1]->GetActualType());
  EXPECT_EQ(entries[2]->GetActualType(), account.DebitEntryTypeForName("Debit Card"));
  ASSERT_EQ(converter.types().size(), 2U);
  EXPECT_EQ(converter.types()[0]->GetNumber(), 6);
  EXPECT_EQ(converter.DepositTypeWithName("Food")->GetNumber(), 7);
}

TEST(QifSimpleConverters, ReadDaysAsWrittenAndTakeNoAmountForADebitOfNothing) {
  struct Case {
    std::string_view record;
    std::string_view format;
    DateNumber day;
    bool is_debit;
  };
  const Case cases[] = {
      {"\rD1/2/04\rT0", "%m/%d/%y", 20040102, false},
      {"\rD 01/02/69 \rT-0.5", "%m/%d/%y", 19690102, true},
      {"\rD2004-01-02", "%m/%d/%y", 0, true},
      {"\rD1/2/2004\rT", "%m/%d/%y", 0, true},
      {"\rD1/ 2'04", "%m/%d/%y", 0, true},
      {"\rD010204", "%m/%d/%y", 0, true},
      {"\rD1/2/04x", "%m/%d/%y", 0, true},
      {"\rD2004/2/1", "%Y/%d/%m", 20040102, true},
      {"\rD30/2/2004", "%d/%m/%Y", 0, true},
  };
  for (const Case& each : cases) {
    LDGRAccount account;
    QifOptions options;
    options.date_format = each.format;
    const auto entry = QifSimpleConverter(options, account).EntryStringToLDGREntry(each.record);
    EXPECT_EQ(entry->GetDate(), each.day) << each.record;
    EXPECT_EQ(entry->IsDebit(), each.is_debit) << each.record;
  }
}

}  // namespace
}  // namespace tallyfold
