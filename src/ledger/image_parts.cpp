#include "ledger/image_parts.h"

#include <algorithm>

namespace tallyfold {

AccountPartEdit::AccountPartEdit(std::shared_ptr<LDGRAccount> account, AccountPart part)
    : account_(std::move(account)), part_(part), image_(account_->ImageOf(part)) {}

void AccountPartEdit::Exchange(Way /*way*/) noexcept {
  account_->ExchangePart(part_, *image_);
}

void AccountPartEdit::Tell(ChangeSetBuilder& builder, Way /*way*/) const {
  builder.Changed(account_, account_->DifferenceIn(part_, *image_));
}

bool AccountPartEdit::ChangedNothing() const {
  return account_->DifferenceIn(part_, *image_).IsEmpty();
}

std::size_t AccountPartEdit::MemorySize() const {
  return sizeof(*this) + image_->MemorySizeOf(part_);
}

TypesEdit::TypesEdit(std::shared_ptr<LDGRAccount> account)
    : account_(std::move(account)), lists_(account_->ImageOf(AccountPart::Types)) {
  for (const EntryTypeList* list : {&account_->GetTypes(), &account_->GetInactiveTypes()}) {
    for (const auto& type : *list) types_.push_back({type, type->Image()});
  }
}

void TypesEdit::Exchange(Way way) noexcept {
  account_->ExchangePart(AccountPart::Types, *lists_);
  const auto exchange = [](const Type& type) { type.type->ExchangeWith(*type.image); };
  // A type may stand in both lists, and then has two images.
  if (way == Way::Back) {
    std::for_each(types_.begin(), types_.end(), exchange);
  } else {
    std::for_each(types_.rbegin(), types_.rend(), exchange);
  }
}

void TypesEdit::Tell(ChangeSetBuilder& builder, Way /*way*/) const {
  if (!ChangedNothing()) builder.Changed(account_, ChangeKind::Types);
}

std::unique_ptr<LDGRAccount> TypesEdit::Image() const {
  const auto image_of = [this](const std::shared_ptr<LDGRAccountEntryType>& type) {
    const auto found = std::find_if(types_.begin(), types_.end(),
                                    [&type](const Type& each) { return each.type == type; });
    return found != types_.end() ? found->image : type;
  };
  const auto images_of = [&image_of](const EntryTypeList& types) {
    EntryTypeList images;
    for (const auto& type : types) images.push_back(image_of(type));
    return images;
  };
  auto image = lists_->ImageOf(AccountPart::Types);
  image->SetInactiveTypes(images_of(lists_->GetInactiveTypes()));
  image->SetTypes(images_of(lists_->GetTypes()));
  image->SetDefaultDebitType(image_of(lists_->GetDefaultDebitType()));
  image->SetDefaultDepositType(image_of(lists_->GetDefaultDepositType()));
  return image;
}

bool TypesEdit::ChangedNothing() const {
  return account_->DifferenceIn(AccountPart::Types, *lists_).IsEmpty() &&
         std::all_of(types_.begin(), types_.end(),
                     [](const Type& type) { return type.type->EqualsImage(*type.image); });
}

std::size_t TypesEdit::MemorySize() const {
  constexpr std::size_t kType = sizeof(LDGRAccountEntryType) + sizeof(Type);
  return sizeof(*this) + lists_->MemorySizeOf(AccountPart::Types) + types_.size() * kType;
}

AccountListPart::AccountListPart(AccountsStore& accounts, std::shared_ptr<LDGRAccount> account,
                                 std::size_t place, bool inserts)
    : accounts_(accounts), account_(std::move(account)), place_(place), inserts_(inserts) {}

void AccountListPart::MakeRoom(Way way) {
  if (inserts_ == (way == Way::Forward)) accounts_.ReserveAccounts(1);
}

void AccountListPart::Exchange(Way way) noexcept {
  if (inserts_ == (way == Way::Forward)) {
    accounts_.InsertAccount(place_, account_);
  } else {
    accounts_.RemoveAccount(account_.get());
  }
}

void AccountListPart::Tell(ChangeSetBuilder& builder, Way way) const {
  if (inserts_ == (way == Way::Forward)) {
    builder.AccountCame(account_);
  } else {
    builder.AccountWent(account_);
  }
}

std::size_t AccountListPart::MemorySize() const {
  std::size_t size = sizeof(*this) + account_->MemorySizeOf(AccountPart::Options);
  for (const auto& entry : account_->GetEntries()) size += entry->MemorySize();
  for (const auto& schedule : account_->GetSchedules()) size += schedule->MemorySize();
  return size;
}

PasswordEdit::PasswordEdit(AccountsStore& accounts)
    : accounts_(accounts), image_(accounts.password()), authenticated_(accounts.authenticated()) {}

void PasswordEdit::Exchange(Way /*way*/) noexcept {
  accounts_.ExchangePassword(image_);
  const bool authenticated = accounts_.authenticated();
  accounts_.setAuthenticated(authenticated_);
  authenticated_ = authenticated;
}

void PasswordEdit::Tell(ChangeSetBuilder& builder, Way /*way*/) const {
  if (!ChangedNothing()) builder.PasswordChanged();
}

bool PasswordEdit::ChangedNothing() const {
  return accounts_.password() == image_;
}

}  // namespace tallyfold
