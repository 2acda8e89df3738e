#include "console/transcript.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "console/session.h"
#include "console/table.h"
#include "console/values.h"
#include "console/words.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_services.h"
#include "fakes/temporary_folder.h"
#include "platform/appended_file.h"
#include "platform/line_aids.h"
#include "platform/notification_center.h"
#include "platform/terminal.h"
#include "system/iconv_encodings.h"
#include "system/poll_run_loop.h"
#include "system/posix_file_system.h"

namespace tallyfold::console {
namespace {

constexpr char kBlankLine = '_';
constexpr std::string_view kFormFeed = "^L";

enum class LineKind { Directive, Typed, Printed, Blank };

struct TranscriptLine {
  LineKind kind = LineKind::Blank;
  std::string text;  // of directives and typed lines without the mark in front
};

std::vector<TranscriptLine> ReadLines(std::string_view text) {
  std::vector<TranscriptLine> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::string rest(line.substr(std::min<std::size_t>(2, line.size())));
    if (line.empty()) {
      lines.push_back({LineKind::Blank, ""});
    } else if (line.starts_with("@ ")) {
      lines.push_back({LineKind::Directive, rest});
    } else if (line.starts_with("> ") || line == ">") {
      lines.push_back({LineKind::Typed, rest});
    } else {
      lines.push_back({LineKind::Printed, std::string(line)});
    }
  }
  return lines;
}

// The computer's files, but with another home, files made at the time of the clock in force, and
// files that fail.
class TranscriptFiles final : public FileSystem {
 public:
  using FileSystem::WriteAtomically;

  explicit TranscriptFiles(std::string home) : home_(std::move(home)) {}

  void FailOn(std::string path) { failing_ = std::move(path); }
  // The file is made now, as far as the clock in force tells.
  void NoteMade(const std::string& path) { made_[path] = CurrentClock().Now(); }

  std::string HomeFolder() const override { return home_; }
  std::optional<Instant> CreationTime(const std::string& path) const override {
    const auto made = made_.find(path);
    return made == made_.end() ? files_.CreationTime(path) : made->second;
  }
  WriteReport Copy(const std::string& from, const std::string& to) override {
    if (to == failing_) return DiskIsFull();
    WriteReport report = files_.Copy(from, to);
    if (report) NoteMade(to);
    return report;
  }
  WriteReport WriteAtomically(const std::string& path, const WriteTerms& terms,
                              const Producer& produce) override {
    return path == failing_ ? DiskIsFull() : files_.WriteAtomically(path, terms, produce);
  }
  bool Remove(const std::string& path) override { return files_.Remove(path); }

  bool Exists(const std::string& path) const override { return files_.Exists(path); }
  bool IsFolder(const std::string& path) const override { return files_.IsFolder(path); }
  bool IsWritable(const std::string& path) const override {
    return path != failing_ && files_.IsWritable(path);
  }
  std::optional<FileContents> Read(const std::string& path) const override {
    return files_.Read(path);
  }
  std::optional<FileIdentity> Identity(const std::string& path) const override {
    return files_.Identity(path);
  }
  std::vector<std::string> List(const std::string& folder) const override {
    return files_.List(folder);
  }
  bool CreateFolder(const std::string& path) override { return files_.CreateFolder(path); }
  void AddPermissions(const std::string& path, unsigned bits) override {
    files_.AddPermissions(path, bits);
  }
  void SetCustomBadgeIconForFilePath(const std::string& path,
                                     const std::string& resource) override {
    files_.SetCustomBadgeIconForFilePath(path, resource);
  }
  void RemoveTemporaries(const std::string& folder) override { files_.RemoveTemporaries(folder); }
  LockResult LockFolder(const std::string& folder, std::unique_ptr<FolderLock>& lock) override {
    return files_.LockFolder(folder, lock);
  }
  LockResult OpenAppended(const std::string& path, AppendedFileStart start,
                          std::unique_ptr<AppendedFile>& file) override {
    return files_.OpenAppended(path, start, file);
  }

 private:
  static WriteReport DiskIsFull() {
    WriteReport report;
    report.failure = FileFailure{FileStep::Write, "No space left on device"};
    return report;
  }

  PosixFileSystem files_;
  std::string home_;
  std::string failing_;
  std::map<std::string, Instant> made_;
};

class Player final : private Terminal {
 public:
  Player(std::string_view text, const std::string& project_folder)
      : lines_(ReadLines(text)), project_folder_(project_folder) {
    std::filesystem::current_path(home_.path());
  }

  std::string Play() {
    while (at_ < lines_.size()) {
      const TranscriptLine& line = lines_[at_];
      switch (line.kind) {
        case LineKind::Blank:
          played_ += '\n';
          ++at_;
          break;
        case LineKind::Printed:
          ++at_;
          break;
        case LineKind::Directive:
          ++at_;
          FollowDirective(line.text);
          break;
        case LineKind::Typed:
          PlaySession();
          break;
      }
    }
    return std::move(played_);
  }

 private:
  void PlaySession() {
    FakeProcessLauncher processes;
    NoVoice speech;
    PollRunLoop loop;
    NotificationCenter notifications;
    IconvEncodings encodings;
    Session session({*this, files_, processes, speech, loop, notifications, encodings,
                     [&loop](std::chrono::milliseconds time) { loop.SkipDelays(time); },
                     [](std::chrono::milliseconds /*time*/) { return true; }, "1.0.0"});
    const int status = session.Run();
    if (status != 0) played_ += "@ status " + std::to_string(status) + '\n';
    other_copy_.reset();
    if (NextTyped()) {
      throw std::runtime_error("typed after the end of the session:\n" + played_ + "> " +
                               lines_[at_].text);
    }
  }

  // Moves to the next line that this session is to read; false when there is none.
  bool NextTyped() {
    std::size_t next = at_;
    while (next < lines_.size() &&
           (lines_[next].kind == LineKind::Blank || lines_[next].kind == LineKind::Printed)) {
      ++next;
    }
    if (next == lines_.size() || lines_[next].kind != LineKind::Typed) return false;
    for (; at_ < next; ++at_) {
      if (lines_[at_].kind == LineKind::Blank) played_ += '\n';
    }
    return true;
  }

  void FollowDirective(const std::string& text) {
    std::vector<std::string> words;
    for (Word& word : ReadWords(text).words) words.push_back(std::move(word.text));
    words.resize(4);
    const std::string& name = words[0];
    const std::string& value = words[1];
    const std::string path = home_ / value;
    // What the session before really ended with is written already.
    if (name == "status") return;
    played_ += "@ " + text + '\n';
    if (name == "today") {
      const CivilTime day = DateNumberToNSCalendarDate(ReadDate(value, name));
      ambient_.clock.SetLocal({day.year, day.month, day.day, 12, 0, 0});
    } else if (name == "dates") {
      ambient_.locale.short_date_format = value;
    } else if (name == "person") {
      is_person_ = true;
    } else if (name == "width") {
      width_ = static_cast<std::size_t>(ReadNumber(value, name, 1, 1000));
    } else if (name == "copy") {
      WriteFile(home_ / words[2], ReadFile(project_folder_ + '/' + value));
    } else if (name == "put") {
      WriteFile(path, words[2]);
      files_.NoteMade(path);
    } else if (name == "replace") {
      WriteFile(path, Replaced(ReadFile(path), words[2], words[3]));
    } else if (name == "files") {
      ListFiles(path);
    } else if (name == "show") {
      ShowFile(path);
    } else if (name == "in-use") {
      (void)files_.LockFolder(home_ / "Library/Tallyfold", other_copy_);
    } else if (name == "fail") {
      files_.FailOn(path);
    } else if (name != "again") {
      throw std::runtime_error("no directive: " + text);
    }
  }

  static std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  static void WriteFile(const std::string& path, const std::string& content) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << content;
  }

  static std::string Replaced(std::string text, const std::string& former,
                              const std::string& latter) {
    const std::size_t at = text.find(former);
    if (at == std::string::npos) throw std::runtime_error("nothing to replace: " + former);
    return text.replace(at, former.size(), latter);
  }

  void ListFiles(const std::string& folder) {
    std::vector<std::string> names = files_.List(folder);
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) played_ += "= " + name + '\n';
  }

  void ShowFile(const std::string& path) {
    std::string_view rest;
    const std::string content = ReadFile(path);
    for (rest = content; !rest.empty();) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      played_ += "= " + Escaped(rest.substr(0, end)) + '\n';
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }

  std::string WithoutHome(std::string_view text) const {
    std::string shown(text);
    const std::string& home = home_.path();
    for (std::size_t at = shown.find(home); at != std::string::npos; at = shown.find(home, at)) {
      shown.replace(at, home.size(), "~");
    }
    return shown;
  }

  bool ReadsFromPerson() const override { return is_person_; }
  bool WritesToPerson() const override { return is_person_; }
  std::optional<std::string> ReadLine(std::string_view /*prompt*/) override {
    if (!NextTyped()) return std::nullopt;
    const std::string& typed = lines_[at_++].text;
    played_ += typed.empty() ? ">\n" : "> " + typed + '\n';
    return typed;
  }
  std::optional<std::string> ReadCommand(std::string_view prompt,
                                         const LineAids& /*aids*/) override {
    return ReadLine(prompt);
  }
  std::size_t Width() const override { return width_; }
  bool HasLostOutput() const override { return false; }
  void WriteMeanwhile(std::string_view line) override { Write(std::string(line) + '\n'); }
  std::optional<std::string> ReadSecret(std::string_view prompt) override {
    return ReadLine(prompt);
  }
  void Write(std::string_view text) override {
    for (const char c : WithoutHome(text)) {
      // A blank line of the transcript itself says nothing.
      if (c == '\n' && played_.ends_with('\n')) played_ += kBlankLine;
      if (c == '\f') {
        played_ += kFormFeed;
      } else {
        played_ += c;
      }
    }
  }
  void WriteError(std::string_view text) override {
    std::string lines = WithoutHome(text);
    while (!lines.empty()) {
      const std::size_t end = std::min(lines.find('\n') + 1, lines.size());
      played_ += end == 1 ? "!\n" : "! " + lines.substr(0, end);
      lines.erase(0, end);
    }
  }

  std::vector<TranscriptLine> lines_;
  std::string project_folder_;
  std::size_t at_ = 0;
  std::string played_;
  bool is_person_ = false;
  std::size_t width_ = 0;
  TemporaryFolder home_;
  FakeAmbient ambient_;
  TranscriptFiles files_{home_.path()};
  std::unique_ptr<FolderLock> other_copy_;
};

}  // namespace

std::string PlayTranscript(std::string_view text, const std::string& project_folder) {
  return Player(text, project_folder).Play();
}

}  // namespace tallyfold::console
