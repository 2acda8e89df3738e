#include "model/entry_type.h"

#include <tuple>
#include <utility>

#include "model/text.h"

namespace tallyfold {

LDGRAccountEntryType::LDGRAccountEntryType(const std::optional<plist::Dictionary>& dictionary) {
  if (!dictionary) return;
  const plist::Value& name = dictionary->Get("name");
  if (name.IsString()) SetName(name.StringValue());
  SetIsCheck(dictionary->Get("isCheck").BooleanValue());
  SetIsDeposit(dictionary->Get("isDeposit").BooleanValue());
  SetNumber(dictionary->Get("number").IntegerValue());
}

void LDGRAccountEntryType::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  output.Key("name");
  output.String(name_);
  output.Key("isCheck");
  output.Boolean(is_check_);
  output.Key("isDeposit");
  output.Boolean(is_deposit_);
  output.Key("number");
  output.Integer(number_);
  output.EndDictionary();
}

plist::Dictionary LDGRAccountEntryType::asDictionary() const {
  plist::TreeBuilder tree;
  WriteTo(tree);
  return tree.Take().DictionaryValue();
}

void LDGRAccountEntryType::SetName(std::optional<std::string_view> name) {
  if (name) name_ = *name;
}

int LDGRAccountEntryType::NameIsGreaterThan(const LDGRAccountEntryType& other) const noexcept {
  return CompareIgnoringCase(name_, other.name_);
}

std::shared_ptr<LDGRAccountEntryType> LDGRAccountEntryType::Image() const {
  auto image = std::make_shared<LDGRAccountEntryType>();
  image->name_ = name_;
  std::tie(image->number_, image->is_check_, image->is_deposit_, image->is_transfer_) =
      std::tie(number_, is_check_, is_deposit_, is_transfer_);
  return image;
}

void LDGRAccountEntryType::ExchangeWith(LDGRAccountEntryType& image) noexcept {
  name_.swap(image.name_);
  std::swap(number_, image.number_);
  std::swap(is_check_, image.is_check_);
  std::swap(is_deposit_, image.is_deposit_);
  std::swap(is_transfer_, image.is_transfer_);
}

bool LDGRAccountEntryType::EqualsImage(const LDGRAccountEntryType& image) const noexcept {
  return std::tie(name_, number_, is_check_, is_deposit_, is_transfer_) ==
         std::tie(image.name_, image.number_, image.is_check_, image.is_deposit_,
                  image.is_transfer_);
}

}  // namespace tallyfold
