#include "system/child_process.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "system/descriptor.h"

namespace tallyfold {
namespace {

// The argument vector of exec. Points into its parameters.
std::vector<char*> ArgumentVector(const std::string& program,
                                  const std::vector<std::string>& arguments) {
  std::vector<char*> vector;
  vector.reserve(arguments.size() + 2);
  vector.push_back(const_cast<char*>(program.c_str()));
  for (const std::string& argument : arguments) {
    vector.push_back(const_cast<char*>(argument.c_str()));
  }
  vector.push_back(nullptr);
  return vector;
}

pid_t WaitFor(pid_t pid, int options, int* status = nullptr) {
  pid_t ended = -1;
  do {
    ended = ::waitpid(pid, status, options);
  } while (ended < 0 && errno == EINTR);
  return ended;
}

}  // namespace

bool ChildProcess::Start(const std::string& program, const std::vector<std::string>& arguments,
                         int output) {
  End();
  has_failed_ = false;
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  if (output >= 0) {
    ::posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  } else {
    ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  }
  ::posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  // What a program does on a broken pipe, or a file too large, is its own affair, whatever we do.
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, SIGPIPE);
  ::sigaddset(&signals, SIGXFSZ);
  ::posix_spawnattr_setsigdefault(&attributes, &signals);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

  pid_t pid = 0;
  const int error = ::posix_spawnp(&pid, program.c_str(), &files, &attributes,
                                   ArgumentVector(program, arguments).data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&files);
  if (error == 0) pid_ = pid;
  return error == 0;
}

bool ChildProcess::IsRunning() {
  int status = 0;
  if (pid_ != 0 && WaitFor(pid_, WNOHANG, &status) != 0) {
    pid_ = 0;
    has_failed_ = !WIFEXITED(status) || WEXITSTATUS(status) != 0;
  }
  return pid_ != 0;
}

void ChildProcess::End() noexcept {
  if (!IsRunning()) return;
  ::kill(pid_, SIGKILL);
  WaitFor(std::exchange(pid_, 0), 0);
}

bool StartDetached(const std::string& program, const std::vector<std::string>& arguments) {
  const std::vector<char*> vector = ArgumentVector(program, arguments);
  const Descriptor null(::open("/dev/null", O_RDWR | O_CLOEXEC));
  std::array<int, 2> ends{};
  if (!null.IsOpen() || ::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  const Descriptor failure_seen(ends[0]);
  Descriptor failure_told(ends[1]);

  // A grandchild belongs to init, which clears it away whenever it ends. Only calls that are safe
  // between fork and exec follow in it. The pipe closes by itself when exec succeeds.
  const pid_t child = ::fork();
  if (child < 0) return false;
  if (child == 0) {
    const pid_t grandchild = ::fork();
    if (grandchild != 0) ::_exit(grandchild < 0 ? 1 : 0);
    ::signal(SIGPIPE, SIG_DFL);
    ::signal(SIGXFSZ, SIG_DFL);
    if (::dup2(null.number(), STDIN_FILENO) >= 0 && ::dup2(null.number(), STDOUT_FILENO) >= 0) {
      ::execv(vector[0], vector.data());
    }
    [[maybe_unused]] const ssize_t told = ::write(failure_told.number(), "x", 1);
    ::_exit(127);
  }
  failure_told = Descriptor();

  int status = 0;
  WaitFor(child, 0, &status);
  char byte = 0;
  ssize_t count = 0;
  do {
    count = ::read(failure_seen.number(), &byte, 1);
  } while (count < 0 && errno == EINTR);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 && count == 0;
}

}  // namespace tallyfold
