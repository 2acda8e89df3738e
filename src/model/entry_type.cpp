#include "model/entry_type.h"

#include <cstddef>

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

}  // namespace tallyfold
