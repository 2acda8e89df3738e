#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/views/registers.h"
#include "filters/filter.h"

namespace tallyfold {

struct ShownEntriesState {
  std::size_t shown = 0;
  std::size_t hidden = 0;
  // The sum of those that are shown, and as the preferences want it.
  double sum = 0.0;
  std::string sum_text;
  // The filter in force; "" without an account.
  std::string filter;
  // "The filter 'Today' hides all 12 entries."; "" where none is hidden.
  std::string hidden_text;
};

// What the current register shows of its account and what its filter hides.
class ShownEntries {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // The filter of the current register of the selected account.
    [[nodiscard]] virtual std::shared_ptr<LDGRFilter> CurrentFilter() const = 0;
    // Shows a register, if another tab is showing, with every entry in it.
    virtual void ShowAllEntries() = 0;
  };

  ShownEntries(Host& host, Desk& desk, Registers& registers, Announcer& announcer) noexcept
      : host_(host), desk_(desk), registers_(registers), announcer_(announcer) {}
  ShownEntries(const ShownEntries&) = delete;
  ShownEntries& operator=(const ShownEntries&) = delete;

  // As it is now; computed when it is asked for.
  [[nodiscard]] ShownEntriesState State() const;
  [[nodiscard]] bool HidesAny() const;
  // Takes the filter away; the selected entry stays selected. Nothing where none is hidden.
  void ShowAll();

 private:
  Host& host_;
  Desk& desk_;
  Registers& registers_;
  Announcer& announcer_;
};

}  // namespace tallyfold
