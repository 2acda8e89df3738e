#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/alerts.h"
#include "platform/application_host.h"
#include "platform/file_panels.h"
#include "platform/process_launcher.h"
#include "platform/speech_output.h"

namespace tallyfold {

// Answers each alert with the button whose title comes next in the queue, the first button when
// the queue is empty.
class FakeAlerts final : public Alerts {
 public:
  // Throws std::logic_error when the alert has no button of the queued title.
  std::size_t Run(const AlertRequest& request) override;

  void Answer(std::string button) { answers_.push_back(std::move(button)); }
  [[nodiscard]] const std::vector<AlertRequest>& Requests() const { return requests_; }
  [[nodiscard]] bool AllAnswersUsed() const { return answers_.empty(); }

 private:
  std::deque<std::string> answers_;
  std::vector<AlertRequest> requests_;
};

// Answers each panel with the path that comes next in the queue, and with the one after that when
// the panel's check does not take its name; gives up when that is none or the queue is empty.
class FakeFilePanels final : public FilePanels {
 public:
  [[nodiscard]] std::optional<std::string> Save(const FilePanelRequest& request) override;
  [[nodiscard]] std::optional<std::string> Open(const FilePanelRequest& request) override;

  void Answer(std::optional<std::string> path) { answers_.push_back(std::move(path)); }
  // Called while a panel is up, before it is answered.
  std::function<void()> while_up;
  [[nodiscard]] const std::vector<FilePanelRequest>& SaveRequests() const { return saves_; }
  [[nodiscard]] const std::vector<FilePanelRequest>& OpenRequests() const { return opens_; }

 private:
  std::optional<std::string> NextAnswer();

  std::deque<std::optional<std::string>> answers_;
  std::vector<FilePanelRequest> saves_;
  std::vector<FilePanelRequest> opens_;
};

// Notes what is launched, as one text: the program, then its arguments, each after a blank.
class FakeProcessLauncher final : public ProcessLauncher {
 public:
  bool Launch(const std::string& program, const std::vector<std::string>& arguments) override;

  void SetWorking(bool working) { working_ = working; }
  [[nodiscard]] const std::vector<std::string>& Launched() const { return launched_; }

 private:
  bool working_ = true;
  std::vector<std::string> launched_;
};

// A computer without a voice.
class NoVoice final : public SpeechOutput {
 public:
  void Speak(std::string_view /*text*/) override {}
  void Stop() override {}
  [[nodiscard]] bool IsBusy() const override { return false; }
};

// Speaks until it is stopped or the test says that it is finished.
class FakeSpeech final : public SpeechOutput {
 public:
  void Speak(std::string_view text) override;
  void Stop() override;
  [[nodiscard]] bool IsBusy() const override { return busy_; }
  [[nodiscard]] std::string VoiceName() const override { return voice_; }

  void SetVoice(std::string voice) { voice_ = std::move(voice); }
  void Finish() { busy_ = false; }
  // Everything spoken, and "(stop)" for every stop, in order.
  [[nodiscard]] const std::vector<std::string>& Heard() const { return heard_; }

 private:
  bool busy_ = false;
  std::string voice_ = "a voice";
  std::vector<std::string> heard_;
};

// Notes what it is asked for: "terminate", "end N", "flush defaults".
class FakeHost final : public ApplicationHost {
 public:
  void Terminate() override { requests_.emplace_back("terminate"); }
  void EndProcess(int status) override { requests_.push_back("end " + std::to_string(status)); }
  [[nodiscard]] std::string BundleVersion() const override { return version_; }
  void FlushUserDefaults() override { requests_.emplace_back("flush defaults"); }

  void SetBundleVersion(std::string version) { version_ = std::move(version); }
  [[nodiscard]] const std::vector<std::string>& Requests() const { return requests_; }

 private:
  std::string version_ = "2.0";
  std::vector<std::string> requests_;
};

}  // namespace tallyfold
