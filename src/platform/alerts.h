#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tallyfold {

// A question or message that stops the program until it is answered.
struct AlertRequest {
  std::string title;
  std::string message;
  // At least one; the first is the default.
  std::vector<std::string> buttons;
};

class Alerts {
 public:
  virtual ~Alerts() = default;
  // The index of the pressed button.
  virtual std::size_t Run(const AlertRequest& request) = 0;
};

}  // namespace tallyfold
