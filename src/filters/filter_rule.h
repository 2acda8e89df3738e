#pragma once

#include <string_view>

#include "filters/filter.h"
#include "model/date_number.h"
#include "model/text.h"
#include "plist/value.h"

// The rules of a filter's lists, and what each says of a text, an amount or a day. For the passes.
namespace tallyfold {

// A rule of a list, as it is stored. `data` is never none.
struct PreparedRule {
  bool keeps_matching;
  FilterQualifier qualifier;
  const plist::Value& data;

  // Numbers may be stored as text.
  [[nodiscard]] bool HasNumber() const noexcept { return data.IsNumber() || data.IsString(); }
};

// Calls `apply` with each rule of a list up to the first one without data, for which `apply` may
// stand in by returning false. What is no dictionary has no data.
template <typename Apply>
void ForEachRule(const plist::Value& list, Apply apply) {
  if (!list.IsArray()) return;
  for (const plist::Value& value : list.ArrayValue()) {
    const plist::Dictionary dictionary = value.DictionaryValue();
    const plist::Value& data = dictionary.Get("data");
    if (data.IsNone()) return;
    const PreparedRule rule{
        dictionary.Get("logic").IntegerValue() != 0,
        static_cast<FilterQualifier>(dictionary.Get("qualifier").IntegerValue()), data};
    if (!apply(rule)) return;
  }
}

// Whether a text contains, or is, the text of a rule.
class TextTest {
 public:
  TextTest(FilterQualifier qualifier, std::string_view text)
      : qualifier_(qualifier), needle_(text) {}

  [[nodiscard]] bool operator()(std::string_view field) const noexcept {
    switch (qualifier_) {
      case FilterQualifier::Contains:
        return needle_.OccursIn(field);
      case FilterQualifier::Is:
        return !needle_.empty() && needle_.Equals(field);
      default:
        return false;
    }
  }
  [[nodiscard]] bool IsForContents() const noexcept {
    return qualifier_ == FilterQualifier::Contains;
  }

 private:
  FilterQualifier qualifier_;
  CaselessNeedle needle_;
};

// Calls `apply` with each rule that has a text; an empty one ends the list, and data of another
// kind matches no text.
template <typename Apply>
void ForEachTextRule(const plist::Value& list, Apply apply) {
  ForEachRule(list, [&](const PreparedRule& rule) {
    const std::string_view text = rule.data.IsString() ? rule.data.StringValue() : "";
    if (rule.data.IsString() && text.empty()) return false;
    apply(rule, text);
    return true;
  });
}

// Amounts nearer than this to a rule's number are equal to it, in currency units.
inline constexpr double kAmountTolerance = 0.4;

[[nodiscard]] inline bool AmountMatches(FilterQualifier qualifier, double amount,
                                        double wanted) noexcept {
  const bool is_above_lower = amount > wanted - kAmountTolerance;
  const bool is_below_upper = amount < wanted + kAmountTolerance;
  switch (qualifier) {
    case FilterQualifier::GreaterThan:
      return amount > wanted + kAmountTolerance;
    case FilterQualifier::LessThan:
      return amount < wanted - kAmountTolerance;
    case FilterQualifier::Is:
      return is_above_lower && is_below_upper;
    default:
      return false;
  }
}

[[nodiscard]] inline bool DateMatches(FilterQualifier qualifier, DateNumber date,
                                      DateNumber wanted) noexcept {
  switch (qualifier) {
    case FilterQualifier::Before:
      return date < wanted;
    case FilterQualifier::On:
      return date == wanted;
    case FilterQualifier::After:
      return date > wanted;
    default:
      return false;
  }
}

}  // namespace tallyfold
