#include "model/account_options.h"

#include "platform/ambient.h"

namespace tallyfold {

AccountOptions::AccountOptions()
    : qif_import_encoding_(CurrentLocale().DefaultTextEncoding()),
      qif_import_decimal_separator_(CurrentLocale().DecimalSeparator()),
      qif_import_thousands_separator_(CurrentLocale().ThousandsSeparator()),
      text_export_encoding_(CurrentLocale().DefaultTextEncoding()) {}

void AccountOptions::SetQIFImportDecimalSeparator(std::optional<std::string_view> separator) {
  if (separator) Change(qif_import_decimal_separator_, std::string(*separator));
}

void AccountOptions::SetQIFImportThousandsSeparator(std::optional<std::string_view> separator) {
  if (separator) Change(qif_import_thousands_separator_, std::string(*separator));
}

}  // namespace tallyfold
