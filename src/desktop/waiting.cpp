#include "desktop/waiting.h"

#include <QTimer>
#include <chrono>
#include <string_view>
#include <utility>

#include "desktop/main_window.h"
#include "desktop/texts.h"
#include "platform/ambient.h"

namespace tallyfold::desktop {
namespace {

using std::chrono::milliseconds;

// Less than that is no waiting.
constexpr milliseconds kUnshownWait(500);
// More often nobody sees the bar grow.
constexpr milliseconds kBetweenPaintings(40);

constexpr struct {
  LongWork work;
  std::string_view text;
} kSentences[] = {
    {LongWork::Reading, "Reading the file..."},
    {LongWork::Loading, "Loading the accounts..."},
    {LongWork::Saving, "Saving the accounts..."},
    {LongWork::Parsing, "Reading the file to import..."},
    {LongWork::Reviewing, "Comparing the file with the account..."},
    {LongWork::Importing, "Importing the entries..."},
    {LongWork::Exporting, "Exporting the entries..."},
    {LongWork::LayingOut, "Laying out the pages..."},
    {LongWork::Drawing, "Drawing the pages..."},
};

QString SentenceFor(LongWork work) {
  for (const auto& each : kSentences) {
    if (each.work == work) return Text(each.text);
  }
  return {};
}

}  // namespace

void Waiting::Report(LongWork work, std::uint64_t done, std::uint64_t total) {
  const Instant now = CurrentClock().Now();
  if (!since_) since_ = now;
  if (now - *since_ < kUnshownWait) return;
  const bool is_due = !painted_ || now - *painted_ >= kBetweenPaintings;
  if (!is_due && shown_ == work && done < total) return;
  if (shown_ != work) window_.ShowWork(SentenceFor(work));
  shown_ = work;
  painted_ = now;
  window_.ShowProgress(done, total);
}

void Waiting::Ended() {
  // What follows at once is part of the same wait.
  if (!std::exchange(will_rest_, true)) QTimer::singleShot(0, this, &Waiting::Rest);
}

void Waiting::Rest() {
  will_rest_ = false;
  since_.reset();
  painted_.reset();
  if (std::exchange(shown_, std::nullopt)) window_.EndWork();
}

}  // namespace tallyfold::desktop
