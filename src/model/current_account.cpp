#include "model/current_account.h"

namespace tallyfold {
namespace {

LDGRAccount*& Slot() noexcept {
  static LDGRAccount* current = nullptr;
  return current;
}

}  // namespace

LDGRAccount* CurrentAccount() noexcept {
  return Slot();
}

void SetCurrentAccount(LDGRAccount* account) noexcept {
  Slot() = account;
}

ScopedCurrentAccount::ScopedCurrentAccount(LDGRAccount* account) noexcept : former_(Slot()) {
  Slot() = account;
}

ScopedCurrentAccount::~ScopedCurrentAccount() {
  Slot() = former_;
}

}  // namespace tallyfold
