#include "app/shell/modal_watch.h"

namespace tallyfold {
namespace {

class Up {
 public:
  explicit Up(int& depth) noexcept : depth_(depth) { ++depth_; }
  ~Up() { --depth_; }
  Up(const Up&) = delete;
  Up& operator=(const Up&) = delete;

 private:
  int& depth_;
};

}  // namespace

std::size_t ModalWatch::Run(const AlertRequest& request) {
  const Up up(depth_);
  return alerts_.Run(request);
}

std::optional<std::string> ModalWatch::Save(const FilePanelRequest& request) {
  const Up up(depth_);
  return panels_.Save(request);
}

std::optional<std::string> ModalWatch::Open(const FilePanelRequest& request) {
  const Up up(depth_);
  return panels_.Open(request);
}

}  // namespace tallyfold
