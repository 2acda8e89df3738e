#include <memory>
#include <string>

#include "model/account_keys.h"

namespace tallyfold {

void LDGRAccount::WritePart(AccountPart part, plist::Output& output) const {
  output.BeginDictionary();
  StoredKey::ForEachOf(part, [&](const auto& entry) { StoredKey::Write(entry, *this, output); });
  output.EndDictionary();
}

void LDGRAccount::ReadPart(AccountPart part, const plist::Dictionary& dictionary) {
  const Revisions before = PresentRevisions();
  StoredKey::ForEachOf(
      part, [&](const auto& entry) { StoredKey::Read(entry, *this, dictionary, false); });
  if (password_.empty()) authenticated_ = true;
  ReturnTo(before);
}

std::unique_ptr<LDGRAccount> LDGRAccount::ImageOf(AccountPart part) const {
  std::unique_ptr<LDGRAccount> image(new LDGRAccount(Bare{}));
  StoredKey::ForEachOf(part, [&](const StoredKey::Entry& entry) {
    if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
      CopyField(*this, *image, *field);
    } else {
      std::get<StoredKey::Special>(entry).keeping.copy(*this, *image);
    }
  });
  if (part == AccountPart::Types) image->default_transfer_type_ = default_transfer_type_;
  return image;
}

void LDGRAccount::ExchangePart(AccountPart part, LDGRAccount& image) noexcept {
  StoredKey::ForEachOf(part, [&](const StoredKey::Entry& entry) {
    if (const auto* field = std::get_if<Field<LDGRAccount>>(&entry)) {
      ExchangeField(*this, image, *field);
    } else {
      std::get<StoredKey::Special>(entry).keeping.exchange(*this, image);
    }
  });
  if (part == AccountPart::Types) default_transfer_type_.swap(image.default_transfer_type_);
  if (password_.empty()) authenticated_ = true;
}

ChangeKinds LDGRAccount::DifferenceIn(AccountPart part, const LDGRAccount& image) const noexcept {
  bool differs = false;
  StoredKey::ForEachOf(part, [&](const StoredKey::Entry& entry) {
    const auto* field = std::get_if<Field<LDGRAccount>>(&entry);
    differs = differs || (field != nullptr
                              ? FieldDiffers(*this, image, *field)
                              : std::get<StoredKey::Special>(entry).keeping.differs(*this, image));
  });
  if (!differs) return {};
  switch (part) {
    case AccountPart::Types:
      return ChangeKind::Types;
    case AccountPart::Settings:
      return ChangeKind::Settings;
    default:
      return StoredDiffers(starting_balance_, image.starting_balance_)
                 ? ChangeKind::Options | ChangeKind::Money
                 : ChangeKinds(ChangeKind::Options);
  }
}

std::size_t LDGRAccount::MemorySizeOf(AccountPart part) const noexcept {
  if (part == AccountPart::Types) {
    const std::size_t types = (types_ ? types_->size() : 0) + inactive_types_.size();
    return sizeof(*this) + types * sizeof(EntryTypeList::value_type);
  }
  std::size_t size = sizeof(*this);
  for (const TextList* texts :
       {&preferred_debit_descriptions_, &preferred_deposit_descriptions_,
        &preferred_transfer_descriptions_, &preferred_tos_, &preferred_froms_}) {
    for (const std::string& text : *texts) size += sizeof(text) + text.size();
  }
  return size;
}

}  // namespace tallyfold
