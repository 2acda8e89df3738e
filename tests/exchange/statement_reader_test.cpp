#include "exchange/statement_reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "exchange/csv_lines.h"
#include "exchange/csv_reader.h"
#include "exchange/statement_text.h"
#include "fakes/file_text.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

const std::filesystem::path kFolder = std::string(TALLYFOLD_TEST_DATA) + "/statements";

StatementFile Read(std::string_view bytes, const StatementChoices& choices = {}) {
  return ReadStatementFile(bytes, IconvEncodings(), choices);
}

// What is read of each file stands beside it in a file "NAME.read"; what a failure shows is what is
// read instead, which TALLYFOLD_ACCEPT_READ=1 writes there.
TEST(StatementFiles, AreReadAsTheFileBesideThemSays) {
  std::set<std::filesystem::path> files;
  for (const auto& each : std::filesystem::directory_iterator(kFolder)) {
    if (each.path().extension() != ".read") files.insert(each.path());
  }
  EXPECT_GE(files.size(), 30U);
  for (const auto& path : files) {
    const std::filesystem::path expected = path.string() + ".read";
    const std::string read = TextOfStatement(Read(FileText(path)));
    if (std::getenv("TALLYFOLD_ACCEPT_READ") != nullptr) std::ofstream(expected) << read;
    EXPECT_EQ(read, FileText(expected)) << path << ": accepted by TALLYFOLD_ACCEPT_READ=1";
  }
}

TEST(StatementFiles, AreMendedByChoices) {
  struct Case {
    const char* file;
    StatementChoices choices;
    const char* holds;
  };
  StatementChoices day;
  day.csv.day_order = DayOrder::MonthDayYear;
  StatementChoices comma;
  comma.csv.decimal_separator = ',';
  StatementChoices card;
  card.csv.spending_is_positive = true;
  StatementChoices columns;
  columns.csv.columns = {CsvField::Day, CsvField::Purpose, CsvField::Balance, CsvField::Amount};
  StatementChoices turned;
  turned.reversals = ReversalSign::Turned;
  StatementChoices baltic;
  baltic.csv.encoding = TextEncoding::Windows1257;
  const Case cases[] = {
      {"undecided.csv", day, "20240102 -29.00"},
      {"undecided.csv", comma, " -29000.00 | One"},
      {"card_positive.csv", card, "20240315 -12.50"},
      {"no_heading.csv", columns, "20240307 937.70 |  | Corner Market"},
      {"reversal_open.camt", turned, "5.00 | A back"},
      {"cyrillic.csv", baltic, "encoding -2147482361"},
  };
  for (const Case& each : cases) {
    const std::string read = TextOfStatement(Read(FileText(kFolder / each.file), each.choices));
    EXPECT_NE(read.find(each.holds), std::string::npos) << each.file << '\n' << read;
  }
}

// A letter for each line, and what stands in one of them.
TEST(StatementFiles, ShowTheLinesOfTablesBesideWhatBecameOfThem) {
  struct Case {
    std::string_view bytes;
    const char* kinds;
    std::size_t index;
    const char* cells;
  };
  std::string wide = "\xFF\xFE";
  for (const char each : std::string_view("Date;Text\n2024-01-31;none\n")) wide += {each, '\0'};
  const Case cases[] = {
      {"sep=;\nBank\n\nDate;Amount;Text\n2024-01-31;-1.50;\"two\nlines\"\n;;more\nTotal;9;\n",
       "2out 4head 5in 7out 8out ", 2, "2024-01-31|-1.50|two\nlines|"},
      {"Date;Text\n2024-01-31;none\n", "1head 2? ", 1, "2024-01-31|none|"},
      {wide, "1head 2? ", 1, "2024-01-31|none|"},
      {"!Type:Bank\nD1/2'24\n^\n", "", 0, ""},
  };
  for (const Case& each : cases) {
    const StatementFile file = Read(each.bytes);
    const CsvLines lines = LinesOf(each.bytes, file, IconvEncodings());
    std::string kinds;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      constexpr const char* kKinds[] = {"? ", "head ", "in ", "out "};
      EXPECT_EQ(lines.At(i).kind, lines.KindAt(i));
      kinds += std::to_string(lines.At(i).line) + kKinds[int(lines.KindAt(i))];
    }
    EXPECT_EQ(kinds, each.kinds) << each.bytes;
    std::string cells;
    if (lines.size() > 0) {
      for (const std::string& cell : lines.At(each.index).cells) cells += cell + '|';
    }
    EXPECT_EQ(cells, each.cells);
  }
}

TEST(StatementFiles, AreTakenForWhatTheyHoldWhateverTheirName) {
  using Content = ImportContent;
  const std::string nul(1, '\0');
  struct Case {
    std::string bytes;
    Content content;
  };
  const Case cases[] = {
      {"", Content::Empty},
      {"\xEF\xBB\xBF \r\n", Content::Empty},
      {"!Type:Bank\nD1/2/04\n^\n", Content::Qif},
      {"D1/2/04\nT5\n^\n", Content::Qif},
      {"!type:bank\n", Content::Qif},
      {"a;b;c\n1;2;^\n3;4;5\n", Content::Table},
      {"a,b,c\n\"!x\",2,3\n", Content::Table},
      {"a|b\n1|2\n", Content::Table},
      {"OFXHEADER:100\n<OFX>", Content::Ofx},
      {"\n\n<OFX><STMTRS>", Content::Ofx},
      {"<?xml version=\"1.0\"?><?OFX?><OFX/>", Content::Ofx},
      {"<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\">", Content::Camt},
      {"<a:Document><a:BkToCstmrStmt>", Content::Camt},
      {"<!-- page -->\n<!DOCTYPE html><p>OFX</p>", Content::WebPage},
      {"<?xml version=\"1.0\"?>\n<html>", Content::WebPage},
      {"\n<TABLE><tr><td>1", Content::WebPage},
      {"<?xml version=\"1.0\"?><Workbook xmlns=\"x\">", Content::XmlSpreadsheet},
      {"<Invoice/>", Content::OtherXml},
      {"<!DOCTYPE Invoice [<!ENTITY a \"b;c;d\">\n<!ENTITY e \"f;g;h\">]><Invoice/>",
       Content::OtherXml},
      {"PK\x03\x04" + nul + nul + "[Content_Types].xml", Content::Spreadsheet},
      {"PK\x03\x04\x14" + nul + "\x01" + nul + "a.csv", Content::ProtectedArchive},
      {"PK\x03\x04\x14" + nul + nul + nul + "a.csv", Content::Archive},
      {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + nul, Content::OldSpreadsheet},
      {"%PDF-1.4", Content::Pdf},
      {"\x1F\x8B\x08", Content::Compressed},
      {"\x89PNG\r\n", Content::Picture},
      {":20:STARTUMS\n:25:1\n", Content::SwiftStatement},
      {"a,b,c\n1,2" + nul + ",3\n", Content::NotText},
      {"Dear bank", Content::Foreign},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(int(ContentOf(each.bytes)), int(each.content)) << each.bytes;
    const bool is_read = each.content <= Content::Table;
    EXPECT_EQ(RefusalOf(each.content).empty(), is_read) << each.bytes;
  }
}

TEST(StatementFiles, OfAnyLengthEndInAReadingAfterEachByte) {
  StatementFile named;
  EXPECT_TRUE(ReadCsv("sep=;", {}, named).lacks_days);
  for (const auto& each : std::filesystem::directory_iterator(kFolder)) {
    if (each.path().extension() == ".read") continue;
    const std::string bytes = FileText(each.path());
    const StatementFile whole = Read(bytes);
    std::size_t most = 0;
    for (const auto& account : whole.accounts) most += account.rows.size();
    for (std::size_t size = 0; size < bytes.size(); size += 13) {
      std::size_t rows = 0;
      for (const auto& account : Read(bytes.substr(0, size)).accounts) rows += account.rows.size();
      EXPECT_LE(rows, most + 1) << each.path() << size;
    }
  }
}

TEST(HeadingDigests, TellHeadingsApartButNotTheirCaseAndAccents) {
  CsvReading reading;
  reading.digest = HeadingDigest({"Date", "Libell\u00E9", "Montant (EUR)"}, 3);
  EXPECT_EQ(ImportIdentifier(reading), "import " + reading.digest);
  EXPECT_EQ(reading.digest.size(), 16U);
  EXPECT_EQ(HeadingDigest({"DATE", "LIBELLE", "Montant"}, 3), reading.digest);
  EXPECT_NE(HeadingDigest({"Date", "Montant", "Libell\u00E9"}, 3), reading.digest);
  EXPECT_NE(HeadingDigest({}, 3), HeadingDigest({}, 4));
}

}  // namespace
}  // namespace tallyfold
