#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "fakes/fake_ambient.h"
#include "fakes/fake_services.h"
#include "fakes/file_text.h"
#include "fakes/temporary_folder.h"
#include "storage/accounts_store.h"
#include "storage/sample_account.h"
#include "storage/stepping_calls.h"
#include "system/posix_file_system.h"

namespace tallyfold {
namespace {

// A run of the program on the real files below `home`.
struct ProgramRun : AccountsStore::Host {
  explicit ProgramRun(int killed_at)
      : files(std::make_unique<SteppingCalls>([killed_at, calls = 0]() mutable {
          if (++calls == killed_at) kill(getpid(), SIGKILL);
        })),
        store({files, alerts, application, processes}, gate, lock, *this) {}
  void ForgetSelectedAccount() override {}
  void CloseMainWindow() override {}

  FakeAmbient ambient;
  PosixFileSystem files;
  FakeAlerts alerts;
  FakeHost application;
  FakeProcessLauncher processes;
  SaveGate gate;
  DataFolderLock lock{files, alerts, application, gate};
  AccountsStore store;
};

// Loads, adds an account and saves in a process of its own; true when that was not killed.
bool SaveInOwnProcess(int killed_at) {
  const pid_t child = fork();
  if (child == 0) {
    ProgramRun run(killed_at);
    if (run.lock.Acquire() && run.store.Accounts_Load()) {
      run.store.AddAccount(SampleAccount());
      run.store.Accounts_Save();
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status);
}

TEST(AccountsSaving, KilledAtAnyStepLeavesTheOldFileOrTheNewOne) {
  const std::string former_home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
  for (const std::string old :
       {"<plist><dict><key>accounts</key><array/><key>appVersion</key><string>2.0</string></dict>"
        "</plist>",
        "no property list", ""}) {
    std::string saved;
    // The last round, in which nothing is killed, tells what a whole save leaves.
    for (int at = 0, done = 0; done == 0; ++at) {
      SCOPED_TRACE(old + " killed at " + std::to_string(at));
      const TemporaryFolder home;
      setenv("HOME", home.path().c_str(), 1);
      const std::string folder = home / "Library/Tallyfold";
      const std::string file = folder + "/Accounts.plist";
      std::filesystem::create_directories(folder + "/Backups");
      if (!old.empty()) std::ofstream(file) << old;

      const bool was_killed = !SaveInOwnProcess(at);
      if (at == 0) saved = FileText(file);
      if (at > 0 && !was_killed) done = 1;
      ASSERT_LT(at, 100);
      const std::string found = FileText(file);
      EXPECT_TRUE(found == old || found == saved);
      EXPECT_TRUE(was_killed || found == saved);

      // The next run has the lock, clears away what was left, and nothing is lost.
      ProgramRun next(0);
      EXPECT_TRUE(next.lock.Acquire());
      EXPECT_TRUE(next.lock.IsHeld());
      EXPECT_TRUE(next.store.Accounts_Load());
      EXPECT_EQ(next.store.accounts().size(), found == saved ? 1U : 0U);
      bool is_kept = false;
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        EXPECT_FALSE(name.starts_with(kTemporaryPrefix)) << name;
        is_kept = is_kept || (name.starts_with("Accounts.plist.kept-") &&
                              FileText(entry.path().string()) == old);
      }
      EXPECT_TRUE(is_kept || old != "no property list" || found == old);
    }
    EXPECT_GT(saved.size(), 1000U);
  }
  setenv("HOME", former_home.c_str(), 1);
}

}  // namespace
}  // namespace tallyfold
