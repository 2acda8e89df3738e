#pragma once

#include <memory>

namespace tallyfold {

class LDGRAccountEntry;
class LDGRAccountSchedule;

// An occurrence of a scheduled entry that is due and neither committed nor skipped yet.
struct DueOccurrence {
  std::shared_ptr<LDGRAccountSchedule> schedule;
  // A new entry as the schedule makes it, in no account and without a number of its own.
  std::shared_ptr<LDGRAccountEntry> entry;
  // What is committed instead of it: an edited copy; null for the entry itself.
  std::shared_ptr<LDGRAccountEntry> edited = nullptr;
};

}  // namespace tallyfold
