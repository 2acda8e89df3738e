#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "filters/filter.h"
#include "plist/value.h"

namespace tallyfold {

// A filter that takes the text of the search field; its category names the list the text goes into.
class LDGRSearchFilter : public LDGRFilter {
 public:
  using LDGRFilter::LDGRFilter;

  // A filter that shares its rule dictionaries with `filter`: data set in one shows in the other.
  // Null for null.
  [[nodiscard]] static std::shared_ptr<LDGRSearchFilter> FilterWithFilter(const LDGRFilter* filter);

  bool SetRuleForCategory(std::optional<std::string_view> category, FilterLogic logic,
                          FilterQualifier qualifier, const plist::Value& data) override;

 private:
  plist::Value category_;  // part of the record; nothing reads, writes or stores it
};

}  // namespace tallyfold
