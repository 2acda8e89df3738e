#include "ledger/recovery_log.h"

#include <gtest/gtest.h>

#include <functional>

#include "ledger/ledger_fixture.h"
#include "ledger/random_user.h"

namespace tallyfold {
namespace {

using Outcome = RecoveryLog::Found::Outcome;
using Protection = RecoveryLog::Protection;

const std::string kLog = kFile + ".recovery";

// One run of the program over files that outlive it.
struct Launch : AccountsStore::Host {
  explicit Launch(FakeFileSystem& its_files, bool settles = true) : files(its_files) {
    alerts.Answer("Update");
    EXPECT_TRUE(store.Accounts_Load());
    log.Replay();
    if (settles) log.Settle();
  }
  void ForgetSelectedAccount() override {}
  void CloseMainWindow() override {}

  [[nodiscard]] std::shared_ptr<LDGRAccount> first() const { return store.accounts().front(); }
  void AddEntry(double amount) {
    Change change(ledger, "Add Entry", first());
    change.Add(first(), MakeEntry({.number = change.NextNumber(first()), .amount = amount}));
    change.Close();
  }
  // A filter chosen as fast as one types.
  void Type(std::int32_t filter) {
    Change change(ledger);
    change.EditSettings(first()).setEntryFilterType(filter);
    change.WriteLater();
    change.Close();
  }
  // Settings and counts too, which come back like everything else.
  [[nodiscard]] std::string Bytes() const {
    std::string bytes = store.password();
    for (const auto& account : store.accounts()) bytes += plist::ToXml(account->asDictionary());
    return bytes;
  }

  FakeFileSystem& files;
  FakeAlerts alerts;
  FakeHost application;
  FakeProcessLauncher processes;
  SaveGate gate;
  DataFolderLock lock{files, alerts, application, gate};
  AccountsStore store{{files, alerts, application, processes}, gate, lock, *this};
  Ledger ledger{store};
  RecoveryLog log{files, ledger, kFile};
};

std::shared_ptr<LDGRAccount> SmallAccount(std::int32_t number) {
  auto account = std::make_shared<LDGRAccount>();
  account->SetNumber(number);
  account->SetPassword("");
  account->SetTypes({MakeType(1, "Bill"), MakeType(2, "Check")});
  while (account->accountSummaries().size() > 1) {
    account->removeAccountSummary(account->accountSummaries().back().get());
  }
  AddEntries(*account, {{.number = account->NextAvailableNumber(), .amount = -5},
                        {.number = account->NextAvailableNumber(), .amount = -6}});
  account->AddSchedule(std::make_shared<LDGRAccountSchedule>());
  return account;
}

struct RecoveryTest : testing::Test {
  RecoveryTest() { ambient.clock.SetLocal({2007, 3, 5, 12, 0, 0}); }
  ~RecoveryTest() override { LDGRPreferences::SetSharedPreferences(nullptr); }

  // A file of two accounts.
  void WriteFile() {
    Launch run(files);
    run.store.AddAccount(SmallAccount(1));
    run.store.AddAccount(SmallAccount(2));
    ASSERT_TRUE(run.store.Accounts_Save());
  }

  FakeAmbient ambient;
  FakeFileSystem files;
};

using Operation = std::function<void(Launch&)>;

// Changes that leave records of every form, undone and redone among them.
const Operation kChanges[] = {
    [](Launch& run) {
      if (run.store.accounts().empty()) {
        Change change(run.ledger, "Add Account", nullptr);
        change.AddAccount(SmallAccount(1));
        change.AddAccount(SmallAccount(2));
        change.Close();
      }
    },
    [](Launch& run) { run.AddEntry(7); },
    [](Launch& run) {
      const auto account = run.first();
      Change change(run.ledger, "Edit", account);
      change.Remove(account, account->GetEntries()[0].get());
      change.Edit(account, account->GetEntries()[0]).SetNotes("<&>");
      change.Edit(account, account->GetSchedules()[0]).AddCommittedDate(20070301);
      change.EditTypes(account).GetTypes()[0]->SetName("Zoo");
      change.Close();
    },
    [](Launch& run) { run.ledger.history().Undo(); },
    [](Launch& run) { run.ledger.history().Redo(); },
    [](Launch& run) {
      for (const std::int32_t type : {5, 6}) run.Type(type);
      run.AddEntry(8);
    },
    [](Launch& run) {
      Change change(run.ledger);
      change.EditSettings(run.first()).setEntryFilterType(3);
      change.EditPassword();
      run.store.setPassword("all");
      change.Close();
    },
    [](Launch& run) {
      Change change(run.ledger, "Remove", run.first());
      change.EditOptions(run.store.accounts()[1]).SetPassword("own");
      change.Edit(run.first(), run.first()->accountSummaries()[0]).setName("S");
      change.RemoveAccount(run.first());
      change.Close();
    },
    [](Launch& run) { run.ledger.history().Undo(); },
};

TEST_F(RecoveryTest, BringsBackWhatAWholeRecordHoldsWhereverTheLogEnds) {
  for (const bool has_file : {true, false}) {
    files = FakeFileSystem();
    if (has_file) WriteFile();
    std::vector<std::string> states;
    std::vector<std::size_t> ends;
    {
      Launch run(files);
      states.push_back(run.Bytes());
      ends.push_back(0);
      for (const Operation& change : kChanges) {
        change(run);
        const std::size_t end = files.Content(kLog).value_or("").size();
        if (end == ends.back()) continue;
        states.push_back(run.Bytes());
        ends.push_back(end);
        EXPECT_EQ(run.log.protection(), Protection::On);
        EXPECT_TRUE(run.log.HoldsChanges());
      }
    }
    EXPECT_EQ(files.Mode(kLog), 0600U);
    ASSERT_GE(ends.size(), 8U);
    const std::string log = *files.Content(kLog);
    const FakeFileSystem before = files;
    std::size_t whole = 0;
    for (std::size_t length = 0; length <= log.size(); ++length) {
      files = before;
      files.AddFile(kLog, std::string_view(log).substr(0, length));
      while (whole + 1 < ends.size() && ends[whole + 1] <= length) ++whole;
      ASSERT_EQ(RecoveryFile(files, kFile).Open()->records.size(), whole) << length;
      // Within a record one place is as good as another.
      const std::size_t next = whole + 1 < ends.size() ? ends[whole + 1] : length;
      if (length - ends[whole] > 40 && next - length > 2 && length % 251 != 0) continue;
      std::string after;
      {
        Launch run(files);
        ASSERT_EQ(run.Bytes(), states[whole]) << length;
        EXPECT_EQ(run.log.found().recovered, whole) << length;
        EXPECT_EQ(run.log.found().kept_path, std::nullopt);
        // The log goes on, or begins anew.
        run.store.accounts().empty() ? kChanges[0](run) : run.AddEntry(9);
        EXPECT_EQ(run.log.protection(), Protection::On) << length;
        after = run.Bytes();
      }
      Launch again(files);
      ASSERT_EQ(again.Bytes(), after) << length;
      ASSERT_TRUE(again.store.Accounts_Save());
      EXPECT_FALSE(files.Exists(kLog));
      EXPECT_FALSE(again.log.HoldsChanges());
    }
  }
}

TEST_F(RecoveryTest, LosesNothingWhereverASaveStops) {
  const struct {
    const char* what;
    std::function<void(FakeFileSystem&)> prepare;
    Operation order;
  } cases[] = {
      {"a file", [](FakeFileSystem&) {}, [](Launch& run) { run.AddEntry(1); }},
      {"no file", [](FakeFileSystem& its) { its.Remove(kFile); }, kChanges[0]},
      {"no folder", [](FakeFileSystem& its) { its.Remove(kData); }, kChanges[0]},
      {"an older file",
       [](FakeFileSystem& its) {
         std::string content = *its.Content(kFile);
         content.replace(content.find("<integer>7<"), 11, "<integer>6<");
         its.AddFile(kFile, content);
       },
       kChanges[2]},
      {"a password", [](FakeFileSystem&) {}, kChanges[6]},
      {"an account that will be locked", [](FakeFileSystem&) {}, kChanges[7]},
      {"an undone step", [](FakeFileSystem&) {},
       [](Launch& run) {
         run.AddEntry(1);
         run.ledger.history().Undo();
       }},
  };
  for (const auto& c : cases) {
    bool is_saved = false;
    for (std::size_t step = 1; !is_saved; ++step) {
      files = FakeFileSystem();
      WriteFile();
      c.prepare(files);
      std::string after;
      {
        Launch run(files);
        c.order(run);
        after = run.Bytes();
        files.FailAtStep(step, FakeFileSystem::Failing::ForEverAfter);
        is_saved = run.store.Accounts_Save() && files.Steps() < step;
      }
      files.StopFailing();
      Launch run(files, false);
      EXPECT_EQ(run.Bytes(), after) << c.what << ' ' << step;
      const auto& found = run.log.found();
      EXPECT_EQ(found.recovered, found.records) << c.what << ' ' << step;
      EXPECT_TRUE(found.outcome == Outcome::Nothing || found.outcome == Outcome::Recovered)
          << c.what << ' ' << step;
    }
  }
}

TEST_F(RecoveryTest, SaysWhereItCannotWriteAndGoesOnAfterASave) {
  for (std::size_t step = 1; step <= 4; ++step) {
    files = FakeFileSystem();
    WriteFile();
    std::string before;
    std::string after;
    Protection protection{};
    {
      Launch run(files);
      run.AddEntry(1);
      before = run.Bytes();
      files.FailAtStep(step, FakeFileSystem::Failing::Once);
      run.AddEntry(2);
      protection = run.log.protection();
      after = run.Bytes();
      EXPECT_EQ(run.first()->GetEntries().size(), 4U) << "the change stands";
      files.StopFailing();
    }
    EXPECT_EQ(protection, step <= 2 ? Protection::Off : Protection::On) << step;
    Launch run(files);
    EXPECT_EQ(run.Bytes(), protection == Protection::On ? after : before) << step;
    files.FailOn(kLog);
    run.AddEntry(3);
    EXPECT_EQ(run.log.protection(), Protection::Off);
    files.StopFailingOn(kLog);
    run.AddEntry(4);
    EXPECT_EQ(run.log.protection(), Protection::Off) << "until all is on the disk";
    ASSERT_TRUE(run.store.Accounts_Save());
    EXPECT_EQ(run.log.protection(), Protection::On);
    EXPECT_FALSE(files.Exists(kLog));
  }
}

TEST_F(RecoveryTest, LetsSettingsWaitForTheNextChangeOrSave) {
  const struct {
    Operation order;
    bool is_held;
  } cases[] = {
      {[](Launch& run) { run.AddEntry(2); }, true},
      {[](Launch& run) { Change(run.ledger).Close(); }, true},
      {[](Launch& run) { run.ledger.history().Undo(); }, true},
      {[](Launch& run) { EXPECT_TRUE(run.store.Accounts_Save()); }, false},
      {[](Launch& run) {
         EXPECT_TRUE(run.store.Accounts_Save());
         run.AddEntry(2);
       },
       true},
  };
  for (const auto& c : cases) {
    files = FakeFileSystem();
    WriteFile();
    std::string after;
    {
      Launch run(files);
      run.AddEntry(1);
      const auto log = files.Content(kLog);
      for (const std::int32_t type : {5, 6, 7}) run.Type(type);
      EXPECT_EQ(files.Content(kLog), log);
      EXPECT_FALSE(run.log.HoldsChanges()) << "not all of them";
      c.order(run);
      EXPECT_EQ(run.log.HoldsChanges(), c.is_held);
      after = run.Bytes();
    }
    EXPECT_EQ(Launch(files).Bytes(), after);
  }
}

TEST_F(RecoveryTest, PutsAWholeSaveInPlaceOfALogThatIsGone) {
  for (const bool can_save : {true, false}) {
    files = FakeFileSystem();
    WriteFile();
    std::string after;
    {
      Launch run(files);
      run.AddEntry(1);
      files.Remove(kLog);
      if (!can_save) files.FailOn(kFile);
      run.AddEntry(2);
      EXPECT_EQ(run.log.protection(), can_save ? Protection::On : Protection::Off);
      EXPECT_EQ(run.store.HasUnsavedChanges(), !can_save);
      files.StopFailingOn(kFile);
      if (!can_save) {
        ASSERT_TRUE(run.store.Accounts_Save());
      }
      run.AddEntry(3);
      EXPECT_EQ(run.log.protection(), Protection::On);
      after = run.Bytes();
    }
    EXPECT_EQ(Launch(files).Bytes(), after);
  }
}

TEST_F(RecoveryTest, BringsBackWhatFollowsARestoreWhereverThatFails) {
  bool is_failing = true;
  for (std::size_t step = 1; is_failing; ++step) {
    files = FakeFileSystem();
    WriteFile();
    files.AddFile(kFile + ".kept-20070304-120000", *files.Content(kFile));
    std::string after;
    {
      Launch run(files);
      run.AddEntry(1);
      run.alerts = FakeAlerts();
      run.alerts.Answer("Restore");
      files.FailAtStep(step, FakeFileSystem::Failing::Once);
      static_cast<void>(run.store.Accounts_RestoreBackup("Accounts.plist.kept-20070304-120000"));
      is_failing = files.Steps() >= step;
      files.StopFailing();
      // What cannot be read cannot be changed either.
      if (run.store.accounts().empty()) continue;
      run.AddEntry(2);
      if (run.log.protection() != Protection::On) continue;
      after = run.Bytes();
    }
    Launch next(files);
    EXPECT_EQ(next.Bytes(), after) << step;
    EXPECT_EQ(next.log.found().kept_path, std::nullopt) << step;
  }
}

TEST_F(RecoveryTest, KeepsAsideWhatDoesNotFit) {
  WriteFile();
  std::string log;
  {
    Launch run(files);
    run.AddEntry(1);
    run.AddEntry(2);
    log = *files.Content(kLog);
  }
  const std::size_t first = log.find("\nR ") + 1;
  const std::size_t second = log.find("\nR ", first) + 1;
  std::string damaged = log;
  damaged[second - 20] ^= 1;
  const auto nothing = [](FakeFileSystem&) {};
  const struct {
    const char* what;
    std::string log;
    Outcome outcome;
    std::size_t recovered;
    std::function<void(FakeFileSystem&)> prepare;
  } cases[] = {
      {"a record twice", log + log.substr(second), Outcome::Partly, 2, nothing},
      {"a record lacking", log.substr(0, first) + log.substr(second), Outcome::Partly, 0, nothing},
      {"a damaged record", damaged, Outcome::Partly, 0, nothing},
      {"another format", "tallyfold recovery 2\n" + log, Outcome::OtherFormat, 0, nothing},
      {"no log at all", std::string(300, 'x'), Outcome::OtherFormat, 0, nothing},
      {"another file", log, Outcome::OtherContent, 0,
       [](FakeFileSystem& its) { its.AddFile(kFile, FileOf("")); }},
      {"the file is gone", log, Outcome::OtherContent, 0,
       [](FakeFileSystem& its) { its.Remove(kFile); }},
  };
  const FakeFileSystem before = files;
  for (const auto& c : cases) {
    files = before;
    c.prepare(files);
    files.AddFile(kLog, c.log);
    { const Launch locked(files, false); }
    EXPECT_EQ(files.Content(kLog), c.log) << c.what << ": untouched before it may be seen";
    std::string now;
    {
      Launch run(files);
      const auto& found = run.log.found();
      EXPECT_EQ(found.outcome, c.outcome) << c.what;
      EXPECT_EQ(found.recovered, c.recovered) << c.what;
      ASSERT_EQ(found.kept_path, kLog + ".kept-20070305-120000") << c.what;
      EXPECT_EQ(files.Content(*found.kept_path), c.log) << c.what;
      EXPECT_EQ(run.log.protection(), Protection::On) << c.what;
      now = run.Bytes();
    }
    EXPECT_EQ(Launch(files).Bytes(), now) << c.what << ": what was recovered is safe";
  }
}

TEST_F(RecoveryTest, MakesOneStepOrderedWhereAnyChangeWas) {
  WriteFile();
  std::string before;
  {
    Launch run(files);
    before = BytesOf(run.store.accounts());
    run.AddEntry(1);
    Change change(run.ledger, "Edit", run.store.accounts()[1]);
    change.EditOptions(run.store.accounts()[1]).SetPassword("own");
    change.Close();
  }
  Launch run(files);
  const auto second = run.store.accounts()[1];
  EXPECT_TRUE(second->IsLocked()) << "the password is the one to be given";
  EXPECT_EQ(run.ledger.history().WhyNotUndo(), History::Refusal::Locked);
  second->Authenticate("own");
  EXPECT_TRUE(run.store.HasUnsavedChanges());
  ASSERT_EQ(run.ledger.history().UndoLines().size(), 1U);
  EXPECT_EQ(run.ledger.history().UndoLines()[0].ordered_in, run.store.accounts());
  EXPECT_TRUE(run.ledger.history().Undo());
  EXPECT_EQ(BytesOf(run.store.accounts()), before);
  EXPECT_EQ(run.first()->GetNumberCount(), 3) << "the number was given";
}

TEST_F(RecoveryTest, LeavesAloneWhatIsNotItsOwn) {
  WriteFile();
  {
    Launch run(files);
    run.AddEntry(1);
    Launch second(files);
    EXPECT_EQ(second.log.found().outcome, Outcome::InUse);
    EXPECT_EQ(second.log.protection(), Protection::No);
    EXPECT_EQ(second.first()->GetEntries().size(), 2U);
  }
  const std::string log = *files.Content(kLog);
  Launch script(files, false);
  script.log.WriteNothing();
  script.log.Settle();
  script.AddEntry(2);
  EXPECT_EQ(script.first()->GetEntries().size(), 4U);
  EXPECT_EQ(files.Content(kLog), log) << "a run that does not save leaves the log";
  EXPECT_TRUE(script.store.Accounts_Save());
  EXPECT_FALSE(files.Exists(kLog));
}

TEST_F(RecoveryTest, SavesWholeWhereTheLogWouldOutgrowTheFile) {
  WriteFile();
  Launch run(files);
  for (const bool can_save : {true, false}) {
    run.AddEntry(1);
    if (!can_save) files.FailOn(kFile);
    Change change(run.ledger, "Notes", run.first());
    change.Edit(run.first(), run.first()->GetEntries()[1])
        .SetNotes(std::string(RecoveryLog::kLeastLimit * (can_save ? 1 : 3), 'x'));
    change.Close();
    EXPECT_EQ(files.Exists(kLog), !can_save);
    EXPECT_EQ(run.log.protection(), Protection::On);
  }
}

TEST_F(RecoveryTest, BringsBackWhateverARestlessUserDid) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    files = FakeFileSystem();
    WriteFile();
    for (unsigned launch = 0; launch < 3; ++launch) {
      std::string after;
      {
        Launch run(files);
        for (const auto& account : run.store.accounts()) account->setAuthenticated(true);
        RandomUser user(run.ledger, seed * 10 + launch);
        for (int i = 0; i < 20; ++i) {
          const int what = user.Below(6);
          if (what == 0) run.ledger.history().Undo();
          if (what == 1) run.ledger.history().Redo();
          if (what > 1) user.Act();
          if (user.Below(25) == 0) run.store.Accounts_Save();
        }
        after = run.Bytes();
      }
      Launch run(files);
      ASSERT_EQ(run.log.found().recovered, run.log.found().records) << seed << ' ' << launch;
      ASSERT_EQ(run.Bytes(), after) << seed << ' ' << launch;
    }
  }
}

}  // namespace
}  // namespace tallyfold
