#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ledger/change_set_builder.h"
#include "ledger/part_visitor.h"
#include "ledger/record_traits.h"
#include "ledger/step_part.h"
#include "model/account.h"
#include "storage/accounts_store.h"

namespace tallyfold {

// The numbers by which edits tell their subjects apart (StepPart::Subject()). Records and accounts
// are aligned, which leaves numbers between them for the parts of an account.
template <typename Record>
[[nodiscard]] std::uintptr_t SubjectOf(const Record* record) noexcept {
  return reinterpret_cast<std::uintptr_t>(record);
}
[[nodiscard]] inline std::uintptr_t SubjectOf(const LDGRAccount* account,
                                              AccountPart part) noexcept {
  static_assert(alignof(LDGRAccount) > static_cast<std::uintptr_t>(AccountPart::Settings));
  return SubjectOf(account) + static_cast<std::uintptr_t>(part);
}

// A record that was edited, and the image it would get back.
template <typename Record>
class EditPart final : public StepPart {
 public:
  using Traits = RecordTraits<Record>;

  EditPart(std::shared_ptr<LDGRAccount> account, std::shared_ptr<Record> record)
      : account_(std::move(account)), record_(std::move(record)), image_(Traits::Image(*record_)) {}

  [[nodiscard]] const std::shared_ptr<LDGRAccount>& account() const noexcept { return account_; }
  [[nodiscard]] const std::shared_ptr<Record>& record() const noexcept { return record_; }
  // What would be put back.
  [[nodiscard]] const Record& image() const noexcept { return *image_; }

  void Exchange(Way /*way*/) noexcept override { Traits::Exchange(*record_, *image_); }
  void Tell(ChangeSetBuilder& builder, Way /*way*/) const override {
    builder.Changed(account_, record_, Traits::Difference(*record_, *image_));
  }
  void Accept(PartVisitor& visitor, Way /*way*/) const override { visitor.Visit(*this); }
  [[nodiscard]] std::uintptr_t Subject() const noexcept override {
    return SubjectOf(record_.get());
  }
  [[nodiscard]] bool ChangedNothing() const override {
    return Traits::Difference(*record_, *image_).IsEmpty();
  }
  [[nodiscard]] std::size_t MemorySize() const override {
    return sizeof(*this) + Traits::MemorySize(*image_);
  }

 private:
  std::shared_ptr<LDGRAccount> account_;
  std::shared_ptr<Record> record_;
  std::shared_ptr<Record> image_;
};

// The options or the settings of an account.
class AccountPartEdit final : public StepPart {
 public:
  AccountPartEdit(std::shared_ptr<LDGRAccount> account, AccountPart part);

  [[nodiscard]] const std::shared_ptr<LDGRAccount>& account() const noexcept { return account_; }
  [[nodiscard]] AccountPart part() const noexcept { return part_; }
  // What would be put back.
  [[nodiscard]] const LDGRAccount& image() const noexcept { return *image_; }

  void Exchange(Way way) noexcept override;
  void Tell(ChangeSetBuilder& builder, Way way) const override;
  void Accept(PartVisitor& visitor, Way /*way*/) const override { visitor.Visit(*this); }
  [[nodiscard]] std::uintptr_t Subject() const noexcept override {
    return SubjectOf(account_.get(), part_);
  }
  [[nodiscard]] bool ChangedNothing() const override;
  [[nodiscard]] bool IsSetting() const noexcept override { return part_ == AccountPart::Settings; }
  [[nodiscard]] std::size_t MemorySize() const override;

 private:
  std::shared_ptr<LDGRAccount> account_;
  AccountPart part_;
  std::unique_ptr<LDGRAccount> image_;
};

// Both lists of entry types with the types in them, and which are the default ones.
class TypesEdit final : public StepPart {
 public:
  explicit TypesEdit(std::shared_ptr<LDGRAccount> account);

  [[nodiscard]] const std::shared_ptr<LDGRAccount>& account() const noexcept { return account_; }
  // An account with the types that would be put back, and nothing else.
  [[nodiscard]] std::unique_ptr<LDGRAccount> Image() const;

  void Exchange(Way way) noexcept override;
  void Tidy() noexcept override { AccountLists::SortTypes(*account_); }
  void Tell(ChangeSetBuilder& builder, Way way) const override;
  void Accept(PartVisitor& visitor, Way /*way*/) const override { visitor.Visit(*this); }
  [[nodiscard]] std::uintptr_t Subject() const noexcept override {
    return SubjectOf(account_.get(), AccountPart::Types);
  }
  [[nodiscard]] bool ChangedNothing() const override;
  [[nodiscard]] std::size_t MemorySize() const override;

 private:
  struct Type {
    std::shared_ptr<LDGRAccountEntryType> type;
    std::shared_ptr<LDGRAccountEntryType> image;
  };

  std::shared_ptr<LDGRAccount> account_;
  std::unique_ptr<LDGRAccount> lists_;
  // Those that were in the lists before.
  std::vector<Type> types_;
};

// An account that came into or left the list of accounts.
class AccountListPart final : public StepPart {
 public:
  // `inserts` says what the part does on the way forward; `place` is that in the list with it.
  AccountListPart(AccountsStore& accounts, std::shared_ptr<LDGRAccount> account, std::size_t place,
                  bool inserts);

  [[nodiscard]] const std::shared_ptr<LDGRAccount>& account() const noexcept { return account_; }
  [[nodiscard]] std::size_t place() const noexcept { return place_; }

  void MakeRoom(Way way) override;
  void Exchange(Way way) noexcept override;
  void Tell(ChangeSetBuilder& builder, Way way) const override;
  void Accept(PartVisitor& visitor, Way way) const override {
    visitor.Visit(*this, inserts_ == (way == Way::Forward));
  }
  [[nodiscard]] std::size_t MemorySize() const override;

 private:
  AccountsStore& accounts_;
  std::shared_ptr<LDGRAccount> account_;
  std::size_t place_;
  bool inserts_;
};

// The application password.
class PasswordEdit final : public StepPart {
 public:
  explicit PasswordEdit(AccountsStore& accounts);

  // What would be put back, and what there is.
  [[nodiscard]] const std::string& image() const noexcept { return image_; }
  [[nodiscard]] const std::string& present() const noexcept { return accounts_.password(); }

  void Exchange(Way way) noexcept override;
  void Tell(ChangeSetBuilder& builder, Way way) const override;
  void Accept(PartVisitor& visitor, Way /*way*/) const override { visitor.Visit(*this); }
  [[nodiscard]] std::uintptr_t Subject() const noexcept override { return SubjectOf(&accounts_); }
  [[nodiscard]] bool ChangedNothing() const override;
  [[nodiscard]] bool IsSetting() const noexcept override { return true; }
  [[nodiscard]] std::size_t MemorySize() const override { return sizeof(*this); }

 private:
  AccountsStore& accounts_;
  std::string image_;
  bool authenticated_;
};

}  // namespace tallyfold
