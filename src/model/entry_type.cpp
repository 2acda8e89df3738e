#include "model/entry_type.h"

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

}  // namespace tallyfold
