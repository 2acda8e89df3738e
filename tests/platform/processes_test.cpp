#include <errno.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_run_loop.h"
#include "fakes/file_text.h"
#include "fakes/temporary_folder.h"
#include "platform/notification_center.h"
#include "system/posix_file_system.h"
#include "system/process_limits.h"
#include "system/program_speech.h"
#include "system/program_update_service.h"
#include "system/system_process_launcher.h"

namespace tallyfold {
namespace {

using std::chrono::milliseconds;

// A pipe in the file system: reading it waits until whoever opened it for writing is done.
class NamedPipe {
 public:
  NamedPipe() { EXPECT_EQ(mkfifo(path().c_str(), 0600), 0); }
  [[nodiscard]] std::string path() const { return folder_ / "pipe"; }
  [[nodiscard]] std::string ReadAll() const { return FileText(path()); }

 private:
  TemporaryFolder folder_;
};

// Whether a process of its own, in which that is run, finds it true.
bool InOwnProcess(const std::function<bool()>& run) {
  const pid_t child = fork();
  if (child == 0) _exit(run() ? 0 : 1);
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ProcessLimits, LetAFileThatMayNotGrowFailAlone) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "old";
  EXPECT_TRUE(InOwnProcess([&] {
    SurviveFileSizeLimit();
    const struct rlimit limit = {1000, 1000};
    setrlimit(RLIMIT_FSIZE, &limit);
    PosixFileSystem files;
    const auto report = files.WriteAtomically(folder / "file", {}, std::string(5000, 'x'));
    return report.failure && report.failure->step == FileStep::Write &&
           report.failure->reason == "File too large" &&
           files.Read(folder / "file")->view() == "old";
  }));
}

TEST(ProcessLimits, LetNobodySeeTheMemory) {
  EXPECT_TRUE(InOwnProcess([] {
    KeepMemoryPrivate();
    return prctl(PR_GET_DUMPABLE) == 0;
  }));
}

bool HasNoChildren() {
  return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

TEST(SystemProcessLauncher, StartsProgramsThatLeaveNothingBehind) {
  const NamedPipe pipe;
  SystemProcessLauncher launcher;
  EXPECT_TRUE(launcher.Launch("/bin/sh", {"-c", R"(read line; echo "[$line]" "$1" "$2" > "$0")",
                                          pipe.path(), "a b", "$x"}));
  // Its input is empty, not ours.
  EXPECT_EQ(pipe.ReadAll(), "[] a b $x\n");
  EXPECT_TRUE(HasNoChildren());
}

TEST(SystemProcessLauncher, TellsWhenAProgramCannotBeStarted) {
  SystemProcessLauncher launcher;
  for (const char* program : {"/nonexistent/program", "/etc/passwd", "/", ""}) {
    EXPECT_FALSE(launcher.Launch(program, {"argument"})) << program;
  }
  EXPECT_TRUE(HasNoChildren());
}

// A voice that writes what it is given into a pipe and then goes on for as long as is wanted.
ProgramSpeech::Voice VoiceInto(const NamedPipe& pipe, const std::string& then) {
  return {"/bin/sh", {"-c", R"(printf %s "$1" > "$0"; )" + then, pipe.path()}};
}

TEST(ProgramSpeech, IsBusyUntilTheProgramEndsOrIsStopped) {
  const NamedPipe pipe;
  FakeRunLoop loop;
  ProgramSpeech speech(loop, {{"tallyfold-no-such-voice", {}}, VoiceInto(pipe, "exec sleep 600")});
  EXPECT_FALSE(speech.IsBusy());
  const std::string text = "-$HOME \"caf\u00E9\"";
  speech.Speak(text);
  EXPECT_EQ(pipe.ReadAll(), text);
  EXPECT_TRUE(speech.IsBusy());
  speech.Stop();
  EXPECT_FALSE(speech.IsBusy());
  EXPECT_TRUE(HasNoChildren());
  EXPECT_EQ(loop.PendingCalls(), 0u);
}

TEST(ProgramSpeech, EndsAProgramThatHangs) {
  const struct {
    std::size_t characters;
    milliseconds watch;
  } cases[] = {{1, milliseconds{5000}}, {33, milliseconds{5000}}, {100, milliseconds{15'000}}};
  for (const auto& c : cases) {
    const NamedPipe pipe;
    FakeRunLoop loop;
    ProgramSpeech speech(loop, {VoiceInto(pipe, "exec sleep 600")});
    std::string text;
    for (std::size_t i = 0; i < c.characters; ++i) text += "\u00E9";
    speech.Speak(text);
    EXPECT_EQ(pipe.ReadAll(), text);
    loop.AdvanceBy(c.watch - milliseconds{1});
    EXPECT_TRUE(speech.IsBusy()) << c.characters;
    loop.AdvanceBy(milliseconds{1});
    EXPECT_FALSE(speech.IsBusy()) << c.characters;
    EXPECT_TRUE(HasNoChildren());
  }
}

TEST(ProgramSpeech, ReplacesWhatIsSpoken) {
  const NamedPipe pipe;
  FakeRunLoop loop;
  ProgramSpeech speech(loop, {VoiceInto(pipe, "exec sleep 600")});
  speech.Speak("first");
  EXPECT_EQ(pipe.ReadAll(), "first");
  speech.Speak("second");
  EXPECT_EQ(pipe.ReadAll(), "second");
  // Its watch starts anew.
  loop.AdvanceBy(milliseconds{4999});
  EXPECT_TRUE(speech.IsBusy());
  speech.Speak("");
  EXPECT_FALSE(speech.IsBusy());
}

// Until a child has ended, which is still to be cleared away.
void AwaitEndOfChild() {
  siginfo_t info;
  EXPECT_EQ(waitid(P_ALL, 0, &info, WEXITED | WNOWAIT), 0);
}

TEST(ProgramSpeech, HasTheServerSilentBeforeTheNextText) {
  const NamedPipe pipe;
  FakeRunLoop loop;
  ProgramSpeech::Voice voice = VoiceInto(pipe, "exec sleep 600");
  voice.silencing = {"-c", R"(printf silence > "$0")", pipe.path()};
  ProgramSpeech speech(loop, {voice});
  speech.Speak("first");
  EXPECT_EQ(pipe.ReadAll(), "first");
  speech.Speak("second");
  EXPECT_TRUE(speech.IsBusy());
  EXPECT_EQ(pipe.ReadAll(), "silence");
  AwaitEndOfChild();
  loop.AdvanceBy(ProgramSpeech::kBetweenLooks);
  EXPECT_EQ(pipe.ReadAll(), "second");
  speech.Stop();
  EXPECT_FALSE(speech.IsBusy());
  // A server that cannot be silenced is given up.
  speech.Speak("third");
  loop.AdvanceBy(ProgramSpeech::kLongestSilencing);
  EXPECT_EQ(pipe.ReadAll(), "third");
  speech.Stop();
  EXPECT_EQ(pipe.ReadAll(), "silence");
  AwaitEndOfChild();
  loop.AdvanceBy(ProgramSpeech::kBetweenLooks);
  EXPECT_TRUE(HasNoChildren());
  EXPECT_EQ(loop.PendingCalls(), 0u);
}

TEST(ProgramSpeech, HandsOverWhatAVoiceFailsToSpeak) {
  const NamedPipe failing;
  const NamedPipe pipe;
  FakeRunLoop loop;
  ProgramSpeech speech(loop, {VoiceInto(failing, "exit 1"), VoiceInto(pipe, "exec sleep 600")});
  speech.Speak("text");
  EXPECT_EQ(failing.ReadAll(), "text");
  AwaitEndOfChild();
  EXPECT_TRUE(speech.IsBusy());
  loop.AdvanceBy(ProgramSpeech::kBetweenLooks);
  EXPECT_EQ(pipe.ReadAll(), "text");
  speech.Speak("more");
  EXPECT_EQ(pipe.ReadAll(), "more");

  ProgramSpeech last(loop, {VoiceInto(failing, "exit 1")});
  last.Speak("text");
  EXPECT_EQ(failing.ReadAll(), "text");
  speech.Stop();
  AwaitEndOfChild();
  EXPECT_FALSE(last.IsBusy());
}

TEST(ProgramSpeech, CutsWhatIsTooLongForAnArgument) {
  const NamedPipe pipe;
  FakeRunLoop loop;
  ProgramSpeech speech(loop, {VoiceInto(pipe, "exit")});
  std::string text = "x";
  for (int i = 0; i < 100'000; ++i) text += "\u00E9";
  speech.Speak(text);
  EXPECT_EQ(pipe.ReadAll(), text.substr(0, 99'999));
}

TEST(ProgramSpeech, IsQuietWithoutAVoice) {
  FakeRunLoop loop;
  ProgramSpeech speech(loop, {{"tallyfold-no-such-voice", {}}});
  speech.Speak("text");
  EXPECT_FALSE(speech.IsBusy());
  speech.Stop();
}

TEST(ProgramUpdateService, AnswersWithTheFirstLineOrNone) {
  struct Case {
    const char* what;
    const char* script;  // $0 is the address
    std::optional<std::string> answer;
  } const cases[] = {
      {"a version", "echo 2.1", "2.1"},
      {"more lines", R"(printf '2.1\r\nnews of %s' "$0")", "2.1"},
      {"the address", R"(echo "$0")", "https://updates.example/$x"},
      {"nothing", "exit 22", std::nullopt},
      {"a hang", "exec sleep 600", std::nullopt},
  };
  const auto answer_of = [](ProgramUpdateService::Fetcher fetcher, bool ends) {
    FakeRunLoop loop;
    ProgramUpdateService service(loop, std::move(fetcher));
    std::vector<std::optional<std::string>> answers;
    for (int call = 0; call < 2; ++call) {  // the second replaces the first
      service.FetchLatestVersion("https://updates.example/$x",
                                 [&](const auto& answer) { answers.push_back(answer); });
    }
    if (ends) AwaitEndOfChild();
    loop.AdvanceBy(ends ? ProgramUpdateService::kPause : ProgramUpdateService::kTimeLimit);
    EXPECT_EQ(answers.size(), 1u);
    EXPECT_EQ(loop.PendingCalls(), 0u);
    EXPECT_TRUE(HasNoChildren());
    return answers.empty() ? std::nullopt : answers.front();
  };
  for (const Case& c : cases) {
    const bool ends = std::string_view(c.what) != "a hang";
    EXPECT_EQ(answer_of({"/bin/sh", {"-c", c.script}}, ends), c.answer) << c.what;
  }
  EXPECT_EQ(answer_of({"tallyfold-no-such-program", {}}, false), std::nullopt);
}

TEST(NotificationCenter, PostsToThoseWhoObservedBeforeThePost) {
  auto center = std::make_unique<NotificationCenter>();
  std::string heard;
  NotificationCenter::Observation second;
  NotificationCenter::Observation late;
  const auto first = center->Observe("Woke", [&](const void* object) {
    heard += object == &heard ? 'a' : '?';
    second.End();
    late = center->Observe("Woke", [&](const void*) { heard += 'l'; });
  });
  second = center->Observe("Woke", [&](const void*) { heard += 'b'; });
  auto third = center->Observe("Woke", [&](const void*) { heard += 'c'; });
  const auto other = center->Observe("Slept", [&](const void*) { heard += 'o'; });
  center->Post("Woke", &heard);
  EXPECT_EQ(heard, "ac");
  third = {};
  center->Post("Woke", &heard);
  EXPECT_EQ(heard, "aca");
  // Observations may outlive the center.
  center.reset();
}

}  // namespace
}  // namespace tallyfold
