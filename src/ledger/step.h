#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "ledger/step_part.h"
#include "model/account.h"
#include "platform/clock.h"

namespace tallyfold {

// Something that is not in the accounts file but goes and comes back with a step, such as the view
// preferences of a removed account.
class StepCompanion {
 public:
  virtual ~StepCompanion() = default;
  // Called after the records were put back (Back) or changed again (Forward), before anybody hears
  // of it; and Back when a change is rolled back.
  virtual void Follow(Way way) noexcept = 0;
};

using StepParts = std::vector<std::unique_ptr<StepPart>>;
using StepCompanions = std::vector<std::unique_ptr<StepCompanion>>;

// One thing the user ordered, as it is undone and done again.
struct Step {
  // An English key of the localizer, as "Remove Entry".
  std::string name;
  // The accounts in which it was ordered: mostly one, none for what concerns no account.
  AccountList ordered_in;
  Instant when{};
  // In the order in which they were carried out.
  StepParts parts;
  StepCompanions companions;
  // How much memory it holds, in bytes, roughly.
  std::size_t memory_size = 0;
};

}  // namespace tallyfold
