#include "platform/message.h"

#include "platform/ambient.h"

namespace tallyfold {

std::string Message(std::string_view key, std::initializer_list<std::string> values) {
  const std::string format = LocalizedText(key);
  std::string text;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const bool is_place = format[i] == '{' && i + 2 < format.size() && format[i + 2] == '}' &&
                          format[i + 1] >= '1' && format[i + 1] <= '9';
    const auto index = static_cast<std::size_t>(is_place ? format[i + 1] - '1' : 9);
    if (index < values.size()) {
      text += values.begin()[index];
      i += 2;
    } else {
      text += format[i];
    }
  }
  return text;
}

}  // namespace tallyfold
