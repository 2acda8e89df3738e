#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/shell/tabs.h"
#include "app/test_application.h"
#include "exchange/export_options.h"

namespace tallyfold {
namespace {

using QifPanel = LDGRQIFExportAccessoryView;

struct ExportTest : testing::Test, TestApplication {
  ExportTest() {
    first = AddAccount("Checking");
    locked = AddAccount("Secret");
    locked->SetPassword("x");
    locked->setAuthenticated(false);
    current = AddAccount("Cash");
    AddDebit(5, "Tea");
    AddDebit(7, "Bread");
  }
  std::shared_ptr<LDGRAccount> first, locked, current;
};

TEST_F(ExportTest, ProposesWhatWasChosenTheLastTime) {
  struct Case {
    std::int32_t stored;
    std::int32_t proposed;
  };
  const std::int32_t own = current->GetNumber();
  const Case cases[] = {{-5, own},
                        {-1, -1},
                        {-10, -10},
                        {first->GetNumber(), first->GetNumber()},
                        {locked->GetNumber(), own},
                        {99, own},
                        {-3, QifPanel::kCurrentAccount}};
  for (const Case& each : cases) {
    app.desk().preferences().setQIFExportAccount(each.stored);
    panels.while_up = [&] {
      const QifPanel& panel = app.exports().sharedQIFExportAccessoryView();
      EXPECT_EQ(panel.exportAccount(), each.proposed) << each.stored;
      EXPECT_EQ(panel.exportDateFormat(), "%m/%d/%y");
      EXPECT_EQ(panel.encoding(), 4U);
    };
    EXPECT_EQ(app.exports().ExportQIF(), WriteResult::Cancelled);
    EXPECT_EQ(app.desk().preferences().GetQIFExportAccount(), each.stored);
  }
  EXPECT_EQ(TitlesOf(app.exports().sharedQIFExportAccessoryView().exportAccounts()),
            (std::vector<std::string>{"Current Filter Results", "-", "Checking", "Secret (Locked)",
                                      "Cash", "-", "All Accounts"}));
  const PopUpItem& item = app.exports().sharedQIFExportAccessoryView().exportAccounts()[3];
  EXPECT_TRUE(!item.is_enabled && item.image == "locked");
  const auto& request = panels.SaveRequests().front();
  EXPECT_EQ(request.title + '|' + request.name + '|' + request.name_label + request.button,
            "Export QIF|Tallyfold QIF Export.qif|Export as:Export");
}

TEST_F(ExportTest, WritesTheScopeThatIsChosen) {
  ExportOptions all;
  all.date_format = "%Y/%m/%d";
  ExportOptions shown = all;
  current->setEntryFilterType(10);
  current->setEntryFilterData("tea");
  current->setReconcileFilterType(10);
  current->setReconcileFilterData("bread");
  const auto filtered = [&](const std::shared_ptr<LDGRFilter>& filter) {
    shown.export_filter = filter;
    return current->asQIFStringWithOptions(shown);
  };
  struct Case {
    std::int32_t scope;
    Tab tab;
    std::string text;
  };
  const Case cases[] = {
      {-1, Tab::Entry, filtered(current->entryFilter())},
      {-1, Tab::Reconcile, filtered(current->reconcileFilter())},
      {-1, Tab::Schedule, filtered(current->reconcileFilter())},
      {first->GetNumber(), Tab::Entry, first->asQIFStringWithOptions(all)},
      {locked->GetNumber(), Tab::Entry, current->asQIFStringWithOptions(all)},
      {-10, Tab::Entry, first->asQIFStringWithOptions(all) + current->asQIFStringWithOptions(all)},
  };
  for (const Case& each : cases) {
    app.tabs().Select(each.tab);
    panels.while_up = [&] {
      app.exports().sharedQIFExportAccessoryView().setExportAccount(each.scope);
      app.exports().sharedQIFExportAccessoryView().setExportDateFormat("%Y/%m/%d");
      app.exports().sharedQIFExportAccessoryView().setExportDateFormat("%e");  // none of them
    };
    alerts.Answer("Overwrite");
    panels.Answer("/home/user/out.qif");
    app.exports().export_MenuItem(1);
    EXPECT_EQ(files.Content("/home/user/out.qif"), each.text) << each.scope;
    const bool is_refused = each.scope == locked->GetNumber();
    EXPECT_EQ(app.desk().preferences().GetQIFExportAccount(),
              is_refused ? QifPanel::kCurrentAccount : each.scope);
    EXPECT_EQ(app.desk().preferences().GetQIFExportDateFormat(), "%Y/%m/%d");
  }
}

TEST_F(ExportTest, WritesTextInTheChosenEncodingWhateverItLacks) {
  struct Case {
    std::uint32_t encoding;
    std::string written;
  };
  // 99 is no encoding: the user's own takes its place.
  for (const auto& [encoding, written] :
       {Case{4, "Tür"}, Case{5, "T\xFCr"}, Case{1, "T?r"}, Case{99, "Tür"}}) {
    files.Remove("/home/user/out.txt");
    current->GetEntries()[0]->SetDescription("Tür");
    panels.while_up = [&, wanted = encoding] {
      app.exports().exportAccessoryManager().setExportType(7);  // there is none: all entries
      app.exports().exportAccessoryManager().setEncoding(wanted);
    };
    panels.Answer("/home/user/out.txt");
    EXPECT_EQ(app.exports().ExportText(), WriteResult::Written);
    const std::string text = files.Content("/home/user/out.txt").value_or("");
    EXPECT_NE(text.find('\t' + written + '\t'), std::string::npos) << encoding;
    EXPECT_NE(text.find("Starting Balance"), std::string::npos);
    EXPECT_EQ(current->textExport_Encoding(), encoding == 99 ? 0 : static_cast<int>(encoding));
    EXPECT_EQ(current->textExport_ExportType(), LDGRExportAccessoryManager::kAllEntries);
  }
  EXPECT_EQ(panels.SaveRequests().back().name, "Cash.txt");
}

TEST_F(ExportTest, DoesNothingWithoutAnAccountOrForOtherMenuItems) {
  app.exports().export_MenuItem(3);
  app.selection().Account_Deselect();
  app.exports().export_MenuItem(1);
  EXPECT_EQ(app.exports().ExportText(), WriteResult::NotAsked);
  EXPECT_EQ(app.exports().SaveAs(), WriteResult::NotAsked);
  EXPECT_TRUE(panels.SaveRequests().empty());
  EXPECT_EQ(speech.Heard().back(), "(stop)");
}

TEST_F(ExportTest, SavesTheAccountsElsewhereAndTellsFailures) {
  panels.Answer("/home/user/Accounts.plist");
  EXPECT_EQ(app.exports().SaveAs(), WriteResult::Written);
  EXPECT_EQ(panels.SaveRequests().back().name_label, "Save As:");
  panels.Answer("/home/user/out.qif");
  files.FailAtStep(1, FakeFileSystem::Failing::ForEverAfter);
  EXPECT_EQ(app.exports().ExportQIF(), WriteResult::Failed);
  EXPECT_FALSE(app.exports().Save());
  files.StopFailing();
  EXPECT_TRUE(app.exports().Save());
}

TEST_F(ExportTest, TakesANameThatIsFreeOrMayBeOverwritten) {
  files.AddFile("/home/user/old", "x");
  files.AddFile("/home/user/fixed", "x", 0400);
  const std::string data = "/home/user/Library/Tallyfold";
  const std::string backups = data + "/Backups";
  const std::string preferences = "/home/user/Library/Preferences/Quorva";
  files.AddFile(data + "/Accounts.plist", "x");
  const char* const owned[] = {
      "Accounts.plist.kept-20070305-120000",
      "Accounts.plist.recovery",
      "Accounts.plist.recovery.kept-20070305-120000",
  };
  for (const char* name : owned) files.AddFile(data + '/' + name, "x");
  files.AddFile(backups + "/b", "x");
  files.AddFolder(preferences);
  struct Case {
    const char* folder;
    const char* name;
    bool confirmed;
    const char* answer;  // "" where nothing is asked
    bool accepted;
    const char* last_alert;
  };
  const Case cases[] = {
      {"/home/user", "new", true, "", true, ""},
      {"/home/user", "old", false, "", true, ""},
      {"/home/user", "old", true, "OK", false, "File Already Exists"},
      {"/home/user", "old", true, "Overwrite", true, "File Already Exists"},
      {"/home/user", "fixed", true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {"/nowhere", "new", true, "", false, "Unable to write file at the specified path"},
      {data.c_str(), "Accounts.plist", true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {data.c_str(), owned[0], true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {data.c_str(), owned[1], true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {data.c_str(), owned[2], true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {backups.c_str(), "b", true, "Overwrite", false,
       "Unable to write file using the specified path and filename"},
      {preferences.c_str(), "Tallyfold Preferences", true, "", false,
       "Unable to write file at the specified path"},
      {preferences.c_str(), "other", true, "", true, ""},
  };
  for (const Case& each : cases) {
    if (*each.answer != '\0') alerts.Answer(each.answer);
    const std::size_t before = alerts.Requests().size();
    EXPECT_EQ(app.exports().userEnteredFilename(each.folder, each.name, each.confirmed).has_value(),
              each.accepted)
        << each.name;
    const bool has_asked = alerts.Requests().size() > before;
    const AlertRequest last = has_asked ? alerts.Requests().back() : AlertRequest{};
    EXPECT_EQ(last.title == "Error" ? last.message : last.title, each.last_alert) << each.name;
  }
}

TEST(EncodingMenus, OfferTheUsersOwnThenUnicodeThenTheRestByName) {
  FakeAmbient ambient;
  const IconvEncodings encodings;
  EncodingMenu menu;
  for (const auto& [own, others_start] : {std::pair(30, 4), std::pair(4, 3), std::pair(10, 3)}) {
    ambient.locale.default_encoding = own;
    menu.Populate(encodings);
    EXPECT_EQ(menu.encoding(), own);
    EXPECT_EQ(menu.items().size(), encodings.List().size() + 1);
    EXPECT_TRUE(menu.items()[static_cast<std::size_t>(others_start) - 1].is_separator);
    EXPECT_TRUE(std::is_sorted(menu.items().begin() + others_start, menu.items().end(),
                               [](const auto& a, const auto& b) { return a.title < b.title; }));
    menu.setEncoding(77);
    EXPECT_EQ(menu.encoding(), 0);
  }
}

}  // namespace
}  // namespace tallyfold
