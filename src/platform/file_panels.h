#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tallyfold {

// Says of a name that was entered into a save panel whether it will do.
class FileNameCheck {
 public:
  virtual ~FileNameCheck() = default;
  // Asked for each name that is typed, `confirmed` when the panel is about to end with it. The name
  // to go on with; none leaves the panel open. May ask the user. `folder` is an absolute path.
  [[nodiscard]] virtual std::optional<std::string> userEnteredFilename(const std::string& folder,
                                                                       const std::string& name,
                                                                       bool confirmed) = 0;
};

// The rows a panel shows beside its files. What stands in them is state of the command that asks,
// and a front end shows it there.
enum class PanelAccessory : std::uint8_t { None, QifExport, TextExport, QifImport };

// Asks the user for the name of a file.
struct FilePanelRequest {
  std::string title;
  // Suggested file name of a save panel; "" for none.
  std::string name = {};
  // Before the field for the name, and on the button that ends the panel; "" for the usual ones.
  std::string name_label = {};
  std::string button = {};
  PanelAccessory accessory = PanelAccessory::None;
  // Of a save panel; null for none. Lives as long as the panel.
  FileNameCheck* check = nullptr;
};

class FilePanels {
 public:
  virtual ~FilePanels() = default;
  // An absolute path, or none when the user gave up. Whether an existing file may be replaced was
  // settled by the request's check, by the panel itself where there is none.
  [[nodiscard]] virtual std::optional<std::string> Save(const FilePanelRequest& request) = 0;
  // A file, not a folder.
  [[nodiscard]] virtual std::optional<std::string> Open(const FilePanelRequest& request) = 0;
};

}  // namespace tallyfold
