#pragma once

#include <string>

#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "platform/application_host.h"
#include "storage/accounts_store.h"

namespace tallyfold {

struct AboutState {
  bool is_open = false;
  std::string version;
  std::string license;
  std::string accounts_file;
  std::string backup_folder;
};

// What the program is, and where it keeps what belongs to the user.
class AboutSheet {
 public:
  // All must outlive the sheet.
  AboutSheet(const ApplicationHost& host, const AccountsStore& store, SheetSlot& sheets,
             Announcer& announcer) noexcept
      : host_(host), store_(store), sheets_(sheets), announcer_(announcer) {}
  AboutSheet(const AboutSheet&) = delete;
  AboutSheet& operator=(const AboutSheet&) = delete;

  // Filled while the sheet is open.
  [[nodiscard]] const AboutState& State() const noexcept { return state_; }
  // False while a sheet is open.
  bool Open();
  void Close();

 private:
  const ApplicationHost& host_;
  const AccountsStore& store_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  AboutState state_;
};

}  // namespace tallyfold
