#include "printing/document_head.h"

#include "platform/message.h"
#include "printing/figures.h"

namespace tallyfold {

PrintDocument DocumentOf(const LDGRAccount& account, const LDGRPreferences& preferences,
                         DateNumber today) {
  PrintDocument document;
  document.head.push_back({account.GetName(), "", TextStyle::Title});
  document.foot = Message("Printed {1}", {PrintedFigures(preferences).Date(today)});
  return document;
}

}  // namespace tallyfold
