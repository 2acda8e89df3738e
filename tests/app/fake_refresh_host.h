#pragma once

#include <string>

#include "app/face/refresh.h"

namespace tallyfold {

// Notes what a refresh asks of it, in order.
class FakeRefreshHost final : public Refresh::Host {
 public:
  [[nodiscard]] bool LiveUpdatingFilters() const override { return has_live_filters; }
  void ReloadRegisters() override { Note("rows"); }
  void TakeSavedEntries(const EntryList& entries) override {
    Note("saved " + std::to_string(entries.size()));
  }
  void ReloadSchedules() override { Note("schedules"); }
  void ReloadAccountsList() override { Note("accounts"); }
  void RedrawRegisters() override { Note("redraw"); }
  void Search_Cancel() override { Note("end search"); }
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) override {
    Note("select " + std::to_string(entry->GetNumber()));
  }
  void TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, bool is_new) override {
    Note("hidden? " + std::to_string(entry->GetNumber()) + (is_new ? " new" : ""));
  }

  bool has_live_filters = false;
  std::string log;
  // Whether it was asked anything after somebody had been told that all is done.
  bool was_asked_late = false;
  bool is_told = false;

 private:
  void Note(const std::string& what) {
    if (is_told) was_asked_late = true;
    log += what + "; ";
  }
};

}  // namespace tallyfold
