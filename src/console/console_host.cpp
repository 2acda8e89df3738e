#include "console/console_host.h"

namespace tallyfold::console {

void ConsoleHost::EndProcess(int status) {
  if (!status_) status_ = status;
}

std::optional<std::string> NoFilePanels::Save(const FilePanelRequest& /*request*/) {
  return std::nullopt;
}

std::optional<std::string> NoFilePanels::Open(const FilePanelRequest& /*request*/) {
  return std::nullopt;
}

}  // namespace tallyfold::console
