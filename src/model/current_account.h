#pragma once

namespace tallyfold {

class LDGRAccount;

// The account selected in the application, in which orders, filters and speech look up entry
// types whatever account an entry belongs to. Null when none is selected.
[[nodiscard]] LDGRAccount* CurrentAccount() noexcept;

// Set by account selection alone; the account must be deselected before it dies.
void SetCurrentAccount(LDGRAccount* account) noexcept;

// Selects an account for its own lifetime.
class ScopedCurrentAccount {
 public:
  explicit ScopedCurrentAccount(LDGRAccount* account) noexcept;
  ~ScopedCurrentAccount();
  ScopedCurrentAccount(const ScopedCurrentAccount&) = delete;
  ScopedCurrentAccount& operator=(const ScopedCurrentAccount&) = delete;

 private:
  LDGRAccount* former_;
};

}  // namespace tallyfold
