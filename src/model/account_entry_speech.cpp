// The sentences in which an entry is read aloud.

#include <optional>
#include <string>
#include <string_view>

#include "model/account_entry.h"
#include "model/amounts.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

void AppendSentence(std::string& speech, std::string_view label, std::string_view text) {
  speech += Message("{1}:  {2} .  ", {LocalizedText(label), std::string(text)});
}

}  // namespace

std::string LDGRAccountEntry::asSpeakableString() const {
  return SpeakableString(type_ > -1 ? std::optional(TypeNameInCurrentAccount()) : std::nullopt);
}

std::string LDGRAccountEntry::SpeakableString(const std::optional<std::string>& type_name) const {
  std::string speech = Message(
      "{1}.  ", {FormatDate(DateNumberToNSCalendarDate(date_), CurrentLocale().ShortDateFormat())});

  const std::string amount = FixedAmountString(amount_);
  if (IsDebit()) {
    AppendSentence(speech, "Debit in the Amount of", amount);
  } else if (IsDeposit()) {
    AppendSentence(speech, "Deposit in the Amount of", amount);
  } else if (IsTransfer()) {
    AppendSentence(speech, "Transfer in the Amount of", amount);
  }
  if (type_name) AppendSentence(speech, "Type", *type_name);
  if (IsCheck()) AppendSentence(speech, "Check Number", std::to_string(check_number_));
  if (!to_from_.empty() && IsDebit()) {
    AppendSentence(speech, "To", to_from_);
  } else if (!to_from_.empty() && IsDeposit()) {
    AppendSentence(speech, "From", to_from_);
  }
  if (!description_.empty()) AppendSentence(speech, "Description", description_);
  speech += Message("{1} .  ", {LocalizedText(cleared_ ? "Resolved" : "Unresolved")});
  return speech;
}

}  // namespace tallyfold
