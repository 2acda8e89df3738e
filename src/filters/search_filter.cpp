#include "filters/search_filter.h"

namespace tallyfold {

std::shared_ptr<LDGRSearchFilter> LDGRSearchFilter::FilterWithFilter(const LDGRFilter* filter) {
  if (filter == nullptr) return nullptr;
  auto copy = std::make_shared<LDGRSearchFilter>(filter->asDictionary());
  copy->SetCategory(filter->GetCategory());
  return copy;
}

bool LDGRSearchFilter::SetRuleForCategory(std::optional<std::string_view> category,
                                          FilterLogic logic, FilterQualifier qualifier,
                                          const plist::Value& data) {
  LDGRFilter::RemoveAllRules();
  SetCategory(category);
  return LDGRFilter::AddRuleForCategory(category, logic, qualifier, data);
}

}  // namespace tallyfold
