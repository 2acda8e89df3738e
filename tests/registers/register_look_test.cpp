#include "registers/register_look.h"

#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/amount_input.h"

namespace tallyfold {
namespace {

TEST(RegisterRows, AreColouredByKindAndItalicInTheFuture) {
  LDGRPreferences preferences;
  preferences.SetDebitColor_Red(0.1F);
  preferences.SetDepositColor_Red(0.2F);
  preferences.SetTransferColor_Red(0.3F);
  struct Case {
    std::int32_t flags;
    std::optional<float> red;
  };
  for (const Case& c : {Case{0, std::nullopt}, Case{1, 0.1F}, Case{2, 0.2F}, Case{4, 0.3F},
                        Case{5, 0.1F}, Case{6, 0.2F}}) {
    LDGRAccountEntry entry;
    if ((c.flags & 1) != 0) entry.SetIsDebit(true);
    entry.SetIsDeposit((c.flags & 2) != 0);
    entry.SetIsTransfer((c.flags & 4) != 0);
    entry.SetDate(20040308);
    const RowLook look = LookOfEntry(entry, preferences, 20040307);
    ASSERT_EQ(look.color.has_value(), c.red.has_value()) << c.flags;
    EXPECT_EQ(look.color.value_or(RegisterColor{}).red, c.red.value_or(0.0F)) << c.flags;
    EXPECT_TRUE(look.is_italic);
    EXPECT_FALSE(LookOfEntry(entry, preferences, 20040308).is_italic);
  }
  preferences.SetItalicizeFutureEntries(false);
  LDGRAccountEntry future;
  future.SetDate(20990101);
  EXPECT_FALSE(LookOfEntry(future, preferences, 20040307).is_italic);
}

TEST(RegisterRows, WriteAmountsAndDaysAsThePreferencesWant) {
  FakeAmbient ambient;
  ambient.locale.short_date_format = "%d.%m.%y";
  LDGRPreferences preferences;
  EXPECT_EQ(RegisterDateFormat(preferences), "%d.%m.%y");
  preferences.SetDateFormat(1);
  EXPECT_EQ(RegisterDateFormat(preferences), "%Y-%m-%d");
  preferences.SetDateFormat(2);
  EXPECT_EQ(RegisterDateFormat(preferences), "%B %e, %Y");

  preferences.SetShowCurrencySymbol(true);
  preferences.SetAmountFormat(0);
  EXPECT_EQ(RegisterAmountText(-1234.5, preferences), "-$1,234.50");
  EXPECT_EQ(RegisterAmountText(-1e-13, preferences), "$0.00");
  preferences.SetAmountFormat(1);
  EXPECT_EQ(RegisterAmountText(-1234.5, preferences), "-$1234.50");
  preferences.SetShowCurrencySymbol(false);
  EXPECT_EQ(RegisterAmountText(-1234.5, preferences), "-1,234.50");
}

TEST(RegisterRows, WriteAmountsIntoFieldsSoThatTheyAreReadAgain) {
  FakeAmbient ambient;
  LDGRPreferences preferences;
  const struct {
    const char* decimal;
    const char* thousands;
    std::int32_t format;
    double amount;
    const char* text;
  } cases[] = {
      {".", ",", 0, -1234.5, "-1,234.50"}, {".", ",", 1, -1234.5, "-1234.50"},
      {",", ".", 0, -1234.5, "-1234.50"},  {",", ".", 0, 12.5, "12.50"},
      {".", "", 0, 1234.0, "1234.00"},     {".", ",", 0, 0.0, "0.00"},
  };
  for (const auto& each : cases) {
    ambient.locale.decimal_separator = each.decimal;
    ambient.locale.thousands_separator = each.thousands;
    preferences.SetAmountFormat(each.format);
    EXPECT_EQ(FieldAmountText(each.amount, preferences), each.text);
    EXPECT_EQ(ParsePlainOrUsersAmount(each.text), each.amount) << each.text;
  }
}

}  // namespace
}  // namespace tallyfold
