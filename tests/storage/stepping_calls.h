#pragma once

#include <functional>
#include <string>
#include <utility>

#include "system/atomic_write.h"

namespace tallyfold {

// The real calls. Before each of them, and in the middle of every write, `step` is called, which
// may end the process.
class SteppingCalls : public FileCalls {
 public:
  explicit SteppingCalls(std::function<void()> step) : step_(std::move(step)) {}

  int OpenFolder(const std::string& path) override { return step_(), FileCalls::OpenFolder(path); }
  int CreateFile(int folder, const std::string& name, mode_t mode) override {
    return step_(), FileCalls::CreateFile(folder, name, mode);
  }
  int ChangeMode(int file, mode_t mode) override {
    return step_(), FileCalls::ChangeMode(file, mode);
  }
  ssize_t Write(int file, const char* bytes, size_t size) override {
    const ssize_t first = FileCalls::Write(file, bytes, size / 2);
    if (first < 0) return first;
    step_();
    const auto written = static_cast<size_t>(first);
    const ssize_t rest = FileCalls::Write(file, bytes + written, size - written);
    return rest < 0 ? rest : first + rest;
  }
  int Sync(int file_or_folder) override { return step_(), FileCalls::Sync(file_or_folder); }
  int Close(int file_or_folder) override { return step_(), FileCalls::Close(file_or_folder); }
  int Rename(int folder, const std::string& from, const std::string& to, unsigned flags) override {
    return step_(), FileCalls::Rename(folder, from, to, flags);
  }
  int Link(int folder, const std::string& from, const std::string& to) override {
    return step_(), FileCalls::Link(folder, from, to);
  }
  int Remove(int folder, const std::string& name) override {
    return step_(), FileCalls::Remove(folder, name);
  }

 private:
  std::function<void()> step_;
};

}  // namespace tallyfold
