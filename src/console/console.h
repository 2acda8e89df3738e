#pragma once

#include <chrono>
#include <functional>
#include <span>
#include <string>

#include "console/command.h"

namespace tallyfold {
class FileSystem;
class LDGRController;
class NotificationCenter;
class ProcessLauncher;
class RunLoop;
class SpeechOutput;
class Terminal;
class TextEncodings;
class UpdateService;
}  // namespace tallyfold

namespace tallyfold::console {

class ConsoleHost;
class ConsoleLog;
class ConsolePanels;
class Printer;
class Questions;
class SpokenText;

// What a session runs on, beside the ambient locale, localizer and clock.
struct ConsoleServices {
  Terminal& terminal;
  FileSystem& files;
  ProcessLauncher& processes;
  SpeechOutput& speech;
  RunLoop& loop;
  NotificationCenter& notifications;
  TextEncodings& encodings;
  // Runs what the run loop has due within that time, without waiting for it.
  std::function<void(std::chrono::milliseconds)> skip_delays;
  // Serves the run loop while that time passes. False when the program has been asked to end.
  std::function<bool(std::chrono::milliseconds)> wait;
  // The running program's, as it is written into files.
  std::string version;
  // Null where there is nobody to ask.
  UpdateService* updates = nullptr;
};

// What commands work with.
struct Console {
  LDGRController& controller;
  Printer& printer;
  Questions& questions;
  ConsolePanels& panels;
  ConsoleHost& host;
  const ConsoleLog& log;
  FileSystem& files;
  RunLoop& loop;
  SpokenText& spoken;
  const std::function<void(std::chrono::milliseconds)>& skip_delays;
  const std::function<bool(std::chrono::milliseconds)>& wait;
  std::span<const Subject> subjects;
};

}  // namespace tallyfold::console
