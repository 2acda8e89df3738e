#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_services.h"
#include "storage/accounts_store.h"
#include "storage/preferences.h"

namespace tallyfold {

inline const std::string kData = "/home/user/Library/Tallyfold";
inline const std::string kFile = kData + "/Accounts.plist";
inline const std::string kBackups = kData + "/Backups";

// An accounts file of the given top-level content.
inline std::string FileOf(std::string_view content) {
  return "<plist version=\"1.0\"><dict>" + std::string(content) + "</dict></plist>";
}

// The accounts store over fakes: version 2.0 at noon on 5 March 2007.
struct AccountsStoreFixture : AccountsStore::Host {
  AccountsStoreFixture() {
    ambient.clock.SetLocal({2007, 3, 5, 12, 0, 0});
    LDGRPreferences::SetSharedPreferences(nullptr);
  }
  ~AccountsStoreFixture() override { LDGRPreferences::SetSharedPreferences(nullptr); }

  void ForgetSelectedAccount() override { asked.emplace_back("forget selection"); }
  void CloseMainWindow() override {
    asked.emplace_back("close window");
    // As the application does it: closing the window is a shut-down, and a shut-down saves.
    if (store.HasAccountList()) asked.emplace_back(store.Accounts_Save() ? "saved" : "not saved");
  }

  // As a further start of the program on the same files.
  [[nodiscard]] bool LoadFile(std::string_view content) {
    files.AddFile(kFile, content);
    files.ForgetChanges();
    return store.Accounts_Load();
  }

  FakeAmbient ambient;
  FakeFileSystem files;
  FakeAlerts alerts;
  FakeHost application;
  FakeProcessLauncher processes;
  SaveGate gate;
  DataFolderLock lock{files, alerts, application, gate};
  std::vector<std::string> asked;
  AccountsStore store{{files, alerts, application, processes}, gate, lock, *this};
};

}  // namespace tallyfold
