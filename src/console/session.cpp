#include "console/session.h"

#include <new>
#include <optional>
#include <stdexcept>

#include "app/desk.h"
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
#include "platform/terminal.h"
#include "storage/account_numbers.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::console {
namespace {

// Longer than the pause after a key in the search field, shorter than any timer that waits for the
// user to be idle.
constexpr std::chrono::seconds kSkippedDelays{3};

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
               services.files, services.loop, spoken_,    skip_delays_, wait_, AllSubjects()} {}

int Session::Run() {
  if (terminal_.ReadsFromPerson()) {
    printer_.Confirm("Tallyfold " + host_.BundleVersion() +
                     ". help lists the commands, quit saves and ends.");
  }
  while (!host_.IsEnding()) {
    const std::optional<std::string> line = terminal_.ReadLine("> ");
    if (!line) break;
    const DueNotice::Pause pause(due_notice_);
    if (!RunLine(*line)) return 1;
  }
  if (const auto status = host_.Status()) return *status;
  return ShutDown() ? 0 : 1;
}

bool Session::RunLine(std::string_view text) {
  ++line_number_;
  // What was saved while nobody typed.
  kept_notes_.TellNew();
  std::string error;
  bool may_fail = terminal_.ReadsFromPerson();
  if (text.size() > Terminal::kLongestLine) {
    error = "the line is longer than " + std::to_string(Terminal::kLongestLine) + " bytes";
  } else {
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
    printer_.Note((*set_aside)->path + " was not read in whole: " + (*set_aside)->reason +
                  " Before it is saved over, a copy is kept as " + (*set_aside)->kept_path);
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
  if (controller_.sharedQIFImportController().IsReviewing()) {
    printer_.Note("The import under review was not committed.");
    controller_.sharedQIFImportController().import_Cancel_Button();
  }
  controller_.lifecycle().applicationWillTerminate();
  kept_notes_.TellNew();
  const auto unsaved = controller_.applicationLock().authenticated() ? UnsavedTexts(controller_)
                                                                     : LostTexts(controller_);
  for (const std::string& text : unsaved) printer_.Note("error: " + text);
  if (const std::string held = HeldText(controller_); !held.empty()) printer_.Note(held);
  return unsaved.empty();
}

void Session::ReportError(std::string_view error) {
  printer_.Note("error: line " + std::to_string(line_number_) + ": " + std::string(error));
}

}  // namespace tallyfold::console
