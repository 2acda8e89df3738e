#include "benchmarks/measured_run.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

namespace tallyfold::benchmarks {
namespace {

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// A field of /proc/self/status that is given in kB.
std::size_t StatusBytes(const std::string& field) {
  std::ifstream status("/proc/self/status");
  for (std::string name; status >> name;) {
    if (name == field + ":") {
      std::size_t kilobytes = 0;
      status >> kilobytes;
      return kilobytes * 1024;
    }
  }
  return 0;
}

void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

}  // namespace

Cost MeasuredRun(const std::function<Work()>& prepare) {
  int ends[2];
  if (pipe(ends) != 0) std::abort();
  const pid_t child = fork();
  if (child == 0) {
    const Work work = prepare();
    ForgetPeak();
    const std::size_t bytes_before = StatusBytes("VmRSS");
    const double seconds_before = ProcessorSeconds();
    const bool ok = work();
    Cost cost;
    cost.seconds = ProcessorSeconds() - seconds_before;
    cost.peak_bytes = StatusBytes("VmHWM") - bytes_before;
    if (ok && write(ends[1], &cost, sizeof cost) == sizeof cost) _exit(EXIT_SUCCESS);
    _exit(EXIT_FAILURE);
  }
  close(ends[1]);
  Cost cost;
  const bool received = read(ends[0], &cost, sizeof cost) == sizeof cost;
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  if (!received || status != 0) {
    std::cerr << "a measured run went wrong\n";
    std::exit(EXIT_FAILURE);
  }
  return cost;
}

}  // namespace tallyfold::benchmarks
