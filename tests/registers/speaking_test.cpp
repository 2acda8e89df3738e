#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "model/account.h"
#include "registers/entry_speaker.h"
#include "registers/speaking_text_field.h"

namespace tallyfold {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

struct FakeHost final : EntrySpeaker::Host, LDGRAccountTableViewData::Host {
  [[nodiscard]] bool RegisterWindowIsMain() const override { return window_is_main; }
  [[nodiscard]] RegisterKind ShownRegister() const override { return shown; }
  [[nodiscard]] LDGRAccountTableViewData* CurrentRegister() override { return rows; }
  [[nodiscard]] float PauseBetweenSpokenEntries() const override { return pause; }
  [[nodiscard]] bool IsUnlocked() const override { return true; }

  bool window_is_main = true;
  RegisterKind shown = RegisterKind::Entry;
  LDGRAccountTableViewData* rows = nullptr;
  float pause = 1.0F;
};

class EntrySpeakerTest : public testing::Test {
 protected:
  EntrySpeakerTest() {
    rows_.SetTableView(&table_);
    host_.rows = &rows_;
    for (const char* description : {"A", "B", "C"}) {
      auto entry = std::make_shared<LDGRAccountEntry>();
      entry->SetDescription(description);
      entry->SetDate(20040307);
      entries_.push_back(std::move(entry));
    }
    rows_.SetEntries(entries_);
  }

  // What was said since the last call: the descriptions of the entries, "-" for a stop.
  std::string Said() {
    std::string said;
    for (; heard_ < speech_.Heard().size(); ++heard_) {
      const std::string& text = speech_.Heard()[heard_];
      const std::size_t place = text.find("Description:  ");
      said += place == std::string::npos ? "-" : text.substr(place + 14, 1);
    }
    return said;
  }
  // What is said within so long, each text finished at once.
  std::string SaidWithin(std::chrono::milliseconds time) {
    std::string said;
    for (; time > 0ms; time -= 10ms) {
      loop_.AdvanceBy(10ms);
      said += Said();
      speech_.Finish();
    }
    return said;
  }

  FakeAmbient ambient_;
  FakeRunLoop loop_;
  FakeSpeech speech_;
  FakeHost host_;
  TableView table_{DefaultRegisterColumns()};
  LDGRAccountTableViewData rows_{host_};
  EntryList entries_;
  EntrySpeaker speaker_{loop_, speech_, host_};
  std::size_t heard_ = 0;
};

TEST_F(EntrySpeakerTest, SpeaksTheSelectedEntryInsteadOfWhatIsBeingSaid) {
  speaker_.SpeakEntry(nullptr);
  EXPECT_EQ(loop_.PendingCalls(), 0U);
  speaker_.SpeakEntry(entries_[0].get());
  loop_.AdvanceBy(200ms);
  speaker_.SpeakEntry(entries_[1].get());
  EXPECT_EQ(Said(), "--");
  loop_.AdvanceBy(299ms);
  EXPECT_EQ(Said(), "");
  loop_.AdvanceBy(1ms);
  EXPECT_EQ(Said(), "B");
  EXPECT_EQ(speech_.Heard().back(), entries_[1]->asSpeakableString());
}

TEST_F(EntrySpeakerTest, ReadsRowAfterRowWithThePause) {
  speaker_.SpeakEntries();
  EXPECT_EQ(table_.SelectedRow(), 0);
  EXPECT_EQ(SaidWithin(1990ms), "");
  EXPECT_EQ(SaidWithin(10ms), "A");
  EXPECT_EQ(SaidWithin(1490ms), "");
  EXPECT_EQ(table_.SelectedRow(), 0);
  loop_.AdvanceBy(10ms);  // 3.5 s: the next row, said after the pause
  EXPECT_EQ(table_.SelectedRow(), 1);
  EXPECT_EQ(SaidWithin(990ms), "");
  EXPECT_EQ(SaidWithin(10ms), "B");
  EXPECT_EQ(SaidWithin(1500ms + 990ms), "");
  EXPECT_EQ(table_.SelectedRow(), 2);
  EXPECT_EQ(SaidWithin(10ms), "C");
  EXPECT_TRUE(speaker_.IsReading());
  EXPECT_EQ(SaidWithin(60s), "");
  EXPECT_EQ(table_.SelectedRow(), 2);
  EXPECT_FALSE(speaker_.IsReading());
}

TEST_F(EntrySpeakerTest, WaitsForTheVoiceInSteps) {
  rows_.SelectRow(1);
  speaker_.StartSpeakingEntries();
  loop_.AdvanceBy(3500ms + 1100ms);  // looks at 3500, 3750, 4000, 4250 and 4500
  EXPECT_EQ(Said(), "B");
  speech_.Finish();
  loop_.AdvanceBy(149ms);
  EXPECT_EQ(table_.SelectedRow(), 1);
  loop_.AdvanceBy(1ms);
  EXPECT_EQ(table_.SelectedRow(), 2);
  loop_.AdvanceBy(1000ms);
  EXPECT_EQ(Said(), "C");
}

TEST_F(EntrySpeakerTest, FollowsTheSelectionAndEndsWhereThereIsNoneToFollow) {
  struct Case {
    std::function<void()> change;
    std::string_view said;
  };
  const std::vector<Case> cases = {
      {[this] { rows_.SelectRow(1); }, "C"},
      {[this] { rows_.SelectRow(2); }, ""},
      {[this] { rows_.SelectRow(-1); }, ""},
      {[this] { host_.shown = RegisterKind::Other; }, ""},
      {[this] { host_.shown = RegisterKind::Reconcile; }, "BC"},
      {[this] { host_.window_is_main = false; }, ""},
      {[this] { host_.rows = nullptr; }, ""},
      {[this] { rows_.SetEntries({}); }, ""},
      {[this] { speaker_.StopSpeech(); }, "-"},
      {[this] { speaker_.SpeakEntry(entries_[2].get()); }, "-CBC"},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    host_.window_is_main = true;
    host_.shown = RegisterKind::Entry;
    host_.rows = &rows_;
    rows_.SetEntries(entries_);
    speaker_.SpeakEntries();
    EXPECT_EQ(SaidWithin(2s), "A");
    cases[i].change();
    EXPECT_EQ(SaidWithin(30s), cases[i].said) << i;
  }
}

TEST_F(EntrySpeakerTest, ReadsNothingWhereThereIsNothingToRead) {
  speaker_.StartSpeakingEntries();  // no row is selected
  host_.shown = RegisterKind::Other;
  speaker_.SpeakEntries();
  host_.shown = RegisterKind::Entry;
  host_.window_is_main = false;
  speaker_.SpeakEntries();
  host_.window_is_main = true;
  rows_.SetEntries({});
  speaker_.SpeakEntries();
  host_.rows = nullptr;
  speaker_.SpeakEntries();
  EXPECT_EQ(loop_.PendingCalls(), 0U);
}

TEST_F(EntrySpeakerTest, TakesAnyStoredPause) {
  struct Case {
    float pause;
    std::chrono::milliseconds until_second;
  };
  for (const Case& c :
       {Case{0.0F, 3500ms}, Case{-5.0F, 3500ms}, Case{1.8F, 5300ms},
        Case{std::numeric_limits<float>::quiet_NaN(), 3500ms}, Case{1e30F, 3500ms + 1h}}) {
    host_.pause = c.pause;
    speaker_.SpeakEntries();
    loop_.AdvanceBy(2s);
    speech_.Finish();
    EXPECT_EQ(Said(), "A");
    loop_.AdvanceBy(c.until_second - 2s - 1ms);
    EXPECT_EQ(Said(), "");
    loop_.AdvanceBy(1ms);
    EXPECT_EQ(Said(), "B");
    speaker_.StopSpeech();
    Said();
  }
}

TEST(SpeakingTextFields, SpeakWhatIsTypedOneAfterAnother) {
  FakeAmbient ambient;
  ambient.localizer.Translate("point", "Punkt");
  FakeRunLoop loop;
  FakeSpeech speech;
  LDGRSpeakingTextField field(loop, speech);
  const auto type = [&field](std::string_view text) { return field.textView({}, text); };

  EXPECT_TRUE(type("1"));
  field.setSpeakableCharacters(kSpeakableAmountCharacters);
  EXPECT_TRUE(type("1"));
  field.setSpeaks(true);
  for (const char* text : {"1", "2", ".", "5", "x", "", "21", "34"}) EXPECT_TRUE(type(text));
  EXPECT_EQ(field.itemsToSpeak(), (std::deque<std::string>{"2", "Punkt", "5", "34"}));
  loop.AdvanceBy(1s);
  EXPECT_EQ(speech.Heard(), (Heard{"1"}));
  for (const Heard& heard : {Heard{"1", "2"}, Heard{"1", "2", "Punkt"},
                             Heard{"1", "2", "Punkt", "5"}, Heard{"1", "2", "Punkt", "5", "34"}}) {
    speech.Finish();
    loop.AdvanceBy(100ms);
    EXPECT_EQ(speech.Heard(), heard);
  }
  EXPECT_EQ(loop.PendingCalls(), 0U);
  field.addItemToSpeak(std::nullopt);
  field.setSpeakableCharacters(std::nullopt);
  EXPECT_TRUE(type("1"));
  EXPECT_EQ(loop.PendingCalls(), 0U);
}

class FieldOfThreeCharacters final : public LDGRSpeakingTextField {
 public:
  using LDGRSpeakingTextField::LDGRSpeakingTextField;

 private:
  [[nodiscard]] bool ShouldChangeText(TextRange range, std::string_view replacement) override {
    return range.start + replacement.size() <= 3;
  }
};

TEST(SpeakingTextFields, SayNothingOfARefusedChange) {
  FakeRunLoop loop;
  FakeSpeech speech;
  FieldOfThreeCharacters field(loop, speech);
  field.setSpeaks(true);
  field.setSpeakableCharacters(kSpeakableAmountCharacters);
  EXPECT_FALSE(field.textView({3, 0}, "4"));
  EXPECT_TRUE(field.textView({2, 0}, ","));
  EXPECT_EQ(speech.Heard(), (Heard{"comma"}));
}

}  // namespace
}  // namespace tallyfold
