#include <gtest/gtest.h>

#include "app/accounts/account_editing.h"
#include "app/desk.h"
#include "app/entries/completion.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_suggestion.h"
#include "app/face/announcer.h"
#include "app/shell/lifecycle.h"
#include "app/shell/text_editing.h"
#include "app/shell/update_check.h"
#include "app/test_application.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

TEST(Completions, BeginWithTheTypedTextAndThenHoldIt) {
  const TextList texts = {"Fast Food", "food", "Rent", "Foodstuffs", "Élan"};
  struct Case {
    const char* typed;
    Texts found;
  } const cases[] = {
      {"", texts},
      {"foo", {"food", "Foodstuffs", "Fast Food"}},
      {"FOOD", {"food", "Foodstuffs", "Fast Food"}},
      {"éL", {"Élan"}},
      {"xyz", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(Completions(texts, c.typed), c.found) << c.typed;
}

TEST(Suggestions, FillTheEmptyFieldsFromTheLastEntryOfThatDescription) {
  TestApplication test;
  auto& app = test.app;
  test.AddAccount("A");
  for (const double amount : {8.0, 9.5}) {
    const auto entry = test.AddDebit(amount, "Food");
    entry->SetToFrom("Shop");
    entry->SetType(1);
  }
  struct Case {
    const char* description;
    double amount;
    std::string to_from;
    // As it is after the suggestion was taken.
    double expected_amount;
    std::string expected_to_from;
    std::string expected_type;
  } const cases[] = {
      {"fOOD", 0.0, "", 9.5, "Shop", "Debit Card"},
      {"Food", 3.0, "Mill", 3.0, "Mill", "Debit Card"},
      {"Foo", 0.0, "", 0.0, "", "None"},
      {"", 0.0, "", 0.0, "", "None"},
  };
  for (const Case& c : cases) {
    app.entries().New(EntryKind::Debit);
    auto typed = app.entries().Debit().State().typed;
    typed.description = c.description;
    typed.amount = c.amount;
    typed.to_from = c.to_from;
    app.entries().Debit().Read(typed);
    app.entries().SuggestForDescription();
    app.entries().Debit().TakeSuggestion();
    const auto& state = app.entries().Debit().State();
    EXPECT_EQ(state.typed.amount, c.expected_amount) << c.description;
    EXPECT_EQ(state.typed.to_from, c.expected_to_from) << c.description;
    EXPECT_EQ(state.type_items[static_cast<std::size_t>(state.typed.type)].title, c.expected_type)
        << c.description;
    EXPECT_FALSE(state.suggestion.has_value());
    app.entries().Debit().Cancel();
  }
  // A deposit is another matter, and an entry is no suggestion for itself.
  const LDGRAccount& account = *app.desk().SelectedAccount();
  EXPECT_FALSE(FormerEntries(account, false, nullptr).SuggestionFor("Food"));
  EXPECT_EQ(FormerEntries(account, true, app.desk().SelectedEntry().get()).SuggestionFor("Food"),
            (EntrySuggestion{1, "Shop", 8.0}));
}

TEST(TextEditing, HasItsConsequencesWhenAFieldIsLeft) {
  TestApplication test(false);
  auto& app = test.app;
  ASSERT_TRUE(app.lifecycle().applicationDidFinishLaunching());
  app.accountSheet().AccountEditSheet_OK();
  test.AddDebit(4.0, "Food");
  app.entries().New(EntryKind::Debit);
  auto typed = app.entries().Debit().State().typed;
  typed.description = "Food";
  typed.split[0].amount = 2.0;
  app.entries().Debit().Read(typed);
  test.notifications.Post(kTextDidEndEditing, &text_field::kDescription);
  EXPECT_TRUE(app.entries().Debit().State().suggestion.has_value());
  test.notifications.Post(kTextDidBeginEditing, &text_field::kDescription);
  EXPECT_FALSE(app.entries().Debit().State().suggestion.has_value());
  test.notifications.Post(kTextDidEndEditing, &text_field::kDepositSplit);
  EXPECT_EQ(app.entries().Debit().State().split_total, 0.0);
  test.notifications.Post(kTextDidEndEditing, &text_field::kDebitSplit);
  EXPECT_EQ(app.entries().Debit().State().split_total, 2.0);
}

TEST(Versions, AreComparedNumberByNumber) {
  struct Case {
    const char* a;
    const char* b;
    int order;
  } const cases[] = {
      {"2.0", "2.0", 0},    {"2.1", "2.0", 1},    {"2.10", "2.9", 1}, {"2", "2.0.0", 0},
      {"2.0", "2.0.1", -1}, {"10.0", "9.9.9", 1}, {"", "0.0", 0},     {"2.0b1", "2.0", 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CompareVersions(c.a, c.b), c.order) << c.a << " " << c.b;
    EXPECT_EQ(CompareVersions(c.b, c.a), -c.order) << c.b << " " << c.a;
  }
}

TEST(UpdateCheck, TellsInTheBackgroundOnlyOfANewerVersion) {
  FakeHost host;
  Announcer announcer;
  using Status = UpdateState::Status;
  struct Service final : UpdateService {
    void FetchLatestVersion(const std::string& asked, Answer to) override {
      address = asked;
      answer = std::move(to);
    }
    void Cancel() noexcept override { answer = nullptr; }
    std::string address;
    Answer answer;
  } service;
  struct Case {
    std::optional<std::string> version;
    Status status;
    bool opens_window;
  } const cases[] = {{"2.0", Status::UpToDate, false},
                     {"1.9", Status::UpToDate, false},
                     {"2.0.1", Status::NewerVersion, true},
                     {std::nullopt, Status::NoAnswer, false},
                     {"<html>", Status::NoAnswer, false}};
  for (const Case& c : cases) {
    for (const bool by_user : {false, true}) {
      UpdateCheck check(host, &service, announcer);
      check.SetAddress("https://updates.example/latest");
      by_user ? check.CheckForUpdates() : check.CheckForUpdates_Auto();
      EXPECT_EQ(check.State().status, Status::Checking);
      service.answer(c.version);
      EXPECT_EQ(check.State().status, c.status);
      EXPECT_EQ(check.State().window_is_open, by_user || c.opens_window);
    }
  }
  EXPECT_EQ(service.answer, nullptr);  // a check that goes wants no answer any more
  UpdateCheck without_address(host, &service, announcer);
  without_address.CheckForUpdates();
  EXPECT_EQ(without_address.State().status, Status::NoAddress);
}

}  // namespace
}  // namespace tallyfold
