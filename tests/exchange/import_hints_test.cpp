#include "exchange/import_hints.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "exchange/export_options.h"
#include "exchange/import_amounts.h"
#include "exchange/qif_hints.h"
#include "exchange/qif_import.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "model/account.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

using Kind = ImportDoubtKind;
using Problem = ImportHints::Problem;

constexpr DateNumber kToday = 20040307;

ImportHints HintsOf(const LDGRQIFImport& import) {
  return HintsFor(import, import.Entries(), kToday);
}

LDGRQIFImport Import(std::string_view text, std::string_view date_format = "%m/%d/%y") {
  LDGRQIFImport import(text);
  import.SetDateFormat(date_format);
  return import;
}

std::string Titles(const std::vector<QifDateFormat>& formats) {
  std::string titles;
  for (const QifDateFormat& each : formats) titles += std::string(each.title) + ' ';
  return titles;
}

// "decimal thousands" of each.
std::string Written(const std::vector<ImportSeparators>& separators) {
  std::string written;
  for (const auto& each : separators) {
    written += std::string(each.decimal) + ' ' + std::string(each.thousands) + '|';
  }
  return written;
}

TEST(ImportAmounts, AreDoubtfulWhereOtherSeparatorsMayHaveBeenMeantOrASignIsDropped) {
  struct Case {
    std::string_view text;
    std::string_view decimal;
    std::string_view thousands;
    std::string_view doubts;  // s for separators, - for the sign
  };
  const Case cases[] = {
      {"-1,234.50", ".", ",", ""},     {"1,234,567", ".", ",", ""},
      {"+12.5", ".", ",", ""},         {" $ -12 ", ".", ",", ""},
      {"EUR 1 234.50", ".", ",", ""},  {"1\u00A0234,50 kr", ",", "", ""},
      {"1'234.50", ".", ",", ""},      {".50", ".", ",", ""},
      {"0.125000", ".", ",", "s"},  // stored as 0.13
      {"0.500", ".", ",", ""},         {"1234.500", ".", ",", ""},
      {"1.500", ".", ",", "s"},  // fifteen hundred?
      {"1.234567", ".", ",", "s"},     {"-12,50", ".", ",", "s"},
      {"12.50", ",", ".", "s"},        {"12.50", ",", "", ""},  // a point is one all the same
      {"12.50", "", "", ""},           {"12.50", ".", ".", "s"},
      {"1.234,50", ".", ",", "s"},     {"1.234,50", ",", "", "s"},
      {"1.234.567", ".", ",", "s"},    {"1234,567.00", ".", ",", "s"},
      {"1,23,456.00", ".", ",", "s"},  {",50", ".", ",", "s"},
      {"12,", ".", ",", "s"},          {"1 23", ".", ",", "s"},
      {"1.5 0", ".", ",", "s"},        {"1e5", ".", ",", "s"},
      {"Rs. 50", ".", ",", "s"},  // 0.50
      {"Fr. 12.50", ".", ",", "s"},    {"12.50-", ".", ",", "-"},
      {"(12.50)", ".", ",", "-"},      {"\u221212.50", ".", ",", "-"},
      {"\u201312,50", ".", ",", "s-"}, {"", ".", ",", ""},
      {"none", ".", ",", ""},
  };
  for (const Case& each : cases) {
    ImportDoubtSet doubts;
    LookAtAmount(each.text, {each.decimal, each.thousands}, doubts);
    EXPECT_EQ(std::string(doubts.Has(Kind::AmountSeparators) ? "s" : "") +
                  (doubts.Has(Kind::AmountSign) ? "-" : ""),
              each.doubts)
        << each.text << ' ' << each.decimal << ' ' << each.thousands;
  }
}

TEST(ImportHints, NameTheSeparatorsThatReadEveryAmountWithoutDoubt) {
  struct Case {
    std::string_view text;
    std::size_t doubtful;
    std::string_view fitting;
  };
  const Case cases[] = {
      {"T-12.50\n^\nT1,234\n^\n", 0, ""},
      {"T-12,50\n^\nT1.234,00\n^\n", 2, ", .|"},
      {"T-12,50\n^\nT1 234,00\n^\n", 2, ", .|"},
      {"T-12,50\n^\nT12.50\n^\n", 1, ""},             // both at once
      {"T-12,50\n^\nT0.125\n^\nT1e5\n^", 3, ", .|"},  // some are beyond help
      {"T5\nSa\n$2,50\nSb\n$2,50\n^\n", 1, ", .|"},
  };
  for (const Case& each : cases) {
    const ImportHints hints = HintsOf(Import(each.text));
    EXPECT_EQ(hints.CountOf(Kind::AmountSeparators), each.doubtful) << each.text;
    EXPECT_EQ(Written(hints.fitting_separators), each.fitting) << each.text;
  }
}

TEST(ImportHints, CountWhatIsDoubtfulAndNameTheFirstEntriesConcerned) {
  using Told = std::vector<std::pair<Kind, std::string>>;
  struct Case {
    std::string_view record;
    Told doubts;
  };
  const std::string huge(400, '9');
  const std::string digits = "T" + huge + "\n^\n";
  std::string many;
  for (int i = 0; i < 7; ++i) many += "T1\n^\n";
  const std::string with_date = "D1/2/04\n";
  const Case cases[] = {
      {many, {{Kind::MissingDate, "7 1 2 3 4 5"}}},
      {"D1/2/04\nT5\nCx\nN7\nPa\n^", {}},
      {"D13/2/04\nT5\n^", {{Kind::UnreadableDate, "1 1"}}},
      {"D1/2/04\nU5\n^", {{Kind::MissingAmount, "1 1"}}},
      {"D1/2/04\nT\nPa\n^", {{Kind::MissingAmount, "1 1"}}},
      {"D1/2/04\nT1\n^\nD1/2/04\nTabc\n^\nD1/2/04\nTnan\n^\nD1/2/04\nT-inf\n^\nD1/2/04\n"
       "T--5\n^\nD1/2/04\nT-0.00\n^",
       {{Kind::UnreadAmount, "4 2 3 4 5"}}},
      {"D1/2/04\nT1000000000000000\n^\nD1/2/04\nT999999999999999\n^", {{Kind::LargeAmount, "1 1"}}},
      {"D1/2/04\nT5\nPa\nD1/3/04\nT6\nPb\n^", {{Kind::SecondRecord, "1 1"}}},
      {"D1/2/04\nT5\nAone\nAtwo\nPa\nPb\n^", {}},
      {"D1/2/04\nT5\nNATM\n^\nD1/2/04\nT5\nN2147483647\n^",
       {{Kind::TextNumber, "1 1"}, {Kind::LostNumber, "1 2"}}},
      // Signs of split lines follow the entry's.
      {"D1/2/04\nT-5\nPSplit\nSa\n$2.50\nSb\n$2.50\n^", {}},
      {"D1/2/04\nT-5\nPShop\nSa\n$-2.50\nSb\n$-2.50\n^", {{Kind::SplitPayee, "1 1"}}},
      {"D1/2/04\nT-5\nSa\n$2.50\nSb\n$2.49\n^", {{Kind::SplitSum, "1 1"}}},
      {"D1/2/04\nSa\n$2.50\n^", {{Kind::SplitSum, "1 1"}}},
      {"D1/2/04\nT1\nSa\n$1\nSb\n$-1\n^\nD1/2/04\nT1\nSa\n^",
       {{Kind::MixedSplit, "1 1"}, {Kind::UnevenSplit, "1 2"}}},
      {"D1/2/04\nT1\nSa\n$1,5\n^", {{Kind::AmountSeparators, "1 1"}, {Kind::SplitSum, "1 1"}}},
      {"D1/2/04\nT1-\n^", {{Kind::AmountSign, "1 1"}}},
  };
  for (const Case& each : cases) {
    Told told;
    for (const ImportDoubt& doubt : HintsOf(Import(each.record)).doubts) {
      std::string text = std::to_string(doubt.count);
      for (const std::int32_t row : doubt.rows) text += ' ' + std::to_string(row);
      told.emplace_back(doubt.kind, text);
    }
    EXPECT_EQ(told, each.doubts) << each.record;
  }
  EXPECT_EQ(HintsOf(Import(with_date + digits)).CountOf(Kind::UnreadAmount), 1U);
}

TEST(ImportHints, TellOfTheWholeFile) {
  std::string ten_lines;
  for (int i = 0; i < 10; ++i) ten_lines += "Sa\n$1\n";
  const LDGRQIFImport import = Import(
      "!Account\nNBroker\n^\n!Type:Invst\nT9\n^\n!Account\nNBank\n^\n!Type:Bank\n"
      "D2/3/2004\nT1\n^\nD31/3/2004\nT1\n^\nD4/3/2004\nT1\n^\n" +
          ten_lines + "^\n!Type:Memorized\nT1\n^\n!Type:Memorized\nT1\n^\n!Type:Cash\nT5\n",
      "%m/%d/%Y");
  const ImportHints hints = HintsOf(import);
  EXPECT_EQ(hints.first_date, 20040203);
  EXPECT_EQ(hints.last_date, 20040403);
  EXPECT_EQ(hints.after_today, 1U);
  EXPECT_EQ(hints.CountOf(Kind::LongSplit), 1U);
  EXPECT_EQ(hints.CountOf(Kind::LeftOutAccount), 1U);
  EXPECT_EQ(hints.CountOf(Kind::LeftOutList), 2U);
  EXPECT_EQ(hints.left_out_lists, std::vector<std::string>{"Memorized"});
  EXPECT_EQ(hints.CountOf(Kind::UnendedList), 1U);
  EXPECT_EQ(Titles(hints.fitting_formats), "DD/MM/YY DD/MM/YYYY ");
  EXPECT_FALSE(hints.Needs(ImportRemedy::Separators));
}

TEST(ImportHints, NameTheFormatsThatReadEveryDateInFull) {
  struct Case {
    std::string_view format;
    std::string_view days;
    Kind doubt;
    std::size_t count;
    std::string_view fitting;
  };
  const Case cases[] = {
      {"%m/%d/%Y", "D2/13/74\n^\nD2/3/05\n^\n", Kind::ShortYear, 2, "MM/DD/YY "},
      {"%d/%m/%y", "D2026-02-13\n^\nD2026-02-28\n^\n", Kind::ReducedDate, 2,
       "YY/MM/DD YYYY/MM/DD "},
      {"%m/%d/%y", "D2026-02-13\n^\n", Kind::UnreadableDate, 1, "YY/MM/DD YYYY/MM/DD "},
      {"%m/%d/%y", "D2/13/1950\n^\nD2/13/2050\n^\n", Kind::ReducedDate, 1, "MM/DD/YYYY "},
      {"%m/%d/%y", "D2/13/1974\n^\nD2/3/2005\n^\n", Kind::ReducedDate, 0, ""},
      {"%m/%d/%y", "D20260213\n^\n", Kind::UnreadableDate, 1, "YY/MM/DD YYYY/MM/DD "},
      {"%m/%d/%y", "D2/31/04\n^\n", Kind::UnreadableDate, 1, "MM/YY/DD DD/YY/MM "},
      {"%m/%d/%y", "D13/2/2004\n^\nDsoon\n^\n", Kind::UnreadableDate, 2, "DD/MM/YY DD/MM/YYYY "},
      {"%m/%d/%y", "D13/2/2004\n^\nD2/13/2004\n^\n", Kind::UnreadableDate, 1, ""},
  };
  for (const Case& each : cases) {
    const ImportHints hints = HintsOf(Import(each.days, each.format));
    EXPECT_EQ(hints.CountOf(each.doubt), each.count) << each.days;
    EXPECT_EQ(Titles(hints.fitting_formats), each.fitting) << each.days << each.format;
  }
}

TEST(ImportHints, NameCategoryListsThatWereNotReadWhateverTheLineEnds) {
  struct Case {
    std::string_view text;
    std::vector<std::string> left_out;
    std::size_t unended;
    std::size_t types;
  };
  const Case cases[] = {
      {"!Type:Cat\nNa\n^\n!Type:Bank\n", {}, 0, 1},
      {"!Type:Cat \nNa\n^\n!Type:Bank\n", {"Cat"}, 0, 0},
      {"!Type:Cat\nNa\n^\n!Type:Cat\nNb\n^\n", {"Cat"}, 0, 1},
      {"!Type:Cat\nNa\n^\nNb\n!Type:Bank\n", {}, 1, 1},
      {"!Type:Cat\nNa\n^\n!Type:Cat", {"Cat"}, 0, 1},
      {"!Type:Cat\n!Type:Bank\nT1\nN5\n^\nT2\n", {}, 1, 0},
      {"!Type:Cat\n!Type:Cat\nNa\n^\n", {"Cat"}, 0, 0},
      {"!Type:Cat\n", {}, 0, 0},
  };
  for (const Case& each : cases) {
    for (const std::string_view line_end : {"\n", "\r", "\r\n"}) {
      std::string text;
      for (const char c : each.text) text += c == '\n' ? line_end : std::string_view(&c, 1);
      const LDGRQIFImport import = Import(text);
      const ImportHints hints = HintsOf(import);
      EXPECT_EQ(hints.left_out_lists, each.left_out) << text;
      EXPECT_EQ(hints.CountOf(Kind::UnendedList), each.unended) << text;
      EXPECT_EQ(import.EntryTypes().size(), each.types) << text;
    }
  }
}

TEST(ImportHints, SayWhatAFileSeemsToBeThatIsNone) {
  struct Case {
    std::string bytes;
    Problem problem;
  };
  const Case cases[] = {
      {"!Type:Bank\n", Problem::None},
      {"T1\n^\n", Problem::None},
      {"!Option:AutoSwitch\n!Clear:AutoSwitch\n", Problem::None},
      {"!Account\nNShares\n^\n!Type:Invst\n", Problem::None},
      {"", Problem::Empty},
      {" \r\n", Problem::Empty},
      {"Date;Text;Amount\n1.2.2026;\"Rent!\";-5,00\n", Problem::Table},
      {"Account 12\n\nDay\tText\tAmount\n1\t2\t3\n", Problem::Table},
      {" <!DOCTYPE html><p>1^2</p>", Problem::WebPage},
      {std::string("\x89PNG\r\n\x1A\n\0^", 10), Problem::Picture},
      {"II*.", Problem::Foreign},
      {"Dear customer, here are\nyour entries!\n", Problem::Foreign},
  };
  FakeFileSystem files;
  for (const Case& each : cases) {
    files.AddFile("/a", each.bytes);
    const auto import = LDGRQIFImport::importWithContentsOfFile("/a", 4, files, IconvEncodings());
    EXPECT_EQ(HintsOf(import).problem, each.problem) << each.bytes;
  }
  EXPECT_EQ(HintsOf(LDGRQIFImport()).problem, Problem::Unreadable);
  FakeAmbient ambient;
  EXPECT_EQ(HintsOf(Import("!Option:AutoSwitch\n")).problem, Problem::UnendedBlock);
}

// What is exported comes back: at once, or with whichever choice the hints offer.
TEST(ImportHints, LeadToEveryAmountOfAnExportInEveryLocale) {
  std::mt19937 random(20260307);
  const auto amount = [&random] {
    const auto digits = static_cast<int>(random() % 13);
    double cents = 0.0;
    for (int i = 0; i < digits; ++i) cents = cents * 10 + static_cast<double>(random() % 10);
    return cents / 100;
  };
  for (const std::string_view decimal : {".", ",", "\u066B", "\u00B7", "'"}) {
    for (const std::string_view thousands :
         {"", ",", ".", "'", "\u2019", " ", "\u00A0", "\u202F", "\u066C", "-"}) {
      FakeAmbient ambient;
      ambient.locale.decimal_separator = decimal;
      ambient.locale.thousands_separator = thousands;
      LDGRAccount account;
      for (int i = 0; i < 20; ++i) {
        auto entry = std::make_shared<LDGRAccountEntry>();
        entry->SetAmount(amount());
        (i % 2 == 0) ? entry->SetIsDebit(true) : entry->SetIsDeposit(true);
        entry->SetDate(20040101 + i);
        account.AddEntry(entry);
      }
      const std::string text = account.asQIFStringWithOptions({});
      const auto amounts_read = [&text](std::string_view with_decimal,
                                        std::string_view with_thousands) {
        LDGRQIFImport import(text);
        import.SetDecimalSeparator(with_decimal);
        import.SetThousandsSeparator(with_thousands);
        return import;
      };
      const LDGRQIFImport first = amounts_read(account.GetQIFImportDecimalSeparator(),
                                               account.GetQIFImportThousandsSeparator());
      const ImportHints hints = HintsOf(first);
      const auto check = [&](const LDGRQIFImport& import) {
        const QifEntryList entries = import.Entries();
        ASSERT_EQ(entries.size(), 21U);
        for (std::size_t i = 1; i < entries.size(); ++i) {
          EXPECT_EQ(entries[i]->amount, account.GetEntries()[i - 1]->GetAmount());
          EXPECT_EQ(entries[i]->date, account.GetEntries()[i - 1]->GetDate());
        }
      };
      SCOPED_TRACE(std::string(decimal) + ' ' + std::string(thousands));
      if (!hints.Needs(ImportRemedy::Separators)) {
        check(first);
        continue;
      }
      ASSERT_FALSE(hints.fitting_separators.empty());
      for (const auto& each : hints.fitting_separators) {
        check(amounts_read(each.decimal, each.thousands));
      }
    }
  }
}

TEST(ImportHints, NameTheFormatOfAnExportWhereItsDatesCannotBeReadInFull) {
  LDGRAccount account;
  for (const DateNumber day : {18990131, 20040229, 20311231, 20690101, 99991231}) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetDate(day);
    entry->SetIsDebit(true);
    account.AddEntry(entry);
  }
  for (const QifDateFormat& each : kQifDateFormats) {
    if (each.tag < 10) continue;  // two digits cannot tell the century
    ExportOptions options;
    options.date_format = each.format;
    const ImportHints hints = HintsOf(Import(account.asQIFStringWithOptions(options)));
    EXPECT_TRUE(hints.Needs(ImportRemedy::DateFormat)) << each.format;
    EXPECT_EQ(Titles(hints.fitting_formats), std::string(each.title) + ' ');
    const LDGRQIFImport again =
        Import(account.asQIFStringWithOptions(options), hints.fitting_formats.front().format);
    EXPECT_EQ(again.Entries().back()->date, 99991231) << each.format;
  }
}

}  // namespace
}  // namespace tallyfold
