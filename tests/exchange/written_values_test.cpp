#include <gtest/gtest.h>

#include <string>

#include "exchange/csv_headings.h"
#include "exchange/table_reader.h"
#include "exchange/tag_scanner.h"
#include "exchange/written_amount.h"
#include "exchange/written_day.h"

namespace tallyfold {
namespace {

TEST(WrittenAmounts, TellTheirSeparatorsOrLeaveThemOpen) {
  using Decimal = WrittenAmount::Decimal;
  struct Case {
    std::string_view text;
    Decimal decimal;
    double with_point;
    double with_comma;
  };
  const Case cases[] = {
      {"200", Decimal::Open, 200, 200},
      {"-62,3", Decimal::Comma, -62.3, -62.3},
      {"1.234,50", Decimal::Comma, 1234.5, 1234.5},
      {"1,234.50", Decimal::Point, 1234.5, 1234.5},
      {"1.234.567", Decimal::Comma, 1234567, 1234567},
      {"29.000", Decimal::Undecided, 29, 29000},
      {"29,000-", Decimal::Undecided, -29000, -29},
      {"0.500", Decimal::Point, 0.5, 0.5},
      {"1234.500", Decimal::Point, 1234.5, 1234.5},
      {"(12.50)", Decimal::Point, -12.5, -12.5},
      {"\u221212.50", Decimal::Point, -12.5, -12.5},
      {"1'234.50 CR", Decimal::Point, 1234.5, 1234.5},
      {"12.50 DR", Decimal::Point, -12.5, -12.5},
      {"1\u00A0234,567", Decimal::Comma, 1234.567, 1234.567},
      {"EUR 12,50", Decimal::Comma, 12.5, 12.5},
      {"-$1,234.50", Decimal::Point, -1234.5, -1234.5},
      {"Fr. 12.50", Decimal::Point, 12.5, 12.5},
      {"12,50 \u20AC", Decimal::Comma, 12.5, 12.5},
      {".50", Decimal::Point, 0.5, 0.5},
      {"+3.", Decimal::Point, 3, 3},
  };
  for (const Case& each : cases) {
    const WrittenAmount written = ReadWrittenAmount(each.text);
    EXPECT_TRUE(written.is_amount) << each.text;
    EXPECT_EQ(int(written.decimal), int(each.decimal)) << each.text;
    EXPECT_EQ(written.Value('.'), each.with_point) << each.text;
    EXPECT_EQ(written.Value(','), each.with_comma) << each.text;
  }
  EXPECT_FALSE(ReadWrittenAmount(std::string(1000, '-')).is_blank);
  for (const std::string_view text : {"", " ", "-", "--"}) {
    EXPECT_TRUE(ReadWrittenAmount(text).is_blank) << text;
  }
  for (const std::string_view text :
       {"n/a", "12 apples", "1.2.3", "1e5", "1,23,456.00", "12-50", "1.234,567.8", "50%", "EUR",
        "1234567890123456789", "DE00 1002 0030 x", "7.3.2024", "1.5 0", "12:30"}) {
    EXPECT_FALSE(ReadWrittenAmount(text).is_amount) << text;
    EXPECT_FALSE(ReadWrittenAmount(text).is_blank) << text;
  }
}

TEST(WrittenDays, AreReadInAnyOrderThatTheyAllow) {
  struct Case {
    std::string_view text;
    DateNumber days[3];  // day first, month first, year first
  };
  const Case cases[] = {
      {"07.03.2024", {20240307, 20240703, 0}},
      {"3/17/24", {0, 20240317, 0}},
      {"01-02-03", {20030201, 20030102, 20010203}},
      {"2024-03-07T23:30:00Z", {20240307, 20240307, 20240307}},
      {"20240307", {20240307, 20240307, 20240307}},
      {"07032024", {20240307, 20240703, 0}},
      {"240307", {20070324, 0, 20240307}},
      {"7 Mar 2024", {20240307, 20240307, 20240307}},
      {"M\u00C4RZ 7, 2024", {20240307, 20240307, 20240307}},
      {"07-ao\u00FBt-24 10:15", {20240807, 20240807, 20240807}},
      {"29.02.2023", {0, 0, 0}},
      {"7.3.", {0, 0, 0}},
      {"1.234,56", {0, 0, 0}},
      {"07.03.2024x", {0, 0, 0}},
      {"7 Foo 2024", {0, 0, 0}},
      {"123456789", {0, 0, 0}},
  };
  for (const Case& each : cases) {
    const WrittenDay written = ReadWrittenDay(each.text);
    EXPECT_EQ(written.In(DayOrder::DayMonthYear), each.days[0]) << each.text;
    EXPECT_EQ(written.In(DayOrder::MonthDayYear), each.days[1]) << each.text;
    EXPECT_EQ(written.In(DayOrder::YearMonthDay), each.days[2]) << each.text;
  }
  EXPECT_EQ(ReadWrittenDay("2024-31-12").In(DayOrder::YearDayMonth), 20241231);
  EXPECT_EQ(ReadDigitDay("20240307120000[-5:EST]"), 20240307);
  EXPECT_EQ(ReadDigitDay("2024-03-07+01:00"), 20240307);
  EXPECT_EQ(ReadDigitDay("20240230"), 0);
  EXPECT_EQ(ReadDigitDay("2024"), 0);
}

TEST(TableRows, KeepRowsApartWhateverTheirQuotes) {
  struct Case {
    std::string_view text;
    std::string_view rows;  // cells between |, rows ended by /, as read
  };
  const Case cases[] = {
      {"a;b\n\n;;\nc;d", "a|b/c|d/"},
      {"a; b \r\n c;d\r", "a|b/c|d/"},
      {"\"a;b\";\"c\"\"d\"", "a;b|c\"d/"},
      {"\"two\nlines\";x\ny", "two\nlines|x/y/"},
      {"\"\";x", "|x/"},
      {"\"Joe \"The\" Man\";x", "Joe \"The\" Man|x/"},
      {"a \"b\";c", "a \"b\"|c/"},
      {"\"open;x\n\"ok\";y", "\"open|x/ok|y/"},
      {"\"open;x\ny;z", "\"open|x/y|z/"},
      {"\"a\" ;x", "a|x/"},
      {"a;\"\"\"\"", "a|\"/"},
  };
  for (const Case& each : cases) {
    std::string read;
    for (const TableRow& row : FirstRows(each.text, ';', SIZE_MAX)) {
      for (std::size_t i = 0; i < row.size(); ++i) {
        read += (i == 0 ? "" : "|") + std::string(row.Cell(i));
      }
      read += '/';
    }
    EXPECT_EQ(read, each.rows) << each.text;
  }
  const TableRows rows = FirstRows("\"a\nb\";c\n\nd", ';', 2);
  EXPECT_EQ(rows[1].Line(), 4U);
  EXPECT_EQ(rows[1].Place(), 9U);
  const std::string wide = std::string(1000, ';') + "x";
  EXPECT_EQ(FirstRows(wide, ';', 2).front().size(), TableRow::kMostCells);
}

TEST(TagScanner, EndsWhatIsLeftOpenAndPassesOverWhatIsNone) {
  struct Case {
    std::string_view text;
    std::string_view events;  // <name and name=text> each
  };
  const Case cases[] = {
      {"<A><B>1<C>2</A>", "<A<BB=1><CC=2>A=>"},
      {"<a:A x='1>2'><B> x &amp; &#65;&foo; </B></a:A>", "<A<BB=x & A&foo;>A=>"},
      {"<A/><B><![CDATA[<x> & ]]>y</B>", "<AA=><BB=<x> & y>"},
      {"<!-- <A> --><?x <B>?><!DOCTYPE C><D>1 < 2</E></D>", "<DD=1 < 2>"},
      {"</X><A>1</a></A>", "<AA=1>"},
      {"<A", "<AA=>"},
      {"<A <B>1", "<A<BB=1>A=>"},
  };
  for (const Case& each : cases) {
    TagScanner scanner(each.text);
    std::string events;
    for (auto event = scanner.Next(); event != TagScanner::Event::Finished;
         event = scanner.Next()) {
      if (event == TagScanner::Event::Begin) {
        events += "<" + std::string(scanner.Name());
      } else {
        events += std::string(scanner.Name()) + "=" + std::string(scanner.Text()) + ">";
      }
    }
    EXPECT_EQ(events, each.events) << each.text;
  }
  std::string deep;
  for (int i = 0; i < 100'000; ++i) deep += "<A>";
  TagScanner scanner(deep);
  std::size_t deepest = 0;
  while (scanner.Next() != TagScanner::Event::Finished) {
    deepest = std::max(deepest, scanner.Depth());
  }
  EXPECT_EQ(deepest, TagScanner::kMostDepth);
  TagScanner attributes("<Amt xml:Ccy = \"EUR\" b='x y'>");
  static_cast<void>(attributes.Next());
  EXPECT_EQ(attributes.Attribute("Ccy"), "EUR");
  EXPECT_EQ(attributes.Attribute("b"), "x y");
  EXPECT_EQ(attributes.Attribute("c"), "");
}

TEST(CsvHeadings, AreKnownInAllLanguages) {
  struct Case {
    std::string_view heading;
    CsvField field;
  };
  const Case cases[] = {
      {"Posting Date", CsvField::Day},
      {"Betrag in EUR", CsvField::Amount},
      {"W\u00C4HRUNG", CsvField::Currency},
      {"D\u00E9bit (\u20AC)", CsvField::Debit},
      {"Cr\u00E9dit euros", CsvField::Credit},
      {"Empf\u00E4nger/Auftraggeber", CsvField::Payee},
      {"Euro-Konto", CsvField::None},
      {"Descripci\u00F3n", CsvField::Purpose},
      {"Data contabile", CsvField::Day},
      {"Af/Bij", CsvField::Mark},
      {"Nadawca / Odbiorca", CsvField::Payee},
      {"Data do movimento", CsvField::Day},
      {"Cr\u00E9dito", CsvField::Credit},
      {"Saldo po operacji", CsvField::Balance},
      {"EUR", CsvField::None},
      {"", CsvField::None},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(int(FieldOfHeading(each.heading)), int(each.field)) << each.heading;
  }
  EXPECT_TRUE(NamesBalance("Endsaldo 31.03.", true));
  EXPECT_TRUE(NamesBalance("TOTAL", false));
  EXPECT_FALSE(NamesBalance("TOTAL", true));
  EXPECT_FALSE(NamesBalance("Balance Yoga Studio", true));
  EXPECT_EQ(int(MeaningOfMark("Af")), int(MarkMeaning::Debit));
  EXPECT_EQ(int(MeaningOfMark("H")), int(MarkMeaning::Credit));
  EXPECT_EQ(int(MeaningOfMark("x")), int(MarkMeaning::None));
}

}  // namespace
}  // namespace tallyfold
