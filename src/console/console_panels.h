#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/file_panels.h"
#include "platform/file_system.h"

namespace tallyfold::console {

class Questions;

// Commands name their files themselves: what a command is about to open a panel for is told before,
// and the panel ends with it at once. A panel that opens all the same is given up.
class ConsolePanels final : public FilePanels {
 public:
  // Both must outlive this.
  ConsolePanels(const FileSystem& files, const Questions& questions) noexcept
      : files_(files), questions_(questions) {}

  // The next panel ends with that absolute path, once `choose` has chosen what the panel shows
  // beside it. `choose` may throw CommandError; the panel is then given up.
  void Expect(std::string path, std::function<void()> choose);

  std::optional<std::string> Save(const FilePanelRequest& request) override;
  std::optional<std::string> Open(const FilePanelRequest& request) override;

  // Why the last panel was given up, to be asked when its command is over (which must not be left
  // by an exception); "" when it was not. Forgets what was expected.
  [[nodiscard]] std::string TakeProblem();

 private:
  // False when that failed.
  bool Choose();

  const FileSystem& files_;
  const Questions& questions_;
  std::string path_;
  std::function<void()> choose_;
  std::string problem_;
};

// An absolute path for one that was typed: "~/" is the home folder, and a path without a slash in
// front begins at the current folder. Throws CommandError for an empty one.
[[nodiscard]] std::string AbsolutePath(const FileSystem& files, const std::string& typed);

}  // namespace tallyfold::console
