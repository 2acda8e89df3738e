#pragma once

#include <optional>
#include <string>

namespace tallyfold {

// Asks the user for the name of a file. The rows that some panels add (format, encoding) are
// state of the command that asks; a front end shows them beside the panel.
struct FilePanelRequest {
  std::string title;
  // Suggested file name of a save panel; "" for none.
  std::string name;
};

class FilePanels {
 public:
  virtual ~FilePanels() = default;
  // An absolute path, or none when the user gave up. An existing file was confirmed by the panel.
  [[nodiscard]] virtual std::optional<std::string> Save(const FilePanelRequest& request) = 0;
  [[nodiscard]] virtual std::optional<std::string> Open(const FilePanelRequest& request) = 0;
};

}  // namespace tallyfold
