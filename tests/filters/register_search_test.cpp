#include "filters/register_search.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"
#include "model/account.h"
#include "model/current_account.h"

namespace tallyfold {
namespace {

using namespace std::chrono_literals;

class FakeHost final : public RegisterSearch::Host {
 public:
  [[nodiscard]] RegisterKind ShownRegister() const override { return shown; }
  void ReloadShownRegister() override {
    const LDGRAccount* const account = CurrentAccount();
    const EntryList entries = shown == RegisterKind::Entry ? account->entryFilteredEntries()
                                                           : account->reconcileFilteredEntries();
    log += "reload " + std::to_string(entries.size()) + "; ";
  }
  void UpdateEntryDependentButtons() override { log += "buttons; "; }
  void UpdateBalanceField() override { log += "balance; "; }
  void AsOne(const std::function<void()>& steps) override { steps(); }
  void AsKeystroke(const std::function<void()>& steps) override { steps(); }
  void StopSpeech() override { log += "stop speech; "; }
  void FocusSearchField() override { log += "focus; "; }
  void SearchStateChanged() override {}

  [[nodiscard]] std::string TakeLog() { return std::exchange(log, {}); }

  RegisterKind shown = RegisterKind::Entry;
  std::string log;
};

class RegisterSearchTest : public testing::Test {
 protected:
  RegisterSearchTest() {
    for (const char* description : {"Coffee", "Tea", "Cocoa"}) {
      auto entry = std::make_shared<LDGRAccountEntry>();
      entry->SetDescription(description);
      account_.AddEntry(std::move(entry));
    }
  }

  FakeAmbient ambient_;
  FakeRunLoop loop_;
  LDGRAccount account_;
  ScopedCurrentAccount current_{&account_};
  FakeHost host_;
  RegisterSearch search_{loop_, host_};
};

TEST_F(RegisterSearchTest, FiltersOnceHalfASecondAfterTheLastLetter) {
  for (const char* text : {"c", "co", "cof"}) {
    search_.Search_Field(text);
    loop_.AdvanceBy(499ms);
  }
  EXPECT_EQ(account_.entryFilterData(), plist::Value("cof"));
  EXPECT_EQ(host_.TakeLog(), "");
  loop_.AdvanceBy(1ms);
  EXPECT_EQ(host_.TakeLog(), "reload 1; buttons; balance; ");
  loop_.AdvanceBy(10s);
  EXPECT_EQ(host_.TakeLog(), "");

  search_.Search_Field("t");
  search_.Search_Field(std::nullopt);
  search_.CancelDelayedSearch();
  loop_.AdvanceBy(10s);
  EXPECT_EQ(account_.entryFilterData(), plist::Value("t"));
  EXPECT_EQ(host_.TakeLog(), "");
}

TEST_F(RegisterSearchTest, BelongsToTheRegisterThatIsShowing) {
  struct Case {
    RegisterKind shown;
    std::string_view entry_data;
    std::string_view reconcile_data;
    std::string_view log;
  };
  for (const Case& c : {Case{RegisterKind::Entry, "co", "", "reload 2; buttons; balance; "},
                        Case{RegisterKind::Reconcile, "", "co", "reload 2; buttons; "},
                        Case{RegisterKind::Other, "", "co", "reload 2; buttons; "}}) {
    account_.setEntryFilterData("");
    account_.setReconcileFilterData("");
    host_.shown = c.shown;
    search_.Search_Field("co");
    loop_.AdvanceBy(500ms);
    EXPECT_EQ(account_.entryFilterData().StringValue(), c.entry_data);
    EXPECT_EQ(account_.reconcileFilterData().StringValue(), c.reconcile_data);
    EXPECT_EQ(host_.TakeLog(), c.log);
  }
}

TEST_F(RegisterSearchTest, SetsUpFieldLabelAndMenuForTheChosenFilter) {
  account_.setEntryFilterData("left over");
  search_.Filter_Menu(10);
  EXPECT_EQ(account_.entryFilterType(), 10);
  EXPECT_EQ(account_.entryFilterData(), plist::Value(""));
  EXPECT_EQ(host_.TakeLog(), "stop speech; reload 3; focus; buttons; balance; ");
  EXPECT_EQ(search_.State().menu_type, 10);
  EXPECT_EQ(search_.State().entry, (SearchFieldState{"", true, "Search 'Description'", true}));

  host_.shown = RegisterKind::Reconcile;
  search_.Filter_Menu(80);
  EXPECT_EQ(account_.reconcileFilterType(), 80);
  EXPECT_EQ(host_.TakeLog(), "stop speech; reload 0; buttons; ");
  EXPECT_EQ(search_.State().menu_type, 80);
  EXPECT_EQ(search_.State().reconcile,
            (SearchFieldState{"Resolved", false, "Filter 'Resolved'", true}));
  EXPECT_EQ(search_.State().entry.label, "Search 'Description'");

  host_.shown = RegisterKind::Other;
  search_.Filter_Menu(21);
  EXPECT_EQ(host_.TakeLog(), "stop speech; buttons; ");
  EXPECT_EQ(account_.entryFilterType(), 10);
  EXPECT_EQ(account_.reconcileFilterType(), 80);
  EXPECT_EQ(search_.State().menu_type, 21);
  EXPECT_EQ(search_.State().reconcile.text, "Resolved");

  host_.shown = RegisterKind::Entry;
  account_.setEntryFilterData("co");
  search_.PopulateForFilter(account_.entryFilter().get());
  EXPECT_EQ(search_.State().entry, (SearchFieldState{"co", true, "Search 'Description'", true}));
  search_.PopulateForFilter(nullptr);
  EXPECT_EQ(search_.State().entry, SearchFieldState{});
}

TEST_F(RegisterSearchTest, CancelsToTheSameKindOfSearchOrTheGeneralOne) {
  using Types = std::array<std::int32_t, 2>;  // before and after
  for (const auto& [type, type_after] : {Types{0, 0}, Types{14, 14}, Types{71, 71}, Types{20, 0},
                                         Types{90, 0}, Types{-9999, -9999}}) {
    for (const RegisterKind shown : {RegisterKind::Entry, RegisterKind::Reconcile}) {
      host_.shown = shown;
      search_.Filter_Select(type);
      search_.Search_Field("co");
      search_.Search_Cancel();
    }
    EXPECT_EQ(account_.entryFilterType(), type_after);
    EXPECT_EQ(account_.entryFilterData(), plist::Value(""));
    EXPECT_EQ(account_.reconcileFilterType(), type_after);
    EXPECT_EQ(account_.reconcileFilterData(), plist::Value(""));
  }
  host_.shown = RegisterKind::Other;
  host_.log.clear();
  search_.Search_Cancel();
  EXPECT_EQ(host_.TakeLog(), "");
}

}  // namespace
}  // namespace tallyfold
