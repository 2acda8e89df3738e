#include "system/system_locale.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <string_view>
#include <utility>

#include "platform/text_encodings.h"
#include "system/iconv_encodings.h"

namespace tallyfold {
namespace {

constexpr std::string_view kPlainFormat = "%m/%d/%y";

constexpr std::array<std::pair<std::string_view, TextEncoding>, 12> kCodesets = {{
    {"UTF-8", TextEncoding::Utf8},
    {"ISO-8859-1", TextEncoding::Latin1},
    {"ISO-8859-15", TextEncoding::Windows1252},  // the nearest one that has the euro sign
    {"ISO-8859-2", TextEncoding::Latin2},
    {"CP1250", TextEncoding::Windows1250},
    {"CP1251", TextEncoding::Windows1251},
    {"CP1252", TextEncoding::Windows1252},
    {"CP1253", TextEncoding::Windows1253},
    {"CP1254", TextEncoding::Windows1254},
    {"EUC-JP", TextEncoding::EucJp},
    {"SHIFT_JIS", TextEncoding::ShiftJis},
    {"ISO-2022-JP", TextEncoding::Iso2022Jp},
}};

// A conversion that calendar dates lack, or "" for one they have.
std::string_view Replacement(char letter, bool unpadded) {
  switch (letter) {
    case 'D':
      return kPlainFormat;
    case 'F':
      return "%Y-%m-%d";
    case 'h':
      return "%b";
    case 'd':
      return unpadded ? "%e" : "";
    case 'm':
      return unpadded ? "%1m" : "";
    default:
      return "";
  }
}

}  // namespace

std::string CalendarDateFormat(std::string_view format) {
  constexpr std::string_view kKnown = "aAbBdeHImMpSyY%";
  std::string result;
  for (std::size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      result += format[i];
      continue;
    }
    ++i;
    bool unpadded = false;
    // Flags, and the modifiers for other calendars and digits, which are read as the plain ones.
    while (i < format.size() &&
           std::string_view("-_0^#EO").find(format[i]) != std::string_view::npos) {
      unpadded = unpadded || format[i] == '-' || format[i] == '_';
      ++i;
    }
    if (i == format.size()) return std::string(kPlainFormat);
    if (const std::string_view other = Replacement(format[i], unpadded); !other.empty()) {
      result += other;
    } else if (kKnown.find(format[i]) != std::string_view::npos) {
      result += '%';
      result += format[i];
    } else {
      return std::string(kPlainFormat);
    }
  }
  return result.empty() ? std::string(kPlainFormat) : result;
}

std::int32_t EncodingOfCodeset(std::string_view codeset) {
  for (const auto& [name, encoding] : kCodesets) {
    if (name == codeset) return static_cast<std::int32_t>(encoding);
  }
  return static_cast<std::int32_t>(TextEncoding::Utf8);
}

SystemLocale::SystemLocale() {
  locale_t locale = ::newlocale(LC_ALL_MASK, "", nullptr);
  // An environment that names a locale that is not installed means the plain one.
  if (locale == nullptr) locale = ::newlocale(LC_ALL_MASK, "C", nullptr);

  default_encoding_ = EncodingOfCodeset(::nl_langinfo_l(CODESET, locale));
  const auto text = [&](nl_item item) {
    const std::string_view bytes = ::nl_langinfo_l(item, locale);
    return IconvEncodings().Decode(bytes, TextEncoding{default_encoding_}).value_or("");
  };
  short_date_format_ = CalendarDateFormat(text(D_FMT));
  decimal_separator_ = text(RADIXCHAR);
  thousands_separator_ = text(THOUSEP);
  if (decimal_separator_.empty()) decimal_separator_ = ".";
  ::freelocale(locale);
}

}  // namespace tallyfold
