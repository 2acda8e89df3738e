#include "app/shell/recovery.h"

#include <gtest/gtest.h>

#include <functional>

#include "app/accounts/account_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/transfer_linking.h"
#include "app/shell/application_lock.h"
#include "app/shell/lifecycle.h"
#include "app/shell/saving.h"
#include "app/shell/undo.h"
#include "app/test_application.h"
#include "ledger/change.h"
#include "ledger/ledger_fixture.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

constexpr const char* kRecoveredFile = "/home/user/Library/Tallyfold/Accounts.plist";
constexpr const char* kLog = "/home/user/Library/Tallyfold/Accounts.plist.recovery";

// A session that is launched on what an earlier one left on the disk.
struct Launched : TestApplication {
  explicit Launched(const FakeFileSystem& left) : TestApplication(false) {
    for (const char* path : {kRecoveredFile, kLog}) {
      if (const auto content = left.Content(path)) files.AddFile(path, *content);
    }
    EXPECT_TRUE(app.lifecycle().applicationDidFinishLaunching());
  }
};

TEST(Recovery, BringsBackWhatASessionCouldNotSave) {
  struct Case {
    const char* what;
    std::function<void(TestApplication&)> after_saving;
    std::string notice;
  } const cases[] = {
      {"nothing", [](TestApplication&) {}, ""},
      {"an entry", [](TestApplication& test) { test.AddDebit(5.0, "Lunch"); },
       "1 change from before the interruption was recovered."},
      {"both halves of a transfer and a removal",
       [](TestApplication& test) {
         test.AddTransferTo(*test.app.desk().accounts().front(), 7.0);
         test.AddDebit(5.0, "Lunch");
         test.app.entryRemoval().Entry_Delete();
       },
       "3 changes from before the interruption were recovered."},
      {"an undone step",
       [](TestApplication& test) {
         test.AddDebit(5.0, "Lunch");
         test.app.undo().UndoStep();
       },
       "2 changes from before the interruption were recovered."},
      {"orders that change both accounts",
       [](TestApplication& test) {
         const auto selected = test.app.desk().SelectedAccount();
         const auto other = test.app.desk().accounts().front();
         const auto type = std::make_shared<LDGRAccountEntryType>();
         type->SetNumber(selected->NextAvailableTypeNumber());
         type->SetName("Odd");
         Change change(test.app.ledger(), "Edit Account", selected);
         change.EditTypes(selected).AddType(type);
         change.Close();
         test.AddDebit(5.0);
         test.app.entryOrders().SetType(selected->GetEntries(), type->GetNumber());
         test.app.entryOrders().MoveTo({selected->GetEntries().back()}, other->GetNumber());
         test.AddDebit(5.0);
         test.app.entryOrders().Entry_ChangeKind();
         test.app.transferLinking().Entry_Link();
         test.app.entryOrders().Entry_Duplicate();
         test.app.entryRemoval().EntriesRemoveConfirm_Begin(selected->GetEntries());
         test.app.entryRemoval().EntryRemoveConfirm_OK();
         test.app.entryRemoval().TransferEntryRemoveConfirm_Yes();
       },
       "9 changes from before the interruption were recovered."},
      {"an account", [](TestApplication& test) { test.AddAccount("C"); },
       "1 change from before the interruption was recovered."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TestApplication test;
    test.AddAccount("A");
    test.AddAccount("B");
    test.AddDebit(1.0, "Saved");
    ASSERT_TRUE(test.app.saving().Accounts_Save());
    EXPECT_FALSE(test.app.recovery().HoldsChanges());
    const std::string saved = BytesOf(test.app.desk().accounts());
    c.after_saving(test);
    const std::string before = BytesOf(test.app.desk().accounts());

    Launched next(test.files);
    EXPECT_EQ(BytesOf(next.app.desk().accounts()), before);
    EXPECT_EQ(next.app.recovery().Notice(), c.notice);
    if (c.notice.empty()) continue;
    EXPECT_TRUE(next.app.recovery().HoldsChanges());
    // All of it is one step.
    EXPECT_TRUE(next.app.undo().UndoStep());
    EXPECT_EQ(BytesOf(next.app.desk().accounts()), saved);
    EXPECT_EQ(next.app.undo().UndoLines().size(), 0U);
    EXPECT_TRUE(next.app.undo().RedoStep());
    EXPECT_TRUE(next.app.saving().Accounts_Save());
    EXPECT_EQ(next.files.Content(kLog), std::nullopt);
    next.app.recovery().CloseNotice();
    EXPECT_EQ(next.app.recovery().Notice(), "");
  }
}

TEST(Recovery, TellsOnlyWhoeverGaveThePassword) {
  TestApplication test;
  test.AddAccount("A");
  test.app.applicationLock().setPassword("x");
  ASSERT_TRUE(test.app.saving().Accounts_Save());
  test.AddDebit(5.0, "Lunch");

  Launched next(test.files);
  EXPECT_FALSE(next.app.applicationLock().authenticated());
  EXPECT_EQ(next.app.recovery().Notice(), "");
  EXPECT_TRUE(next.files.Content(kLog).has_value());
  next.app.applicationLock().authenticationSheet_ValidatePassword("x");
  next.app.applicationLock().OK();
  next.loop.AdvanceBy(std::chrono::seconds(1));
  EXPECT_NE(next.app.recovery().Notice(), "");
  EXPECT_EQ(next.app.desk().accounts().front()->GetEntries().size(), 1U);
}

}  // namespace
}  // namespace tallyfold
