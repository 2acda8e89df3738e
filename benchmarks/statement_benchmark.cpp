// Banks' files of 100,000 records in each format, read from their bytes to their rows, beside a
// scan for line ends over the same bytes; at most 40 times as long.

#include <benchmark/benchmark.h>

#include <string>

#include "benchmarks/line_end_scan.h"
#include "exchange/statement_reader.h"
#include "system/iconv_encodings.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kRecords = 100'000;

std::string Two(std::size_t number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

struct Record {
  std::string year;
  std::string month;
  std::string day;
  std::string amount;  // without sign
  bool is_credit = false;
  std::string payee;
  std::string purpose;
  std::string reference;
};

Record RecordAt(std::size_t i) {
  Record record;
  record.year = std::to_string(2015 + i / 336 % 10);
  record.month = Two(i / 28 % 12 + 1);
  record.day = Two(i % 28 + 1);
  record.amount = std::to_string(10 + i % 900) + ".25";
  record.is_credit = i % 3 == 0;
  record.payee = "Corner Market " + std::to_string(i % 500);
  record.purpose = "Invoice of week " + std::to_string(i % 53);
  record.reference = "R" + std::to_string(1'000'000 + i);
  return record;
}

template <typename Append>
std::string File(std::string_view head, std::string_view foot, Append append) {
  std::string text(head);
  for (std::size_t i = 0; i < kRecords; ++i) append(text, RecordAt(i));
  text += foot;
  return text;
}

const std::string& Ofx(bool is_closed) {
  const auto make = [](bool closed) {
    const auto element = [closed](std::string& text, const char* name, const std::string& value) {
      text += std::string("<") + name + ">" + value;
      if (closed) text += std::string("</") + name + ">";
      text += "\r\n";
    };
    return File("OFXHEADER:100\r\nCHARSET:1252\r\n\r\n<OFX><STMTRS><CURDEF>EUR<BANKTRANLIST>\r\n",
                "</BANKTRANLIST></STMTRS></OFX>\r\n", [&](std::string& text, const Record& record) {
                  text += "<STMTTRN>\r\n";
                  element(text, "TRNTYPE", record.is_credit ? "CREDIT" : "DEBIT");
                  element(text, "DTPOSTED", record.year + record.month + record.day + "120000");
                  element(text, "TRNAMT", (record.is_credit ? "" : "-") + record.amount);
                  element(text, "FITID", record.reference);
                  element(text, "NAME", record.payee);
                  element(text, "MEMO", record.purpose);
                  text += "</STMTTRN>\r\n";
                });
  };
  static const std::string open = make(false);
  static const std::string closed = make(true);
  return is_closed ? closed : open;
}

const std::string& Camt() {
  static const std::string text = File(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\">\n"
      "<BkToCstmrStmt>\n<Stmt>\n<Acct><Ccy>EUR</Ccy></Acct>\n",
      "</Stmt>\n</BkToCstmrStmt>\n</Document>\n", [](std::string& file, const Record& record) {
        const std::string day = record.year + "-" + record.month + "-" + record.day;
        const std::string party = record.is_credit ? "Dbtr" : "Cdtr";
        file += "    <Ntry>\n      <Amt Ccy=\"EUR\">" + record.amount + "</Amt>\n";
        file += record.is_credit ? "      <CdtDbtInd>CRDT</CdtDbtInd>\n"
                                 : "      <CdtDbtInd>DBIT</CdtDbtInd>\n";
        file += "      <Sts>BOOK</Sts>\n      <BookgDt>\n        <Dt>" + day + "</Dt>\n";
        file += "      </BookgDt>\n      <NtryDtls>\n        <TxDtls>\n          <Refs>\n";
        file += "            <EndToEndId>" + record.reference + "</EndToEndId>\n";
        file += "          </Refs>\n          <RltdPties>\n            <" + party + ">\n";
        file += "              <Nm>" + record.payee + "</Nm>\n            </" + party + ">\n";
        file += "          </RltdPties>\n          <RmtInf>\n            <Ustrd>";
        file += record.purpose + "</Ustrd>\n          </RmtInf>\n        </TxDtls>\n";
        file += "      </NtryDtls>\n    </Ntry>\n";
      });
  return text;
}

const std::string& Csv() {
  static const std::string text = [] {
    std::int64_t cents = 0;
    return File(
        "\"Buchungstag\";\"Wertstellung\";\"Empf\u00E4nger\";\"Verwendungszweck\";"
        "\"Referenz\";\"Betrag\";\"Saldo\"\r\n",
        "", [&cents](std::string& file, const Record& record) {
          const std::string day = record.day + "." + record.month + "." + record.year;
          const std::string whole = record.amount.substr(0, record.amount.size() - 3);
          const std::int64_t amount = std::stoll(whole) * 100 + 25;
          cents += record.is_credit ? amount : -amount;
          const std::int64_t size = cents < 0 ? -cents : cents;
          file += '"' + day + "\";\"" + day + "\";\"" + record.payee + "\";\"";
          file += record.purpose + "\";\"" + record.reference + "\";\"";
          file += (record.is_credit ? "" : "-") + whole + ",25\";\"";
          file += (cents < 0 ? "-" : "") + std::to_string(size / 100) + ',';
          file += Two(static_cast<std::size_t>(size % 100)) + "\"\r\n";
        });
  }();
  return text;
}

void Read(benchmark::State& state, const std::string& text) {
  const IconvEncodings encodings;
  for ([[maybe_unused]] auto _ : state) {
    StatementFile file = ReadStatementFile(text, encodings);
    if (file.accounts.size() != 1 || file.accounts[0].rows.size() != kRecords) {
      state.SkipWithError("not every record was read");
    }
    benchmark::DoNotOptimize(file.accounts.data());
    state.PauseTiming();
    file = {};
    state.ResumeTiming();
  }
}

void BM_YardstickOpenTags(benchmark::State& state) {
  ScanLineEnds(state, Ofx(false));
}
void BM_OfxOpenTags(benchmark::State& state) {
  Read(state, Ofx(false));
}
void BM_YardstickClosedTags(benchmark::State& state) {
  ScanLineEnds(state, Ofx(true));
}
void BM_OfxClosedTags(benchmark::State& state) {
  Read(state, Ofx(true));
}
void BM_YardstickCamt(benchmark::State& state) {
  ScanLineEnds(state, Camt());
}
void BM_Camt(benchmark::State& state) {
  Read(state, Camt());
}
void BM_YardstickCsv(benchmark::State& state) {
  ScanLineEnds(state, Csv());
}
void BM_Csv(benchmark::State& state) {
  Read(state, Csv());
}
BENCHMARK(BM_YardstickOpenTags)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OfxOpenTags)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_YardstickClosedTags)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OfxClosedTags)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_YardstickCamt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Camt)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_YardstickCsv)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Csv)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tallyfold::benchmarks
