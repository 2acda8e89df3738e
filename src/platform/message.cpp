#include "platform/message.h"

#include "platform/ambient.h"

namespace tallyfold {

std::string Message(std::string_view key, std::span<const std::string> values) {
  const std::string format = LocalizedText(key);
  std::string text;
  for (std::size_t i = 0; i < format.size(); ++i) {
    const bool is_place = format[i] == '{' && i + 2 < format.size() && format[i + 2] == '}' &&
                          format[i + 1] >= '1' && format[i + 1] <= '9';
    const auto index = static_cast<std::size_t>(is_place ? format[i + 1] - '1' : 9);
    if (index < values.size()) {
      text += values[index];
      i += 2;
    } else {
      text += format[i];
    }
  }
  return text;
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
  return Message(Plural(one, many, count), {std::to_string(count)});
}

}  // namespace tallyfold
