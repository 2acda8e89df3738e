#include "app/schedules/reminder_sentence.h"

#include <iterator>
#include <string_view>

#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

// English keys. What is more than these is written in digits.
constexpr std::string_view kAtTheStart[] = {"No",   "One",    "Two",   "Three", "Four",
                                            "Five", "Six",    "Seven", "Eight", "Nine",
                                            "Ten",  "Eleven", "Twelve"};
constexpr std::string_view kWithin[] = {"none",  "one",   "two",  "three", "four",   "five",  "six",
                                        "seven", "eight", "nine", "ten",   "eleven", "twelve"};

std::string Word(std::size_t count, bool is_at_the_start) {
  if (count >= std::size(kWithin)) return std::to_string(count);
  return LocalizedText(is_at_the_start ? kAtTheStart[count] : kWithin[count]);
}

}  // namespace

std::string ReminderSentence(std::size_t due, std::size_t ahead) {
  const std::string first = Word(due > 0 ? due : ahead, true);
  if (due == 0 && ahead == 0) return LocalizedText("No scheduled entry is due.");
  if (due == 0) {
    return Message(Plural("{1} scheduled entry comes, none is due yet.",
                          "{1} scheduled entries come, none is due yet.", ahead),
                   {first});
  }
  if (ahead == 0) {
    return Message(Plural("{1} scheduled entry is due.", "{1} scheduled entries are due.", due),
                   {first});
  }
  const std::string second = Word(ahead, false);
  if (due == 1) {
    return Message(Plural("{1} scheduled entry is due, {2} comes after.",
                          "{1} scheduled entry is due, {2} come after.", ahead),
                   {first, second});
  }
  return Message(Plural("{1} scheduled entries are due, {2} comes after.",
                        "{1} scheduled entries are due, {2} come after.", ahead),
                 {first, second});
}

}  // namespace tallyfold
