#include "console/screen_transcript.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "fakes/temporary_folder.h"
#include "model/display_width.h"
#include "plist/utf8.h"

namespace tallyfold::console {
namespace {

constexpr int kMinute = 60 * 1000;
constexpr std::string_view kInterrupt = "\x03";
constexpr std::string_view kSeen = "¶";

// What a plain terminal shows, which moves within its last row alone.
class Screen {
 public:
  void Take(std::string_view bytes) {
    pending_ += bytes;
    std::string_view rest = pending_;
    while (!rest.empty()) {
      const auto first = plist::FirstUtf8Character(rest);
      if (!first.is_valid && rest.size() < 4) break;
      Put(rest.substr(0, first.size));
      rest.remove_prefix(first.size);
    }
    pending_ = std::string(rest);
  }

  [[nodiscard]] std::size_t LastRow() const { return rows_.size() - 1; }
  [[nodiscard]] std::string Row(std::size_t row) const {
    std::string text;
    for (const std::string& cell : rows_[row]) text += cell;
    return text;
  }

 private:
  void Put(std::string_view character) {
    switch (character.front()) {
      case '\r':
        column_ = 0;
        return;
      case '\n':
        rows_.emplace_back();
        return;
      case '\b':
        if (column_ > 0) --column_;
        return;
      case '\a':
        return;
      default:
        break;
    }
    std::vector<std::string>& row = rows_.back();
    const std::size_t width = DisplayWidth(character);
    if (row.size() < column_ + width) row.resize(column_ + width, " ");
    if (width == 0) {
      if (column_ > 0) row[column_ - 1] += character;
      return;
    }
    row[column_] = character;
    for (std::size_t i = 1; i < width; ++i) row[column_ + i].clear();
    column_ += width;
  }

  std::vector<std::vector<std::string>> rows_{1};
  std::size_t column_ = 0;
  std::string pending_;
};

std::string WithoutBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::vector<std::string> KeysOf(std::string_view typed) {
  const std::map<std::string_view, std::string> named = {
      {"Enter", "\r"},     {"Tab", "\t"},         {"Up", "\x1b[A"},     {"Down", "\x1b[B"},
      {"Right", "\x1b[C"}, {"Left", "\x1b[D"},    {"Home", "\x1b[H"},   {"End", "\x1b[F"},
      {"lt", "<"},         {"Backspace", "\x7f"}, {"Delete", "\x1b[3~"}};
  std::vector<std::string> keys;
  while (!typed.empty()) {
    const std::size_t end = typed.front() == '<' ? typed.find('>') : std::string_view::npos;
    if (end == std::string_view::npos) {
      const std::string_view character = TakeCharacter(typed);
      keys.emplace_back(character);
      continue;
    }
    const std::string_view name = typed.substr(1, end - 1);
    typed.remove_prefix(end + 1);
    if (name.starts_with("Ctrl-") && name.size() == 6) {
      keys.emplace_back(1, static_cast<char>(name[5] & 0x1F));
    } else if (const auto key = named.find(name); key != named.end()) {
      keys.push_back(key->second);
    } else {
      throw std::runtime_error("no key: " + std::string(name));
    }
  }
  return keys;
}

// The program at a pseudo-terminal of its own.
class RunningProgram {
 public:
  RunningProgram(const std::string& program, const std::string& home, unsigned short width) {
    struct winsize size = {};
    size.ws_row = 24;
    size.ws_col = width;
    child_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
    if (child_ < 0) throw std::runtime_error("no pseudo-terminal");
    if (child_ == 0) {
      ::setenv("HOME", home.c_str(), 1);
      ::setenv("TERM", "dumb", 1);
      ::execl(program.c_str(), program.c_str(), nullptr);
      ::_exit(127);
    }
  }
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram() {
    if (child_ > 0) ::kill(child_, SIGKILL);
    static_cast<void>(Status());
    ::close(terminal_);
  }

  void Type(const std::string& key) const {
    if (::write(terminal_, key.data(), key.size()) != static_cast<ssize_t>(key.size())) {
      throw std::runtime_error("the program does not read");
    }
  }
  // False at the end of what the program writes.
  bool Wait() {
    struct pollfd readable = {terminal_, POLLIN, 0};
    if (::poll(&readable, 1, kMinute) != 1) {
      throw std::runtime_error("nothing comes any more below:\n" + screen.Row(screen.LastRow()));
    }
    std::array<char, 4096> bytes{};
    const ssize_t size = ::read(terminal_, bytes.data(), bytes.size());
    if (size <= 0) return false;
    screen.Take({bytes.data(), static_cast<std::size_t>(size)});
    return true;
  }
  // Waits for the end.
  int Status() {
    if (child_ <= 0) return status_;
    int status = 0;
    ::waitpid(child_, &status, 0);
    child_ = 0;
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return status_;
  }
  void Resize(unsigned short width) const {
    struct winsize size = {};
    size.ws_row = 24;
    size.ws_col = width;
    ::ioctl(terminal_, TIOCSWINSZ, &size);
  }

  Screen screen;

 private:
  int terminal_ = -1;
  pid_t child_ = 0;
  int status_ = 0;
};

class ScreenPlayer {
 public:
  ScreenPlayer(const std::string& program, const std::string& project_folder) : program_(program) {
    const std::string folder = home_ / "Library/Tallyfold";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(project_folder + "/examples/Accounts.plist",
                               folder + "/Accounts.plist");
  }

  std::string Play(std::string_view text) {
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("@ width ")) {
        width_ = static_cast<unsigned short>(std::stoi(line.substr(8)));
        played_ += line + '\n';
        if (running_) running_->Resize(width_);
      } else if (line == "@ again") {
        played_ += line + '\n';
      } else if (line == "@ files") {
        played_ += line + '\n';
        ListFiles();
      } else if (line.starts_with("< ")) {
        Type(line);
      } else if (line.empty()) {
        played_ += '\n';
      }
    }
    if (running_) throw std::runtime_error("the program has not ended:\n" + played_);
    return std::move(played_);
  }

 private:
  void Type(const std::string& line) {
    if (!running_) {
      running_.emplace(program_, home_.path(), width_);
      shown_ = 0;
      ShowUntilAsked(0);
    }
    played_ += line + '\n';
    const Screen& screen = running_->screen;
    // A password shows nothing.
    const bool is_hidden = screen.Row(screen.LastRow()).ends_with(": ");
    std::size_t first = screen.LastRow() + 1;
    std::string keys;
    for (const std::string& key : KeysOf(std::string_view(line).substr(2))) {
      if (key == kInterrupt && !is_hidden) {
        // An interrupt overtakes what was typed before, unless that is seen to have been read.
        running_->Type(std::exchange(keys, "") + std::string(kSeen));
        while (screen.Row(screen.LastRow()).find(kSeen) == std::string::npos) {
          if (!running_->Wait()) throw std::runtime_error("the program ended at: " + line);
        }
        first = screen.LastRow() + 1;
      }
      keys += key;
    }
    running_->Type(keys);
    ShowUntilAsked(first);
  }

  void ListFiles() {
    std::set<std::string> files;
    for (const auto& file : std::filesystem::directory_iterator(home_ / "Library/Tallyfold")) {
      std::ostringstream line;
      line << "= " << file.path().filename().string() << ' ' << std::oct
           << static_cast<unsigned>(file.status().permissions());
      files.insert(line.str());
    }
    for (const std::string& file : files) played_ += file + '\n';
  }

  // Shows the rows that come until the program asks for more in that row or below, or ends.
  void ShowUntilAsked(std::size_t first) {
    Screen& screen = running_->screen;
    const auto asks = [&] {
      const std::string row = screen.Row(screen.LastRow());
      return screen.LastRow() >= first &&
             (row == "> " || row.ends_with("? ") || row.ends_with(": "));
    };
    bool has_ended = false;
    while (!has_ended && !asks()) has_ended = !running_->Wait();
    const std::size_t end = has_ended ? screen.LastRow() + 1 : screen.LastRow();
    for (; shown_ < end; ++shown_) {
      const std::string row = WithoutBlanks(screen.Row(shown_));
      // Blank lines of the transcript only part its steps.
      if (!row.empty() || !has_ended) played_ += (row.empty() ? "_" : row) + '\n';
    }
    if (!has_ended) return;
    played_ += "@ status " + std::to_string(running_->Status()) + '\n';
    running_.reset();
  }

  std::string program_;
  TemporaryFolder home_;
  std::optional<RunningProgram> running_;
  unsigned short width_ = 80;
  // Rows of the screen that are in `played_`.
  std::size_t shown_ = 0;
  std::string played_;
};

}  // namespace

std::string PlayScreenTranscript(std::string_view text, const std::string& program,
                                 const std::string& project_folder) {
  return ScreenPlayer(program, project_folder).Play(text);
}

}  // namespace tallyfold::console
