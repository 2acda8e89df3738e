#include "printing/document_head.h"

#include "model/text.h"
#include "platform/ambient.h"
#include "printing/figures.h"

namespace tallyfold {

PrintDocument DocumentOf(const LDGRAccount& account, const LDGRPreferences& preferences,
                         DateNumber today) {
  PrintDocument document;
  document.head.push_back({account.GetName(), "", TextStyle::Title});
  document.foot =
      MessageWithText(LocalizedText("Printed %@"), PrintedFigures(preferences).Date(today));
  return document;
}

std::string CountInWords(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + ' ' + LocalizedText(count == 1 ? one : many);
}

}  // namespace tallyfold
