#include "ledger/failing_memory.h"

#include <cstdlib>
#include <new>

namespace {

// -1 while memory does not run out.
int successes_left = -1;
bool has_failed = false;

}  // namespace

// All forms, so that whatever is taken by one of ours is given back by one of ours.
void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept {
  if (successes_left == 0) {
    has_failed = true;
    return nullptr;
  }
  if (successes_left > 0) --successes_left;
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) return memory;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t /*size*/) noexcept {
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
