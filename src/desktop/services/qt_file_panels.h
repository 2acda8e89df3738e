#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/file_panels.h"

class QWidget;

namespace tallyfold::desktop {

// File panels of the toolkit's own, since a desktop's lets no rows be added.
class QtFilePanels final : public FilePanels {
 public:
  // Makes the rows of an accessory, which belong to `panel`.
  using MakeAccessory = std::function<QWidget*(QWidget* panel)>;

  // Panels that ask for that accessory show these rows from here on.
  void SetAccessory(PanelAccessory accessory, MakeAccessory make) {
    accessories_[accessory] = std::move(make);
  }

  [[nodiscard]] std::optional<std::string> Save(const FilePanelRequest& request) override;
  [[nodiscard]] std::optional<std::string> Open(const FilePanelRequest& request) override;
  // Whether one is up.
  [[nodiscard]] bool IsUp() const noexcept { return depth_ > 0; }

 private:
  class Panel;

  std::optional<std::string> Run(Panel& panel, const FilePanelRequest& request);

  std::map<PanelAccessory, MakeAccessory> accessories_;
  // Where the last one ended; "" for the home folder.
  std::string folder_;
  int depth_ = 0;
};

}  // namespace tallyfold::desktop
