#include "benchmarks/window_run.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include "desktop/look/style.h"

namespace tallyfold::benchmarks {

int RunInWindows(int argc, char** argv, void (*before)(), void (*after)()) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::InstallStyle(application);
  benchmark::Initialize(&argc, argv);
  if (before != nullptr) before();
  benchmark::RunSpecifiedBenchmarks();
  if (after != nullptr) after();
  return 0;
}

}  // namespace tallyfold::benchmarks
