#pragma once

#include "platform/text_encodings.h"

namespace tallyfold {

// Text encodings by the C library's converter.
class IconvEncodings final : public TextEncodings {
 public:
  // Those of TextEncoding that the C library at hand can convert.
  [[nodiscard]] std::vector<TextEncoding> List() const override;
  // Looked up in the user's language.
  [[nodiscard]] std::string Name(TextEncoding encoding) const override;
  // A byte-order mark in front is dropped.
  [[nodiscard]] std::optional<std::string> Decode(std::string_view bytes,
                                                  TextEncoding encoding) const override;
  // Bytes that are no UTF-8 become "?" too.
  [[nodiscard]] std::optional<std::string> Encode(std::string_view utf8,
                                                  TextEncoding encoding) const override;
};

}  // namespace tallyfold
