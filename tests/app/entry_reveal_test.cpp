#include "app/entries/entry_reveal.h"

#include <gtest/gtest.h>

#include "ledger/ledger_fixture.h"
#include "model/account_entry.h"

namespace tallyfold {
namespace {

struct FakeHost final : EntryReveal::Host {
  [[nodiscard]] bool IsShown(const LDGRAccountEntry* /*entry*/) const override { return is_shown; }
  [[nodiscard]] std::shared_ptr<LDGRFilter> CurrentFilter() const override { return filter; }
  void ShowAllEntries() override { log += "all "; }
  void Account_Select(const std::shared_ptr<LDGRAccount>& account) override {
    log += account->GetName() + ' ';
    if (selects != nullptr) selects->SetSelectedAccount(account);
  }

  bool is_shown = false;
  std::shared_ptr<LDGRFilter> filter;
  // Null while the account asks for its password first.
  Desk* selects = nullptr;
  std::string log;
};

struct RevealTest : testing::Test, LedgerFixture {
  Desk desk{store};
  FakeHost host;
  Announcer announcer;
  SheetSlot sheets{announcer};
  TransferLinks links{store};
  EntryReveal reveal{host, desk, sheets, links, announcer};
  std::shared_ptr<LDGRAccountEntry> entry = first->GetEntries().front();
};

TEST_F(RevealTest, TellsOfAnEntryThatAFilterHides) {
  using Reason = EntryReveal::Reason;
  const auto filter = std::make_shared<LDGRFilter>();
  filter->SetName("Rent");
  struct Case {
    const char* what;
    bool has_entry;
    std::shared_ptr<LDGRFilter> filter;
    bool is_shown;
    Reason reason;
    const char* text;
    const char* log;
  } const cases[] = {
      {"added", true, filter, false, Reason::Added, "Added; hidden by the filter 'Rent'", "all "},
      {"changed", true, filter, false, Reason::Changed, "Changed; hidden by the filter 'Rent'",
       "all "},
      {"sought", true, filter, false, Reason::Sought, "Hidden by the filter 'Rent'", "all "},
      {"in its row still", true, filter, true, Reason::Added, "", ""},
      {"no filter", true, nullptr, false, Reason::Added, "", ""},
      {"no entry", false, filter, false, Reason::Added, "", ""},
  };
  for (const Case& c : cases) {
    host.filter = c.filter;
    host.is_shown = c.is_shown;
    host.log.clear();
    reveal.TellIfHidden(c.has_entry ? entry : nullptr, c.reason);
    EXPECT_EQ(reveal.State().text, c.text) << c.what;
    reveal.ShowHiddenEntry();
    EXPECT_EQ(host.log, c.log) << c.what;
    EXPECT_EQ(reveal.State().text, "") << c.what;
  }
}

TEST_F(RevealTest, ForgetsAnEntryThatIsGone) {
  host.filter = std::make_shared<LDGRFilter>();
  reveal.TellIfHidden(std::make_shared<LDGRAccountEntry>(), EntryReveal::Reason::Added);
  reveal.ShowHiddenEntry();
  EXPECT_EQ(host.log, "");
  EXPECT_FALSE(reveal.ShowOtherHalf()) << "no entry is selected";
}

}  // namespace
}  // namespace tallyfold
