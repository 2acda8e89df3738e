#include "console/console_panels.h"

#include <filesystem>
#include <system_error>

#include "console/command_error.h"
#include "console/questions.h"

namespace tallyfold::console {

void ConsolePanels::Expect(std::string path, std::function<void()> choose) {
  path_ = std::move(path);
  choose_ = std::move(choose);
  problem_.clear();
}

bool ConsolePanels::Choose() {
  try {
    if (choose_) choose_();
  } catch (const CommandError& error) {
    problem_ = error.what();
  }
  return problem_.empty();
}

std::optional<std::string> ConsolePanels::Save(const FilePanelRequest& request) {
  if (path_.empty() || !Choose()) return std::nullopt;
  if (request.check == nullptr) return path_;
  const std::size_t slash = path_.rfind('/');
  const std::string folder = path_.substr(0, slash == 0 ? 1 : slash);
  if (request.check->userEnteredFilename(folder, path_.substr(slash + 1), true)) return path_;
  problem_ = "nothing was written";
  if (files_.Exists(path_) && !questions_.AsksPerson()) {
    problem_ += "; answer Overwrite before the command replaces the file";
  }
  return std::nullopt;
}

std::optional<std::string> ConsolePanels::Open(const FilePanelRequest& /*request*/) {
  if (path_.empty() || !Choose()) return std::nullopt;
  return path_;
}

std::string ConsolePanels::TakeProblem() {
  path_.clear();
  choose_ = nullptr;
  return std::exchange(problem_, {});
}

std::string AbsolutePath(const FileSystem& files, const std::string& typed) {
  if (typed.empty()) throw CommandError("expected a path that is not empty");
  if (typed.starts_with("~/")) return files.HomeFolder() + typed.substr(1);
  std::error_code error;
  const auto path = std::filesystem::absolute(typed, error);
  if (error) throw CommandError("the current folder is gone; give the whole path");
  return path.string();
}

}  // namespace tallyfold::console
