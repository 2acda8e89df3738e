#include "exchange/qif_proof.h"

#include <gtest/gtest.h>

#include <string>

namespace tallyfold {
namespace {

TEST(QifDateProof, CountsWhatEachFormatReadsAndPutsTheBestFirst) {
  const LDGRQIFImport import(std::string_view(
      "!Type:Bank\nD12/03/04\nT1.00\n^\nD25/03/04\nT2.00\n^\nDsoon\nT3.00\n^\nT4.00\n^\n"));
  const QifDateProof proof = DateProofOf(import);
  EXPECT_EQ(proof.dates, 3U);
  ASSERT_EQ(proof.formats.size(), 12U);
  const QifFormatProof& best = proof.formats.front();
  EXPECT_EQ(best.format.format, "%d/%m/%y");
  EXPECT_EQ(best.read, 2U);
  EXPECT_FALSE(best.has_short_years);
  EXPECT_LT(best.first, best.last);
  for (const QifFormatProof& each : proof.formats) {
    EXPECT_LE(each.read, best.read);
    EXPECT_EQ(each.first.has_value(), each.read > 0) << each.format.format;
    const bool takes_all_digits = each.format.format.find("%Y") != std::string_view::npos;
    EXPECT_EQ(each.has_short_years, takes_all_digits && each.read > 0) << each.format.format;
  }
  EXPECT_EQ(DateProofOf(LDGRQIFImport()).dates, 0U);
}

TEST(FirstForeignText, IsTheValueOfTheFirstLineBeyondAscii) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"", ""},
      {"PPlain\nMText\n", ""},
      {"PPlain\nPCaf\xC3\xA9 Zo\xC3\xAB\r\nM\xC3\xA9\n", "Caf\xC3\xA9 Zo\xC3\xAB"},
      {"\xEF\xBB\xBFPPlain\n", ""},
      {"\xEF\xBB\xBFP\xE9\n", "\xE9"},
      {"\xE9", "\xE9"},
      {"P" + std::string(1000, 'a') + "\xE9z", "\xE9z"},
      {"P\xE9" + std::string(1000, 'a'), "\xE9" + std::string(199, 'a')},
  };
  for (const auto& each : cases) EXPECT_EQ(FirstForeignText(each.bytes), each.text) << each.bytes;
}

}  // namespace
}  // namespace tallyfold
