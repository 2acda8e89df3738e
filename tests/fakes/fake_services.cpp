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
  return NextAnswer();
}

std::optional<std::string> FakeFilePanels::Open(const FilePanelRequest& request) {
  opens_.push_back(request);
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

std::vector<TextEncoding> FakeTextEncodings::List() const {
  return {TextEncoding::Ascii, TextEncoding::Utf8, TextEncoding::Latin1};
}

std::string FakeTextEncodings::Name(TextEncoding encoding) const {
  switch (encoding) {
    case TextEncoding::Ascii:
      return "ASCII";
    case TextEncoding::Utf8:
      return "UTF-8";
    case TextEncoding::Latin1:
      return "Latin 1";
    default:
      return "";
  }
}

std::optional<std::string> FakeTextEncodings::Decode(std::string_view bytes,
                                                     TextEncoding encoding) const {
  if (Name(encoding).empty()) return std::nullopt;
  if (encoding == TextEncoding::Utf8) return std::string(bytes);
  std::string text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (value < 0x80) {
      text += byte;
    } else if (encoding == TextEncoding::Latin1) {
      text += static_cast<char>(0xC0 | (value >> 6));
      text += static_cast<char>(0x80 | (value & 0x3F));
    } else {
      return std::nullopt;
    }
  }
  return text;
}

std::optional<std::string> FakeTextEncodings::Encode(std::string_view utf8,
                                                     TextEncoding encoding) const {
  if (Name(encoding).empty()) return std::nullopt;
  if (encoding == TextEncoding::Utf8) return std::string(utf8);
  std::string bytes;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    if (lead < 0x80) {
      bytes += utf8[i];
      continue;
    }
    // Continuation bytes belong to the character before them.
    if ((lead & 0xC0) == 0x80) continue;
    const bool latin = encoding == TextEncoding::Latin1 && (lead & 0xFC) == 0xC0;
    if (latin && i + 1 < utf8.size()) {
      bytes += static_cast<char>((lead << 6) | (static_cast<unsigned char>(utf8[i + 1]) & 0x3F));
    } else {
      bytes += '?';
    }
  }
  return bytes;
}

}  // namespace tallyfold
