#pragma once

#include <cstdint>
#include <string>

namespace tallyfold {

// How the user writes dates and numbers. Nothing stored in a file depends on it.
class UserLocale {
 public:
  virtual ~UserLocale() = default;
  // In calendar-date conversion letters; "%m/%d/%y" where the system gives none.
  [[nodiscard]] virtual std::string ShortDateFormat() const = 0;
  // One character each as a rule; the thousands separator may be empty.
  [[nodiscard]] virtual std::string DecimalSeparator() const = 0;
  [[nodiscard]] virtual std::string ThousandsSeparator() const = 0;
  // Identifier of the default text encoding (see TextEncodings); UTF-8 is 4.
  [[nodiscard]] virtual std::int32_t DefaultTextEncoding() const = 0;
};

}  // namespace tallyfold
