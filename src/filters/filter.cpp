#include "filters/filter.h"

#include <array>
#include <utility>

#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

namespace list_key = filter_category;

constexpr std::string_view kName = "name";
constexpr std::string_view kType = "type";
constexpr std::string_view kCategory = "category";
constexpr std::string_view kNumber = "number";
constexpr std::string_view kData = "data";

constexpr std::string_view kWrongFormat = "%@ in LDGRFilter is in the wrong format.";

constexpr std::array kLists = {
    list_key::kGeneral,     list_key::kDescription,   list_key::kDate,
    list_key::kCheck,       list_key::kCheckNumber,   list_key::kCheckNumberString,
    list_key::kAmount,      list_key::kAmountString,  list_key::kType,
    list_key::kToFrom,      list_key::kCleared,       list_key::kSplitDescription,
    list_key::kSplitToFrom, list_key::kTaxDeductible, list_key::kNotes,
};

// Lists read back from a dictionary, before and after the three plain keys. The order shows in the
// log.
constexpr std::array kListsReadFirst = {
    list_key::kGeneral, list_key::kDescription,   list_key::kNotes, list_key::kDate,
    list_key::kAmount,  list_key::kType,          list_key::kCheck, list_key::kToFrom,
    list_key::kCleared, list_key::kTaxDeductible,
};
constexpr std::array kListsReadLast = {list_key::kSplitToFrom, list_key::kSplitDescription};

constexpr std::array kListsEmptied = {
    list_key::kGeneral,          list_key::kCheck,       list_key::kDescription, list_key::kDate,
    list_key::kToFrom,           list_key::kAmount,      list_key::kType,        list_key::kCleared,
    list_key::kSplitDescription, list_key::kSplitToFrom,
};

constexpr std::array kListsGivenData = {
    list_key::kGeneral,     list_key::kCheck, list_key::kDescription, list_key::kToFrom,
    list_key::kAmount,      list_key::kType,  list_key::kCleared,     list_key::kSplitDescription,
    list_key::kSplitToFrom,
};

void ReadList(plist::Dictionary& settings, const plist::Dictionary& dictionary,
              std::string_view key) {
  const plist::Value& value = dictionary.Get(key);
  if (value.IsNone()) return;
  if (!value.IsArray()) return Log(MessageWithText(kWrongFormat, key));
  settings.Set(key, value.ArrayValue().ShallowCopy());
}

// The list of `category`; none when there is none. The category of a list is given by whoever
// built or stored the filter, so any key of the settings may stand in its place.
std::optional<plist::Array> List(const plist::Dictionary& settings,
                                 std::optional<std::string_view> category) {
  if (!category) return std::nullopt;
  const plist::Value& value = settings.Get(*category);
  if (!value.IsArray()) return std::nullopt;
  return value.ArrayValue();
}

}  // namespace

LDGRFilter::LDGRFilter() {
  Default();
}

LDGRFilter::LDGRFilter(const std::optional<plist::Dictionary>& dictionary) : LDGRFilter() {
  if (!dictionary) return;
  if (const plist::Value& name = dictionary->Get(kName); name.IsString()) {
    filter_settings_.Set(kName, name);
  } else if (!name.IsNone()) {
    Log(MessageWithText(kWrongFormat, kName));
  }
  for (const std::string_view key : kListsReadFirst) ReadList(filter_settings_, *dictionary, key);
  for (const std::string_view key : {kCategory, kType, kNumber}) {
    setObject(dictionary->Get(key), key);
  }
  for (const std::string_view key : kListsReadLast) ReadList(filter_settings_, *dictionary, key);
}

std::shared_ptr<LDGRFilter> LDGRFilter::FilterWithDictionary(
    const std::optional<plist::Dictionary>& dictionary) {
  return dictionary ? std::make_shared<LDGRFilter>(dictionary) : nullptr;
}

std::shared_ptr<LDGRFilter> LDGRFilter::FilterWithFilter(const LDGRFilter* filter) {
  return filter != nullptr ? std::make_shared<LDGRFilter>(filter->filter_settings_.DeepCopy())
                           : nullptr;
}

const plist::Value& LDGRFilter::objectForKey(std::string_view key) const noexcept {
  return filter_settings_.Get(key);
}

void LDGRFilter::setObject(const plist::Value& object, std::string_view key) {
  if (!object.IsNone()) filter_settings_.Set(key, object);
}

void LDGRFilter::Default() {
  SetName(LocalizedText("Untitled Filter"));
  SetType(FilterKind::Fixed);
  for (const std::string_view key : kLists) filter_settings_.Set(key, plist::Array());
}

bool LDGRFilter::AddRuleForCategory(std::optional<std::string_view> category, FilterLogic logic,
                                    FilterQualifier qualifier, const plist::Value& data) {
  std::optional<plist::Array> list = List(filter_settings_, category);
  if (!list) return false;
  plist::Dictionary rule;
  rule.Set("logic", static_cast<std::int32_t>(logic));
  rule.Set("qualifier", static_cast<std::int32_t>(qualifier));
  rule.Set(kData, data);
  list->Append(std::move(rule));
  return true;
}

bool LDGRFilter::SetRuleForCategory(std::optional<std::string_view> category, FilterLogic logic,
                                    FilterQualifier qualifier, const plist::Value& data) {
  RemoveAllRules();
  SetCategory(category);
  return AddRuleForCategory(category, logic, qualifier, data);
}

void LDGRFilter::RemoveRulesForCategory(std::optional<std::string_view> category) {
  if (std::optional<plist::Array> list = List(filter_settings_, category)) list->Clear();
}

void LDGRFilter::RemoveAllRules() {
  for (const std::string_view key : kListsEmptied) RemoveRulesForCategory(key);
}

void LDGRFilter::SetData(const plist::Value& data) {
  if (data.IsNone()) return;
  for (const std::string_view key : kListsGivenData) {
    const std::optional<plist::Array> list = List(filter_settings_, key);
    if (!list) continue;
    for (const plist::Value& rule : *list) {
      if (rule.IsDictionary()) rule.DictionaryValue().Set(kData, data);
    }
  }
  RemoveRulesForCategory(list_key::kDate);
}

plist::Value LDGRFilter::GetDataForCategory(std::optional<std::string_view> category) const {
  if (const std::optional<plist::Array> list = List(filter_settings_, category)) {
    const plist::Dictionary rule = list->At(0).DictionaryValue();
    if (rule.Has(kData)) return rule.Get(kData);
  }
  return "";
}

plist::Value LDGRFilter::GetDataForSetCategory() const {
  return GetDataForCategory(GetCategory());
}

void LDGRFilter::SetName(std::optional<std::string_view> name) {
  if (name) filter_settings_.Set(kName, *name);
}

std::string LDGRFilter::GetName() const {
  return std::string(filter_settings_.Get(kName).StringValue());
}

void LDGRFilter::SetCategory(std::optional<std::string_view> category) {
  if (category) filter_settings_.Set(kCategory, *category);
}

std::optional<std::string> LDGRFilter::GetCategory() const {
  const plist::Value& value = filter_settings_.Get(kCategory);
  if (!value.IsString()) return std::nullopt;
  return std::string(value.StringValue());
}

void LDGRFilter::SetType(FilterKind kind) {
  filter_settings_.Set(kType, static_cast<std::int32_t>(kind));
}

FilterKind LDGRFilter::GetType() const {
  return static_cast<FilterKind>(filter_settings_.Get(kType).IntegerValue());
}

void LDGRFilter::SetNumber(std::int32_t number) {
  filter_settings_.Set(kNumber, number);
}

std::int32_t LDGRFilter::GetNumber() const {
  const plist::Value& value = filter_settings_.Get(kNumber);
  return value.IsNone() ? -1 : value.IntegerValue();
}

}  // namespace tallyfold
