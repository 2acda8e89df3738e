#include "app/shell/modal_watch.h"

namespace tallyfold {

std::size_t ModalWatch::Run(const AlertRequest& request) {
  const Up up(*this);
  announcer_.HandOver();
  return alerts_.Run(request);
}

std::optional<std::string> ModalWatch::Save(const FilePanelRequest& request) {
  const Up up(*this);
  announcer_.HandOver();
  return panels_.Save(request);
}

std::optional<std::string> ModalWatch::Open(const FilePanelRequest& request) {
  const Up up(*this);
  announcer_.HandOver();
  return panels_.Open(request);
}

}  // namespace tallyfold
