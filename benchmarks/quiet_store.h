#pragma once

#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "storage/accounts_store.h"
#include "system/posix_file_system.h"

namespace tallyfold::benchmarks {

// The program's own store of accounts, with nobody to answer: files of this version ask nothing.
class QuietStore final : AccountsStore::Host, Alerts, ApplicationHost, ProcessLauncher {
 public:
  AccountsStore& operator*() { return store_; }

 private:
  void ForgetSelectedAccount() override {}
  void CloseMainWindow() override {}
  std::size_t Run(const AlertRequest& /*request*/) override { std::abort(); }
  void Terminate() override {}
  void EndProcess(int status) override { std::exit(status); }
  [[nodiscard]] std::string BundleVersion() const override { return "1.0"; }
  void FlushUserDefaults() override {}
  bool Launch(const std::string& /*program*/, const std::vector<std::string>& /*args*/) override {
    return false;
  }

  PosixFileSystem files_;
  SaveGate gate_;
  DataFolderLock lock_{files_, *this, *this, gate_};
  AccountsStore store_{{files_, *this, *this, *this}, gate_, lock_, *this};
};

}  // namespace tallyfold::benchmarks
