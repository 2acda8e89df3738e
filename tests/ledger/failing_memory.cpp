#include "ledger/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

// -1 while memory does not run out.
int successes_left = -1;
bool has_failed = false;

}  // namespace

void* operator new(std::size_t size) {
  if (successes_left == 0) {
    has_failed = true;
    throw std::bad_alloc();
  }
  if (successes_left > 0) --successes_left;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace tallyfold {

FailingMemory::FailingMemory(int successes) {
  successes_left = successes;
  has_failed = false;
}

FailingMemory::~FailingMemory() {
  successes_left = -1;
}

bool FailingMemory::HasFailed() {
  return has_failed;
}

}  // namespace tallyfold
