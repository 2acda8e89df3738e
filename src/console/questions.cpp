#include "console/questions.h"

#include "console/table.h"
#include "console/words.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

std::string ButtonList(std::span<const std::string> buttons) {
  std::string list;
  for (const std::string& button : buttons) {
    if (!list.empty()) list += ", ";
    list += button;
  }
  return list;
}

// The only button that `typed` names, in any case, whole or by its beginning.
std::optional<std::size_t> ButtonNamed(std::string_view typed,
                                       std::span<const std::string> buttons) {
  std::optional<std::size_t> found;
  const std::string folded = FoldCase(typed);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    const std::string button = FoldCase(buttons[i]);
    if (button == folded) return i;
    if (folded.empty() || !button.starts_with(folded)) continue;
    if (found) return std::nullopt;
    found = i;
  }
  return found;
}

// Questions span lines; each is shown as a line.
std::string Lines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines += Printable(text.substr(0, end));
    lines += '\n';
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

}  // namespace

std::size_t Questions::Ask(std::string_view title, std::string_view message,
                           std::span<const std::string> buttons, std::size_t safe) {
  terminal_.WriteError(Lines(title) + Lines(message));
  std::size_t taken = safe;
  if (!answers_.empty()) {
    const std::string answer = std::move(answers_.front());
    answers_.pop_front();
    if (const auto named = ButtonNamed(answer, buttons)) {
      taken = *named;
    } else {
      complaint_ = "the answer " + Quoted(answer) + " is none of " + ButtonList(buttons);
    }
  } else if (terminal_.ReadsFromPerson()) {
    return AskPerson(buttons, safe).value_or(safe);
  }
  if (buttons.size() > 1) {
    terminal_.WriteError(ButtonList(buttons) + "? " + buttons[taken] + '\n');
  }
  return taken;
}

std::size_t Questions::Run(const AlertRequest& request) {
  return Ask(request.title, request.message, request.buttons, 0);
}

std::optional<std::string> Questions::AskSecret(const std::string& prompt) {
  if (!terminal_.ReadsFromPerson()) return std::nullopt;
  return terminal_.ReadSecret(Printable(prompt));
}

std::optional<std::size_t> Questions::AskUnlessGone(std::string_view title,
                                                    std::string_view message,
                                                    std::span<const std::string> buttons,
                                                    std::size_t safe) {
  if (!terminal_.ReadsFromPerson()) return std::nullopt;
  terminal_.WriteError(Lines(title) + Lines(message));
  return AskPerson(buttons, safe);
}

std::optional<std::string> Questions::AskLine(const std::string& prompt) {
  if (!terminal_.ReadsFromPerson()) return std::nullopt;
  return terminal_.ReadLine(Printable(prompt));
}

std::optional<std::size_t> Questions::AskPerson(std::span<const std::string> buttons,
                                                std::size_t safe) {
  if (buttons.size() < 2) return safe;
  const std::string prompt = ButtonList(buttons) + " [" + buttons[safe] + "]? ";
  while (const auto typed = terminal_.ReadLine(prompt)) {
    if (typed->empty()) return safe;
    if (const auto named = ButtonNamed(*typed, buttons)) return named;
  }
  return std::nullopt;
}

}  // namespace tallyfold::console
