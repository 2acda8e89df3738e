#pragma once

#include <string_view>

#include "platform/user_locale.h"

namespace tallyfold {

// The locale the user's environment names, read once. The process's own locale is left alone, so
// that nothing else in the program comes to depend on it.
class SystemLocale final : public UserLocale {
 public:
  SystemLocale();

  [[nodiscard]] std::string ShortDateFormat() const override { return short_date_format_; }
  [[nodiscard]] std::string DecimalSeparator() const override { return decimal_separator_; }
  [[nodiscard]] std::string ThousandsSeparator() const override { return thousands_separator_; }
  [[nodiscard]] std::int32_t DefaultTextEncoding() const override { return default_encoding_; }

 private:
  std::string short_date_format_;
  std::string decimal_separator_;
  std::string thousands_separator_;
  std::int32_t default_encoding_ = 0;
};

// `format`, in the conversion letters of the C library, in those of calendar dates; "%m/%d/%y"
// when it holds a conversion that those lack.
[[nodiscard]] std::string CalendarDateFormat(std::string_view format);

// The identifier of the encoding that the C library calls `codeset`; that of UTF-8 for ASCII, which
// is part of it, and for any that has none.
[[nodiscard]] std::int32_t EncodingOfCodeset(std::string_view codeset);

}  // namespace tallyfold
