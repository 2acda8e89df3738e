#include "plist/read_report.h"

#include <utility>

#include "plist/utf8.h"

namespace tallyfold::plist {
namespace {

ReadReport*& InForce() noexcept {
  static ReadReport* report = nullptr;
  return report;
}

}  // namespace

ReadReport::ReadReport() noexcept : former_(std::exchange(InForce(), this)) {}

ReadReport::~ReadReport() {
  InForce() = former_;
}

void ReportNotTaken(NotTaken what, std::string_view key) {
  ReadReport* report = InForce();
  if (report == nullptr) return;
  if (report->total_ == 0) {
    constexpr std::size_t kLongestKey = 40;
    key = key.substr(0, kLongestKey);
    report->first_ = what;
    report->first_key_ = key.substr(0, ValidUtf8Prefix(key));
  }
  ++report->counts_[static_cast<std::size_t>(what)];
  ++report->total_;
}

}  // namespace tallyfold::plist
