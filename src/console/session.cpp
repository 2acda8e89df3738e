#include "console/session.h"

#include <algorithm>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "app/services.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/lifecycle.h"
#include "app/shell/recovery.h"
#include "console/all_commands.h"
#include "console/command.h"
#include "console/command_error.h"
#include "console/password_sheets.h"
#include "console/table.h"
#include "ledger/ledger.h"
#include "model/clean_text.h"
#include "platform/terminal.h"
#include "plist/utf8.h"
#include "storage/account_numbers.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::console {
namespace {

// Longer than the pause after a key in the search field, shorter than any timer that waits for the
// user to be idle.
constexpr std::chrono::seconds kSkippedDelays{3};

constexpr std::string_view kOnlyLooks =
    "another copy of Tallyfold has the data open; this one only looks, and changes and saves "
    "nothing";

// What keeps a line from being taken as it was typed; "" for nothing. Nothing in it is replaced.
std::string FaultOf(std::string_view line) {
  if (line.size() > Terminal::kLongestLine) {
    return "the line is longer than " + std::to_string(Terminal::kLongestLine) + " bytes";
  }
  if (!plist::IsValidUtf8(line)) return "the line is not UTF-8 text";
  return CleanText(line) == line ? "" : "the line holds a character that no text can hold";
}

// Whether a password may stand in a line of that command.
bool TakesPassword(const Command& command) {
  return command.words.find("PASSWORD") != std::string_view::npos ||
         std::any_of(command.options.begin(), command.options.end(),
                     [](const Option& option) { return option.name == "password"; });
}

}  // namespace

Session::Session(const ConsoleServices& services)
    : terminal_(services.terminal),
      skip_delays_(services.skip_delays),
      wait_(services.wait),
      spoken_(services.speech, services.loop),
      log_(services.terminal),
      ambient_({.log = &log_, .localizer = nullptr, .locale = nullptr, .clock = nullptr}),
      questions_(services.terminal),
      panels_(services.files, questions_),
      host_(services.version),
      printer_(services.terminal),
      controller_(Services{services.files, questions_, panels_, services.processes, spoken_,
                           services.speech, services.loop, services.notifications, host_,
                           services.encodings, services.updates}),
      kept_notes_(controller_, printer_),
      due_notice_(controller_, terminal_),
      console_{controller_,    printer_,      questions_, panels_,      host_, log_,
               services.files, services.loop, spoken_,    skip_delays_, wait_, AllSubjects()},
      history_(services.files),
      aids_(console_, history_, is_launched_) {}

int Session::Run() {
  if (terminal_.ReadsFromPerson()) {
    printer_.Confirm("Tallyfold " + host_.BundleVersion() +
                     ". help lists the commands, quit saves and ends.");
    history_.Read();
  }
  while (!host_.IsEnding()) {
    const std::optional<std::string> line = terminal_.ReadCommand("> ", aids_);
    if (!line) break;
    const DueNotice::Pause pause(due_notice_);
    if (!RunLine(*line)) {
      printer_.Note("error: nothing further was saved");
      return 1;
    }
    if (terminal_.ReadsFromPerson()) Remember(*line);
  }
  const auto chosen = host_.Status();
  const int status = chosen ? *chosen : ShutDown() ? 0 : 1;
  if (!terminal_.HasLostOutput()) return status;
  printer_.Note("error: not all could be written to standard output");
  return std::max(status, 1);
}

void Session::Remember(std::string_view line) {
  const ApplicationLock& lock = controller_.applicationLock();
  if (is_launched_) {
    const bool has_password = !lock.password().empty();
    if (has_password && !std::exchange(had_password_, true)) history_.Forget();
    had_password_ = has_password;
    if (!lock.authenticated()) return;
  }
  if (!FaultOf(line).empty()) return;
  const std::vector<Word> words = ReadWords(line).words;
  const Command* const command = FindCommand(console_.subjects, words).command;
  if (command != nullptr && TakesPassword(*command)) return;
  // What is no command may be one with a password that was typed wrong.
  history_.Add(line, command != nullptr ? LineHistory::Kept::InFile : LineHistory::Kept::InMemory);
}

void Session::SaveHistory() {
  const bool is_open = controller_.applicationLock().authenticated() &&
                       controller_.applicationLock().password().empty();
  if (terminal_.ReadsFromPerson() && is_open && !controller_.lifecycle().OnlyLooks()) {
    history_.Save();
  }
}

bool Session::RunLine(std::string_view text) {
  ++line_number_;
  // What was saved while nobody typed.
  kept_notes_.TellNew();
  std::string error;
  bool may_fail = terminal_.ReadsFromPerson();
  if (error = FaultOf(text); error.empty()) {
    Line line = ReadWords(text);
    may_fail = may_fail || line.may_fail;
    error = std::move(line.error);
    if (error.empty() && !line.words.empty()) {
      error = RunCommand(line.words);
      log_.TellRepeats();
    } else if (is_launched_) {
      controller_.application().sendEvent(EventType::KeyDown);
    }
  }
  kept_notes_.TellNew();
  if (error.empty()) return true;
  ReportError(error);
  return may_fail;
}

std::string Session::RunCommand(std::span<const Word> words) {
  const auto [command, name_length] = FindCommand(console_.subjects, words);
  if (command == nullptr) return UnknownCommand(console_.subjects, words);

  std::string error;
  try {
    const Arguments arguments(*command, words.subspan(name_length));
    if (command->needs == Needs::Nothing) {
      command->run(console_, arguments);
      return error;
    }
    if (!is_launched_ && !Launch(*command)) return error;
    if (command->writes_own_files && controller_.lifecycle().OnlyLooks()) {
      throw CommandError(std::string(kOnlyLooks));
    }
    // A line is the user's doing: what waits for an idle user waits on, and a reading ends.
    controller_.application().sendEvent(EventType::KeyDown);
    if (command->needs != Needs::Launch && !Unlock()) return error;
    const bool is_changing = command->needs != Needs::Launch;
    if (is_changing && !command->works_in_review &&
        controller_.sharedQIFImportController().IsReviewing()) {
      throw CommandError("an import is under review; commit or cancel ends it");
    }
    CancelSheets(*command);
    command->run(console_, arguments);
  } catch (const CommandError& failure) {
    error = failure.what();
  } catch (const std::bad_alloc&) {
    error = "there is not enough memory for this";
  } catch (const std::runtime_error& failure) {
    // The system has run out of something else.
    error = failure.what();
  }
  static_cast<void>(panels_.TakeProblem());
  if (command->needs != Needs::Reminder) controller_.sheets().CancelOpen();
  skip_delays_(kSkippedDelays);
  questions_.ForgetAnswers();
  const std::string complaint = questions_.TakeComplaint();
  return complaint.empty() ? error : complaint;
}

void Session::CancelSheets(const Command& command) {
  const bool stays = command.needs == Needs::Reminder
                         ? controller_.sheets().Current() == Sheet::ScheduleReminder
                         : command.needs != Needs::Unlocked;
  if (!stays) controller_.sheets().CancelOpen();
}

bool Session::Launch(const Command& first) {
  is_launched_ = true;
  // A script commits by its saves alone; who types may be interrupted at any time.
  if (!terminal_.ReadsFromPerson()) controller_.recovery().WriteNothing();
  controller_.lifecycle().LookOnlyWhereInUse();
  controller_.lifecycle().awakeFromNib();
  try {
    if (!controller_.lifecycle().applicationDidFinishLaunching()) return false;
  } catch (...) {
    // There is nothing whole to go on with, nor to save.
    host_.EndProcess(1);
    throw;
  }
  // Whoever has just typed a command is not to be held up; what is due is told when he is idle.
  controller_.reminder().Dismiss();
  if (controller_.lifecycle().OnlyLooks()) {
    controller_.ledger().RefuseChanges(std::string(kOnlyLooks));
    printer_.Note(
        "Another copy of Tallyfold has the data open. This one shows what was saved last; it "
        "changes and saves nothing.");
  }
  TellWhatWasSetAside();
  kept_notes_.TellEarlier();
  TellWhatWasFound();
  if (first.needs == Needs::Unlocked && controller_.applicationLock().authenticated() &&
      controller_.desk().accounts().empty()) {
    printer_.Confirm("There is no account yet; account add makes one.");
  }
  return true;
}

bool Session::Unlock() {
  ServePasswordSheet(console_);
  skip_delays_(kSkippedDelays);
  if (host_.IsEnding()) return false;
  // The sheet of the account that was shown last may come up only now.
  ServePasswordSheet(console_);
  TellWhatWasFound();
  if (controller_.applicationLock().authenticated()) return true;
  throw CommandError("the application is locked; unlock PASSWORD opens it");
}

void Session::TellWhatWasSetAside() {
  for (const auto* set_aside :
       {&controller_.accountsStore().SetAside(), &controller_.preferencesStore().SetAside()}) {
    if (!*set_aside) continue;
    std::string note = (*set_aside)->path + " was not read in whole: " + (*set_aside)->reason;
    if (!controller_.lifecycle().OnlyLooks()) {
      note += " Before it is saved over, a copy is kept as " + (*set_aside)->kept_path;
    }
    printer_.Note(note);
  }
}

void Session::TellWhatWasFound() {
  const std::string& recovered = controller_.recovery().Notice();
  if (!recovered.empty()) printer_.Note(recovered);
  controller_.recovery().CloseNotice();
  // Names of accounts are not told to whoever has not unlocked them.
  if (has_told_shared_numbers_ || !controller_.applicationLock().authenticated()) return;
  has_told_shared_numbers_ = true;
  for (const auto& note : NotesOnSharedAccountNumbers(controller_.desk().accounts())) {
    printer_.Note(note);
  }
}

bool Session::ShutDown() {
  // Whoever never gave a command that works on the data has touched nothing.
  if (!is_launched_) return true;
  controller_.sheets().CancelOpen();
  const bool has_review = controller_.sharedQIFImportController().IsReviewing();
  if (has_review) {
    printer_.Note("The import under review was not committed.");
    controller_.sharedQIFImportController().import_Cancel_Button();
  }
  SaveHistory();
  const bool is_saved = SaveAll();
  if (const std::string held = HeldText(controller_); !held.empty()) printer_.Note(held);
  return is_saved && !has_review;
}

bool Session::SaveAll() {
  for (;;) {
    controller_.lifecycle().applicationWillTerminate();
    kept_notes_.TellNew();
    const bool is_open = controller_.applicationLock().authenticated();
    const auto unsaved = is_open ? UnsavedTexts(controller_) : LostTexts(controller_);
    for (const std::string& text : unsaved) printer_.Note("error: " + text);
    if (unsaved.empty()) return true;
    if (!is_open || !AskToSaveAgain()) return false;
  }
}

bool Session::AskToSaveAgain() {
  constexpr std::size_t kSaveElsewhere = 1;
  constexpr std::size_t kEnd = 2;
  const std::vector<std::string> buttons = {"Try Again", "Save Elsewhere", "End Without Saving"};
  const auto answer = questions_.AskUnlessGone("Not everything could be saved.", "", buttons, 0);
  if (answer == kSaveElsewhere) SaveElsewhere();
  return answer.value_or(kEnd) != kEnd;
}

void Session::SaveElsewhere() {
  const auto typed = questions_.AskLine("Save as: ");
  if (!typed || typed->empty()) return;
  std::string problem;
  try {
    panels_.Expect(AbsolutePath(console_.files, *typed), nullptr);
    const WriteResult result = controller_.exports().SaveAs();
    problem = panels_.TakeProblem();
    if (result == WriteResult::Written) return printer_.Confirm("Saved as " + *typed + '.');
  } catch (const CommandError& error) {
    problem = error.what();
  }
  printer_.Note("error: " + (problem.empty() ? "nothing was written" : problem));
}

void Session::ReportError(std::string_view error) {
  printer_.Note("error: line " + std::to_string(line_number_) + ": " + std::string(error));
}

}  // namespace tallyfold::console
