#include "model/entry_type.h"

#include <cstddef>
#include <tuple>
#include <utility>

#include "model/stored_numbers.h"
#include "model/text.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kName = "name";
constexpr std::string_view kIsCheck = "isCheck";
constexpr std::string_view kIsDeposit = "isDeposit";
constexpr std::string_view kNumber = "number";

}  // namespace

LDGRAccountEntryType::LDGRAccountEntryType(const std::optional<plist::Dictionary>& dictionary) {
  if (!dictionary) return;
  std::size_t met = 0;
  const auto value_of = [&](std::string_view key) -> const plist::Value& {
    const plist::Value& value = dictionary->Get(key);
    if (!value.IsNone()) ++met;
    return value;
  };
  if (const plist::Value& name = value_of(kName); name.IsString()) {
    SetName(name.StringValue());
  } else if (!name.IsNone()) {
    plist::ReportNotTaken(plist::NotTaken::WrongKind, kName);
  }
  SetIsCheck(LooseBoolean(value_of(kIsCheck), kIsCheck));
  SetIsDeposit(LooseBoolean(value_of(kIsDeposit), kIsDeposit));
  SetNumber(LooseInteger(value_of(kNumber), kNumber));
  plist::ReportUnknownKeys(*dictionary, met, [](std::string_view key) {
    return key == kName || key == kIsCheck || key == kIsDeposit || key == kNumber;
  });
}

void LDGRAccountEntryType::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  output.Key(kName);
  output.String(name_);
  output.Key(kIsCheck);
  output.Boolean(is_check_);
  output.Key(kIsDeposit);
  output.Boolean(is_deposit_);
  output.Key(kNumber);
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
