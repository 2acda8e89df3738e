#include "fakes/fake_services.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tallyfold {

std::size_t FakeAlerts::Run(const AlertRequest& request) {
  requests_.push_back(request);
  if (answers_.empty()) return 0;
  const std::string answer = std::move(answers_.front());
  answers_.pop_front();
  const auto button = std::find(request.buttons.begin(), request.buttons.end(), answer);
  if (button == request.buttons.end()) {
    throw std::logic_error("alert \"" + request.title + "\" has no button \"" + answer + '"');
  }
  return static_cast<std::size_t>(button - request.buttons.begin());
}

std::optional<std::string> FakeFilePanels::Save(const FilePanelRequest& request) {
  saves_.push_back(request);
  if (while_up) while_up();
  while (auto path = NextAnswer()) {
    if (request.check == nullptr) return path;
    const std::size_t slash = path->rfind('/');
    const auto name =
        request.check->userEnteredFilename(path->substr(0, slash), path->substr(slash + 1), true);
    if (name) return path->substr(0, slash + 1) + *name;
  }
  return std::nullopt;
}

std::optional<std::string> FakeFilePanels::Open(const FilePanelRequest& request) {
  opens_.push_back(request);
  if (while_up) while_up();
  return NextAnswer();
}

std::optional<std::string> FakeFilePanels::NextAnswer() {
  if (answers_.empty()) return std::nullopt;
  std::optional<std::string> answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

bool FakeProcessLauncher::Launch(const std::string& program,
                                 const std::vector<std::string>& arguments) {
  std::string line = program;
  for (const std::string& argument : arguments) line += ' ' + argument;
  launched_.push_back(std::move(line));
  return working_;
}

void FakeSpeech::Speak(std::string_view text) {
  heard_.emplace_back(text);
  busy_ = true;
}

void FakeSpeech::Stop() {
  heard_.emplace_back("(stop)");
  busy_ = false;
}

}  // namespace tallyfold
