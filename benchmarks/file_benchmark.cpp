// Reading and writing property lists, and loading and saving whole accounts files, beside pugixml
// doing the same with the same bytes, each run in a process of its own and the two in turn.
// Reported are our processor time (user and system) and, as counters, pugixml's time, both peaks of
// memory, and our share of pugixml's.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "benchmarks/generator.h"
#include "benchmarks/measured_run.h"
#include "benchmarks/quiet_store.h"
#include "plist/reader.h"
#include "plist/writer.h"

namespace tallyfold::benchmarks {
namespace {

// Files of the sizes asked for, made once and removed at the end.
class HouseholdFiles {
 public:
  ~HouseholdFiles() {
    std::error_code ignored;
    if (getpid() == owner_) std::filesystem::remove_all(folder_, ignored);
  }
  [[nodiscard]] std::string PathFor(std::size_t entries) {
    // Where the program looks for it below a home folder; with a backup that is new enough.
    const std::filesystem::path home = folder_ / std::to_string(entries);
    const std::filesystem::path path = home / "Library/Tallyfold/Accounts.plist";
    if (!std::filesystem::exists(path)) {
      std::filesystem::create_directories(path.parent_path() / "Backups");
      std::ofstream(path.parent_path() / "Backups" / "Accounts");
      // In another process, so that the measured ones do not inherit used memory.
      const Work make = [&] {
        HouseholdFigures figures;
        figures.entries = entries;
        return static_cast<bool>(std::ofstream(path, std::ios::binary) << HouseholdFile(figures));
      };
      static_cast<void>(MeasuredRun([&] { return make; }));
    }
    return path;
  }

 private:
  pid_t owner_ = getpid();
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("tallyfold-benchmark-" + std::to_string(getpid()));
};

struct Bytes {
  std::unique_ptr<char[]> bytes;
  std::size_t size = 0;
  [[nodiscard]] std::string_view view() const { return {bytes.get(), size}; }
};

// Leaves memory uninitialised before reading into it, as the program does.
std::shared_ptr<Bytes> ReadWholeFile(const std::string& path) {
  auto file = std::make_shared<Bytes>();
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return file;
  const std::size_t size = std::filesystem::file_size(path);
  file->bytes.reset(new char[size]);
  while (file->size < size) {
    const ssize_t count = read(descriptor, file->bytes.get() + file->size, size - file->size);
    if (count <= 0) break;
    file->size += static_cast<std::size_t>(count);
  }
  close(descriptor);
  return file;
}

class WrittenFile {
 public:
  explicit WrittenFile(const std::string& path)
      : descriptor_(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)) {}
  WrittenFile(const WrittenFile&) = delete;
  WrittenFile& operator=(const WrittenFile&) = delete;
  ~WrittenFile() { close(descriptor_); }
  void Append(std::string_view block) {
    ok_ =
        write(descriptor_, block.data(), block.size()) == static_cast<ssize_t>(block.size()) && ok_;
  }
  [[nodiscard]] bool ok() const { return ok_; }

 private:
  int descriptor_;
  bool ok_ = true;
};

// --- The work, ours and the yardstick's, each for the file at `path` ---------------------------

Work ReadBytes(const std::string& path) {
  return [file = ReadWholeFile(path)] {
    const auto* result = new plist::ReadResult(plist::Read(file->view()));
    return result->ok;
  };
}

Work PugixmlReadBytes(const std::string& path) {
  return [file = ReadWholeFile(path)] {
    auto* document = new pugi::xml_document;
    return static_cast<bool>(document->load_buffer(file->bytes.get(), file->size));
  };
}

Work ReadFile(const std::string& path) {
  return [path] {
    const auto* result = new plist::ReadResult(plist::Read(ReadWholeFile(path)->view()));
    return result->ok;
  };
}

Work PugixmlReadFile(const std::string& path) {
  return [path] {
    auto* document = new pugi::xml_document;
    return static_cast<bool>(document->load_file(path.c_str()));
  };
}

Work WriteFile(const std::string& path) {
  auto result = std::make_shared<plist::ReadResult>(plist::Read(ReadWholeFile(path)->view()));
  return [result, path] {
    WrittenFile file(path + ".written");
    plist::XmlWriter writer([&file](std::string_view block) { file.Append(block); });
    writer.Write(result->value);
    writer.Finish();
    return file.ok();
  };
}

Work PugixmlWriteFile(const std::string& path) {
  auto document = std::make_shared<pugi::xml_document>();
  document->load_file(path.c_str());
  return [document, path] { return document->save_file((path + ".written").c_str()); };
}

std::shared_ptr<QuietStore> StoreFor(const std::string& path) {
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  setenv("HOME", folder.parent_path().parent_path().c_str(), 1);
  return std::make_shared<QuietStore>();
}

Work Load(const std::string& path) {
  return [store = StoreFor(path)] {
    return (**store).Accounts_Load() && !(**store).accounts().empty();
  };
}

Work LoadAndSave(const std::string& path) {
  return
      [store = StoreFor(path)] { return (**store).Accounts_Load() && (**store).Accounts_Save(); };
}

Work PugixmlLoadAndSave(const std::string& path) {
  return [path] {
    auto* document = new pugi::xml_document;
    const std::string written = path + ".written";
    if (!document->load_file(path.c_str()) || !document->save_file(written.c_str())) return false;
    const int descriptor = open(written.c_str(), O_WRONLY | O_CLOEXEC);
    const bool ok = fsync(descriptor) == 0;
    close(descriptor);
    return ok;
  };
}

struct Comparison {
  const char* name;
  Work (*ours)(const std::string& path);
  Work (*yardstick)(const std::string& path);
};

constexpr Comparison kComparisons[] = {
    {"ReadBytes", ReadBytes, PugixmlReadBytes},       {"ReadFile", ReadFile, PugixmlReadFile},
    {"WriteFile", WriteFile, PugixmlWriteFile},       {"Load", Load, PugixmlReadFile},
    {"LoadAndSave", LoadAndSave, PugixmlLoadAndSave},
};

void Compare(benchmark::State& state, const Comparison& comparison, HouseholdFiles& files) {
  const auto entries = static_cast<std::size_t>(state.range(0));
  const std::string path = files.PathFor(entries);
  Cost ours{1e9, 0};
  Cost yardstick{1e9, 0};
  const auto keep_best = [](Cost& best, const Cost& cost) {
    best.seconds = std::min(best.seconds, cost.seconds);
    best.peak_bytes = std::max(best.peak_bytes, cost.peak_bytes);
  };
  for (auto _ : state) {
    keep_best(yardstick, MeasuredRun([&] { return comparison.yardstick(path); }));
    const Cost cost = MeasuredRun([&] { return comparison.ours(path); });
    keep_best(ours, cost);
    state.SetIterationTime(cost.seconds);
  }
  constexpr double kMegabyte = 1024.0 * 1024.0;
  state.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(path)) / kMegabyte;
  state.counters["best_ms"] = ours.seconds * 1e3;
  state.counters["pugixml_ms"] = yardstick.seconds * 1e3;
  state.counters["time_ratio"] = ours.seconds / yardstick.seconds;
  state.counters["peak_MB"] = static_cast<double>(ours.peak_bytes) / kMegabyte;
  state.counters["pugixml_peak_MB"] = static_cast<double>(yardstick.peak_bytes) / kMegabyte;
  state.counters["peak_ratio"] =
      static_cast<double>(ours.peak_bytes) / static_cast<double>(yardstick.peak_bytes);
  state.counters["ns_per_entry"] = ours.seconds * 1e9 / static_cast<double>(entries);
}

const bool kRegistered = [] {
  static HouseholdFiles files;
  for (const Comparison& comparison : kComparisons) {
    benchmark::RegisterBenchmark(
        comparison.name,
        [&comparison](benchmark::State& state) { Compare(state, comparison, files); })
        ->Arg(10'000)
        ->Arg(100'000)
        ->Arg(1'000'000)
        ->Iterations(5)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  return true;
}();

}  // namespace
}  // namespace tallyfold::benchmarks
