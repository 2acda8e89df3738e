#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>

#include "app/commands/command.h"
#include "app/controller.h"
#include "app/desk.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/register_filter.h"
#include "console/spoken_text.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "platform/run_loop.h"
#include "registers/entry_speaker.h"
#include "storage/preferences.h"

namespace tallyfold::console {
namespace {

// Longer than one step of a reading takes when nothing is heard, its pause included.
std::chrono::milliseconds LongestStep(const Console& console) {
  constexpr double kWithoutPause = 4.0;
  constexpr double kLongestPause = 86400.0;
  const double pause = console.controller.desk().preferences().GetPauseBetweenSpokenEntries();
  const double seconds = kWithoutPause + (pause > 0.0 ? std::min(pause, kLongestPause) : 0.0);
  return std::chrono::milliseconds(std::llround(seconds * 1000.0));
}

// A person goes on typing while the voice reads, which ends it; a script waits for its end.
void Listen(Console& console) {
  constexpr std::chrono::milliseconds kBetweenLooks{100};
  if (console.questions.AsksPerson()) return;
  while (console.spoken.IsBusy() || console.controller.speaker().IsReading()) {
    if (!console.wait(kBetweenLooks)) return;
  }
}

// Without a voice there is nothing to wait for.
void ReadOn(Console& console) {
  const std::chrono::milliseconds step = LongestStep(console);
  std::size_t told = 0;
  do {
    told = console.spoken.size();
    console.skip_delays(step);
    if (console.spoken.IsBusy()) return Listen(console);
  } while (console.controller.speaker().IsReading() && console.spoken.size() > told);
}

void ShowUnheard(Console& console, std::chrono::milliseconds start) {
  const auto lines = console.spoken.Take();
  if (lines.empty()) return;
  Table table(
      {{"seconds", Column::Align::Right}, {"says", Column::Align::Left, Column::Long::GoesOn}});
  for (const SpokenText::Line& line : lines) {
    const auto elapsed = std::chrono::duration<double>(line.time - start).count();
    table.Add({WriteAmount(elapsed), line.text});
  }
  console.printer.Show(table);
}

void Speak(Console& console, const Arguments& arguments) {
  static_cast<void>(SelectedAccount(console));
  const std::string what = arguments.WordCount() == 0 ? "entry" : arguments.WordAt(0);
  if (what == "stop") return console.controller.speaker().StopSpeech();
  const bool is_of_figures = what == "figures";
  if (what != "entry" && what != "from" && what != "all" && what != "schedule" && !is_of_figures) {
    throw CommandError("speak: expected entry, from, all, schedule, figures or stop, not " +
                       Quoted(what));
  }
  const std::shared_ptr<LDGRAccountEntry> selected =
      what == "schedule" ? console.controller.desk().SelectedSchedule()
                         : console.controller.desk().SelectedEntry();
  if (what == "schedule" && selected == nullptr) {
    throw CommandError("speak: no scheduled entry is selected");
  }
  if (what != "all" && !is_of_figures && selected == nullptr) {
    throw CommandError("speak: no entry is selected; see 'select entry'");
  }
  if (what == "from" || what == "all") RequireShownRegister(console, "speak");
  static_cast<void>(console.spoken.Take());
  std::chrono::milliseconds start{};
  bool is_ordered = true;
  // Among the calls whose delays are skipped, so that all is told by one clock.
  DelayedCall order(console.loop);
  order.Start(std::chrono::milliseconds{0}, [&] {
    start = console.loop.Now();
    if (what == "entry" || what == "schedule") {
      console.controller.speaker().SpeakEntry(selected.get());
    } else if (is_of_figures) {
      is_ordered = Order(console.controller, "SpeakFigures");
    } else if (what == "from") {
      console.controller.speaker().StartSpeakingEntries();
    } else {
      console.controller.speaker().SpeakEntries();
    }
  });
  ReadOn(console);
  if (!is_ordered) throw CommandError("speak: no figures are shown");
  ShowUnheard(console, start);
}

constexpr Command kSpeechCommands[] = {
    {.name = "speak",
     .words = "[entry|from|all|schedule|figures|stop]",
     .most_words = 1,
     .help = "reads the selected entry or scheduled entry aloud, or the register from there on, or "
             "all of it, or the balances shown: in a script to the end, at a terminal until a line "
             "is typed; without a voice, shows what "
             "would be said and when",
     .example = "speak from",
     .run = Speak},
};

}  // namespace

std::span<const Command> SpeechCommands() {
  return kSpeechCommands;
}

}  // namespace tallyfold::console
