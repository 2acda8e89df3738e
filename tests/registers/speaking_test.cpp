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
#include "registers/fake_table_host.h"
#include "registers/speaking_text_field.h"

namespace tallyfold {
namespace {

using namespace std::chrono_literals;
using Heard = std::vector<std::string>;

struct FakeHost final : EntrySpeaker::Host {
  [[nodiscard]] bool RegisterWindowIsMain() const override { return window_is_main; }
  [[nodiscard]] RegisterKind ShownRegister() const override { return shown; }
  [[nodiscard]] LDGRAccountTableViewData* CurrentRegister() override { return rows; }
  [[nodiscard]] float PauseBetweenSpokenEntries() const override { return pause; }

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
  // What is said within so long, each behind its time in milliseconds; each text takes `voice`.
  std::string SaidWithin(std::chrono::milliseconds time, std::chrono::milliseconds voice = 0ms) {
    std::string said;
    auto end = loop_.Now();
    for (auto passed = 50ms; passed <= time; passed += 50ms) {
      loop_.AdvanceBy(50ms);
      if (const std::string text = Said(); !text.empty()) {
        said += std::to_string(passed.count()) + text + " ";
        end = loop_.Now() + voice;
      }
      if (loop_.Now() >= end) speech_.Finish();
    }
    return said;
  }

  FakeAmbient ambient_;
  FakeRunLoop loop_;
  FakeSpeech speech_;
  FakeHost host_;
  TableState table_{DefaultRegisterColumns()};
  FakeTableHost table_host_;
  LDGRAccountTableViewData rows_{table_host_};
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
  struct Case {
    float pause;
    std::chrono::milliseconds voice;
    std::string_view said;
  };
  for (const Case& c : {
           Case{1.0F, 0ms, "2000A 4500B 7000C "},
           Case{1.8F, 0ms, "2000A 5300B 8600C "},
           Case{0.0F, 0ms, "2000A 3500B 5000C "},
           Case{-5.0F, 0ms, "2000A 3500B 5000C "},
           Case{std::numeric_limits<float>::quiet_NaN(), 0ms, "2000A 3500B 5000C "},
           Case{1e30F, 0ms, "2000A 3603500B "},
           // Looks every 250 ms whether the voice is free.
           Case{1.0F, 4850ms, "2000A 8000B 14000C "},
       }) {
    host_.pause = c.pause;
    speaker_.SpeakEntries();
    EXPECT_EQ(table_.SelectedRow(), 0);
    EXPECT_EQ(SaidWithin(90min, c.voice), c.said);
    speaker_.StopSpeech();
    EXPECT_EQ(Said(), "-");
  }
}

TEST_F(EntrySpeakerTest, SelectsTheNextRowAPauseBeforeItIsSaid) {
  rows_.SelectRow(1);
  speaker_.StartSpeakingEntries();
  EXPECT_EQ(SaidWithin(3450ms), "2000B ");
  EXPECT_EQ(table_.SelectedRow(), 1);
  EXPECT_EQ(SaidWithin(50ms), "");
  EXPECT_EQ(table_.SelectedRow(), 2);
  EXPECT_TRUE(speaker_.IsReading());
  EXPECT_EQ(SaidWithin(60s), "1000C ");
  EXPECT_EQ(table_.SelectedRow(), 2);
  EXPECT_FALSE(speaker_.IsReading());
}

TEST_F(EntrySpeakerTest, FollowsTheSelectionAndEndsWhereThereIsNoneToFollow) {
  struct Case {
    std::function<void()> change;
    std::string_view said;
  };
  const std::vector<Case> cases = {
      {[this] { rows_.SelectRow(1); }, "2500C "},
      {[this] { rows_.SelectRow(2); }, ""},
      {[this] { rows_.SelectRow(-1); }, ""},
      {[this] { host_.shown = RegisterKind::Other; }, ""},
      {[this] { host_.shown = RegisterKind::Reconcile; }, "2500B 5000C "},
      {[this] { host_.window_is_main = false; }, ""},
      {[this] { host_.rows = nullptr; }, ""},
      {[this] { rows_.SetEntries({}); }, ""},
      {[this] { speaker_.StopSpeech(); }, "50- "},
      {[this] { speaker_.SpeakEntry(entries_[2].get()); }, "50- 300C 2500B 5000C "},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    host_.window_is_main = true;
    host_.shown = RegisterKind::Entry;
    host_.rows = &rows_;
    rows_.SetEntries(entries_);
    speaker_.SpeakEntries();
    EXPECT_EQ(SaidWithin(2s), "2000A ");
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
