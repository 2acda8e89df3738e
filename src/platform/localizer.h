#pragma once

#include <string>
#include <string_view>

namespace tallyfold {

// Texts of the interface in the user's language, looked up by their English text.
class Localizer {
 public:
  virtual ~Localizer() = default;
  // The key itself when there is no other text for it.
  [[nodiscard]] virtual std::string Text(std::string_view key) const = 0;
};

}  // namespace tallyfold
