#include "storage/account_preferences.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_ambient.h"
#include "plist/reader.h"
#include "plist/writer.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

plist::Dictionary Parse(const std::string& content) {
  return plist::Read("<plist><dict>" + content + "</dict></plist>").value.DictionaryValue();
}

const std::string kWholeTable =
    "<key>identifier</key><string>entry</string>"
    "<key>sortDescending</key><true/>"
    "<key>selectedColumn</key><string>date</string>"
    "<key>selectedRow</key><integer>4</integer>"
    "<key>columns</key><array><dict><key>identifier</key><string>date</string></dict></array>"
    "<key>hiddenColumns</key><array/>";

TEST(AccountPreferences, ReadWhatIsThereAndLogWhatIsMissing) {
  const Lines all_missing = {"No columns defined for account preferences",
                             "No selectedRow defined for account preferences",
                             "No selectedColumn defined for account preferences",
                             "No sortDescending defined for account preferences"};
  const std::string empty =
      "<plist version=\"1.0\"><dict><key>tables</key><array/>"
      "<key>accountNumber</key><integer>-1</integer></dict></plist>";
  struct {
    const char* name;
    std::string content;
    Lines logged;
    std::size_t tables;
    std::int32_t number;
  } const cases[] = {
      {"nothing", "", {"No accountNumber defined for account preferences"}, 0, -1},
      {"a number", "<key>accountNumber</key><integer>3</integer>", {}, 0, 3},
      {"a number as text", "<key>accountNumber</key><string>12 </string>", {}, 0, 12},
      {"a table",
       "<key>accountNumber</key><integer>3</integer><key>tables</key><array><dict>" + kWholeTable +
           "</dict></array>",
       {},
       1,
       3},
      {"tables that are none",
       "<key>accountNumber</key><integer>3</integer><key>tables</key><string>x</string>",
       {},
       0,
       3},
      {"elements that are no tables",
       "<key>accountNumber</key><integer>3</integer><key>tables</key><array><integer>1</integer>"
       "<dict><key>selectedRow</key><integer>1</integer></dict><dict><key>identifier</key><true/>"
       "</dict></array>",
       {},
       0,
       3},
      {"a table with nothing but its identifier",
       "<key>accountNumber</key><integer>3</integer><key>tables</key><array><dict>"
       "<key>identifier</key><string>entry</string></dict></array>",
       all_missing, 0, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeAmbient ambient;
    LDGRAccountPreferences preferences(Parse(c.content));
    EXPECT_EQ(ambient.log.Lines(), c.logged);
    EXPECT_EQ(preferences.objectForKey("tables").ArrayValue().size(), c.tables);
    EXPECT_EQ(preferences.GetAccountNumber(), c.number);
  }
  FakeAmbient ambient;
  EXPECT_EQ(LDGRAccountPreferences(std::nullopt).asDictionary(),
            plist::Read(empty).value.DictionaryValue());
  EXPECT_TRUE(ambient.log.Lines().empty());
}

TEST(AccountPreferences, ComeBackAsTheyWereStored) {
  const plist::Dictionary stored =
      Parse("<key>tables</key><array><dict>" + kWholeTable +
            "</dict></array><key>accountNumber</key><integer>3</integer>");
  LDGRAccountPreferences preferences(stored);
  EXPECT_EQ(preferences.asDictionary(), stored);
  EXPECT_TRUE(preferences.GetSortDescendingForTableIdentifier("entry"));
  EXPECT_EQ(preferences.GetSelectedColumnIdentifierForTableIdentifier("entry"), "date");
  EXPECT_EQ(preferences.GetSelectedRowForTableIdentifier("entry"), 4);
  EXPECT_EQ(preferences.GetHiddenColumnsForTableIdentifier("entry")->size(), 0U);
  EXPECT_TRUE(preferences.GetColumnWithIdentifier("date", "entry"));
  EXPECT_FALSE(preferences.GetColumnWithIdentifier("amount", "entry"));
  EXPECT_FALSE(preferences.GetColumnWithIdentifier(std::nullopt, "entry"));
  EXPECT_FALSE(preferences.GetColumnWithIdentifier("date", std::nullopt));
}

TEST(AccountPreferences, MakeATableForEveryNewIdentifierOnce) {
  LDGRAccountPreferences preferences;
  EXPECT_EQ(preferences.GetSelectedRowForTableIdentifier("entry"), -1);
  EXPECT_EQ(preferences.GetSelectedColumnIdentifierForTableIdentifier("entry"), "");
  EXPECT_FALSE(preferences.GetSortDescendingForTableIdentifier("entry"));
  EXPECT_TRUE(preferences.GetColumnsForTableIdentifier("entry")->empty());
  EXPECT_FALSE(preferences.GetHiddenColumnsForTableIdentifier("entry"));
  EXPECT_EQ(preferences.objectForKey("tables").ArrayValue().size(), 1U);

  EXPECT_FALSE(preferences.TableWithIdentifier(std::nullopt));
  EXPECT_EQ(preferences.GetSelectedRowForTableIdentifier(std::nullopt), -1);
  EXPECT_EQ(preferences.objectForKey("tables").ArrayValue().size(), 1U);
}

}  // namespace
}  // namespace tallyfold
