#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tallyfold {

// Asks the program's home which version is the latest.
class UpdateService {
 public:
  // The latest version, for example "2.1", or none when it could not be learnt.
  using Answer = std::function<void(std::optional<std::string> version)>;

  virtual ~UpdateService() = default;
  // Answers once, on the main thread and after this call has returned. A call while another is
  // under way replaces it: the former is not answered.
  virtual void FetchLatestVersion(const std::string& address, Answer answer) = 0;
  // The call under way, if any, is not answered.
  virtual void Cancel() noexcept = 0;
};

}  // namespace tallyfold
