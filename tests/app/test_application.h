#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/controller.h"
#include "app/desk.h"
#include "app/face/front_end.h"
#include "app/face/pop_up_item.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "model/account_entry.h"
#include "platform/notification_center.h"
#include "system/iconv_encodings.h"

namespace tallyfold {

// A front end that a test looks at: it notes what changed and refuses what it is told to refuse.
class TestFrontEnd final : public FrontEnd {
 public:
  void Changed(Area area) override { changed.push_back(area); }
  [[nodiscard]] bool EndEditing(Sheet) override { return !refuses; }

  std::vector<Area> changed;
  bool refuses = false;
};

// The application on fakes, on 7 March 2004 at noon, with its files read, which hold nothing.
struct TestApplication {
  explicit TestApplication(bool is_loaded = true);

  // A new account, which is then selected.
  std::shared_ptr<LDGRAccount> AddAccount(const std::string& name);
  // An entry of that kind, added to the selected account through its sheet and then selected.
  std::shared_ptr<LDGRAccountEntry> AddDebit(double amount, const std::string& description = "");
  std::shared_ptr<LDGRAccountEntry> AddTransferTo(const LDGRAccount& other, double amount);
  // A debit of 5.00 scheduled in the selected account for 1 March, which is then selected.
  void AddDueSchedule();

  FakeAmbient ambient;
  FakeFileSystem files;
  FakeAlerts alerts;
  FakeFilePanels panels;
  FakeProcessLauncher processes;
  FakeSpeech speech;
  FakeSpeech field_speech;
  FakeRunLoop loop{&ambient.clock};
  NotificationCenter notifications;
  FakeHost host;
  IconvEncodings encodings;
  TestFrontEnd front_end;
  LDGRController app;
};

// Every stored property in one line: "#1 20040307 debit -12.50", then what is not as in a new
// entry, as in "type=0 check=101 'Food' to 'Shop' cleared tax notes 'n' split(Rent,Owner,5.00)
// ->2#1 origin".
[[nodiscard]] std::string Line(const LDGRAccountEntry& entry);
// The lines of all entries in their order.
[[nodiscard]] std::vector<std::string> Lines(const LDGRAccount& account);
// The titles of items, "-" for a separator.
[[nodiscard]] std::vector<std::string> TitlesOf(const std::vector<PopUpItem>& items);
// Index of the item with that title, or kNoItem.
[[nodiscard]] std::int32_t IndexOf(const std::vector<PopUpItem>& items, const std::string& title);

}  // namespace tallyfold
