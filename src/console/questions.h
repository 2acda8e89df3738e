#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/alerts.h"
#include "platform/terminal.h"

namespace tallyfold::console {

// The program's questions. A person is asked. Off a terminal a question takes the answer given
// before with `answer BUTTON`, else its safe one; what was asked and taken goes to standard error.
class Questions final : public Alerts {
 public:
  explicit Questions(Terminal& terminal) noexcept : terminal_(terminal) {}

  // Answers are used up in order; those left at the end of a command are forgotten, so that they
  // cannot answer a question nobody thought of.
  void AddAnswer(std::string button) { answers_.push_back(std::move(button)); }
  void ForgetAnswers() noexcept { answers_.clear(); }

  // Whether a person is asked who has no answer ready.
  [[nodiscard]] bool AsksPerson() const { return terminal_.ReadsFromPerson(); }
  // The index of the chosen button. `safe` is the one that loses nothing.
  std::size_t Ask(std::string_view title, std::string_view message,
                  std::span<const std::string> buttons, std::size_t safe);
  // The same, but none where nobody answers.
  [[nodiscard]] std::optional<std::size_t> AskUnlessGone(std::string_view title,
                                                         std::string_view message,
                                                         std::span<const std::string> buttons,
                                                         std::size_t safe);
  // A line that a person types; none when it gives up, and off a terminal.
  [[nodiscard]] std::optional<std::string> AskLine(const std::string& prompt);
  // The first button of an alert, its default, is its safe one.
  std::size_t Run(const AlertRequest& request) override;

  // What a person types unseen; none when it gives up, and off a terminal.
  [[nodiscard]] std::optional<std::string> AskSecret(const std::string& prompt);

  // What was wrong with an answer since this was asked last; "" for nothing. (A question can come
  // up in the midst of an operation, which must not be left by an exception.)
  [[nodiscard]] std::string TakeComplaint() noexcept { return std::exchange(complaint_, {}); }

 private:
  // None at the end of the input.
  [[nodiscard]] std::optional<std::size_t> AskPerson(std::span<const std::string> buttons,
                                                     std::size_t safe);

  Terminal& terminal_;
  std::deque<std::string> answers_;
  std::string complaint_;
};

}  // namespace tallyfold::console
