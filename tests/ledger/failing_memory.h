#pragma once

namespace tallyfold {

// Lets memory run out: from its making on, as many allocations of this program succeed, and all
// further ones fail until it ends.
class FailingMemory {
 public:
  explicit FailingMemory(int successes);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;
  // Whether any failed.
  [[nodiscard]] static bool HasFailed();
};

}  // namespace tallyfold
