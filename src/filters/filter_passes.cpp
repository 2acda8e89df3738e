// The passes of a filter. A rule is compiled once (needle folded, number or day read) and then
// walks the entries once.

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "filters/filter.h"
#include "model/account.h"
#include "model/amounts.h"
#include "model/current_account.h"
#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

// Amounts nearer than this to a rule's number are equal to it, in currency units.
constexpr double kAmountTolerance = 0.4;

struct Rule {
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
    const Rule rule{dictionary.Get("logic").IntegerValue() != 0,
                    static_cast<FilterQualifier>(dictionary.Get("qualifier").IntegerValue()), data};
    if (!apply(rule)) return;
  }
}

template <typename Keeps>
void KeepOnly(EntryList& entries, Keeps keeps) {
  std::erase_if(entries, [&](const auto& entry) { return !keeps(*entry); });
}

template <typename Matches>
void ApplyRule(EntryList& entries, bool keeps_matching, Matches matches) {
  KeepOnly(entries,
           [&](const LDGRAccountEntry& entry) { return matches(entry) == keeps_matching; });
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
  ForEachRule(list, [&](const Rule& rule) {
    const std::string_view text = rule.data.IsString() ? rule.data.StringValue() : "";
    if (rule.data.IsString() && text.empty()) return false;
    apply(rule, text);
    return true;
  });
}

template <typename Field>
int FilterByText(const plist::Value& list, EntryList& entries, Field field) {
  ForEachTextRule(list, [&](const Rule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    ApplyRule(entries, rule.keeps_matching,
              [&](const LDGRAccountEntry& entry) { return test(field(entry)); });
  });
  return 0;
}

// Tests an entry's type by its name in the current account. Each type number is looked up once.
class TypeNameTest {
 public:
  explicit TypeNameTest(const TextTest& test)
      : test_(test), matches_transfers_(test(LocalizedText("Transfer"))) {}

  [[nodiscard]] bool operator()(const LDGRAccountEntry& entry) {
    if (entry.IsTransfer()) return matches_transfers_;
    if (entry.GetType() < 0) return false;
    const auto [known, is_new] = matches_.try_emplace(entry.GetType(), false);
    if (is_new) known->second = MatchesTypeWithNumber(entry.GetType());
    return known->second;
  }

 private:
  [[nodiscard]] bool MatchesTypeWithNumber(std::int32_t number) const {
    const LDGRAccount* account = CurrentAccount();
    if (account == nullptr) return false;
    const auto type = account->AccountEntryTypeForNumber(number);
    return type != nullptr && test_(type->GetName());
  }

  const TextTest& test_;
  bool matches_transfers_;
  std::unordered_map<std::int32_t, bool> matches_;
};

using SplitText = const std::string& (LDGRAccountEntrySplit::*)(std::size_t) const noexcept;

bool AnyLineMatches(const LDGRAccountEntrySplit& split, SplitText text, const TextTest& test) {
  for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
    if (test((split.*text)(line))) return true;
  }
  return false;
}

int FilterBySplit(const plist::Value& list, EntryList& entries, SplitText split_text) {
  ForEachTextRule(list, [&](const Rule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    KeepOnly(entries, [&](const LDGRAccountEntry& entry) {
      const auto& split = entry.GetSplit();
      return split != nullptr && AnyLineMatches(*split, split_text, test) == rule.keeps_matching;
    });
  });
  return 0;
}

using Mark = bool (LDGRAccountEntry::*)() const noexcept;

int FilterByMark(const plist::Value& list, EntryList& entries, Mark mark) {
  ForEachRule(list, [&](const Rule& rule) {
    const bool can_match = rule.HasNumber();
    const bool wanted = rule.data.BooleanValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && (entry.*mark)() == wanted;
    });
    return true;
  });
  return 0;
}

std::string WithoutAll(std::string_view text, std::string_view part) {
  std::string result;
  if (part.empty()) return result.append(text);
  for (std::size_t start = 0;;) {
    const std::size_t found = text.find(part, start);
    result.append(text.substr(start, found - start));
    if (found == std::string_view::npos) return result;
    start = found + part.size();
  }
}

// Two decimals, no thousands separators, a minus sign only where something is left of the amount.
std::string AmountText(double amount, std::string_view decimal_separator) {
  std::string text = FixedAmountString(RoundedAmount(amount));
  if (decimal_separator != ".") {
    if (const std::size_t point = text.find('.'); point != std::string::npos) {
      text.replace(point, 1, decimal_separator);
    }
  }
  return text;
}

bool AmountMatches(FilterQualifier qualifier, double amount, double wanted) noexcept {
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

bool DateMatches(FilterQualifier qualifier, DateNumber date, DateNumber wanted) noexcept {
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

}  // namespace

EntryList LDGRFilter::Filter(const EntryList& entries) const {
  EntryList working = entries;
  Filter_General(working);
  Filter_Description(working);
  Filter_Date(working);
  Filter_Amount(working);
  Filter_AmountString(working);
  Filter_Type(working);
  Filter_Check(working);
  Filter_CheckNumber(working);
  Filter_CheckNumberString(working);
  Filter_Cleared(working);
  Filter_ToFrom(working);
  Filter_SplitDescription(working);
  Filter_SplitToFrom(working);
  Filter_Notes(working);
  Filter_TaxDeductible(working);
  return working;
}

int LDGRFilter::Filter_General(EntryList& entries) const {
  ForEachTextRule(
      settings_.Get(filter_category::kGeneral), [&](const Rule& rule, std::string_view text) {
        const TextTest test(rule.qualifier, text);
        TypeNameTest type_test(test);
        ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
          if (test(entry.GetDescription()) || test(entry.GetToFrom()) || type_test(entry))
            return true;
          if (const auto& split = entry.GetSplit()) {
            if (AnyLineMatches(*split, &LDGRAccountEntrySplit::GetDescription, test)) return true;
            if (AnyLineMatches(*split, &LDGRAccountEntrySplit::GetToFrom, test)) return true;
          }
          return test.IsForContents() && test(entry.GetNotes());
        });
      });
  return 0;
}

int LDGRFilter::Filter_Description(EntryList& entries) const {
  return FilterByText(settings_.Get(filter_category::kDescription), entries,
                      std::mem_fn(&LDGRAccountEntry::GetDescription));
}

int LDGRFilter::Filter_ToFrom(EntryList& entries) const {
  return FilterByText(settings_.Get(filter_category::kToFrom), entries,
                      std::mem_fn(&LDGRAccountEntry::GetToFrom));
}

int LDGRFilter::Filter_Notes(EntryList& entries) const {
  return FilterByText(settings_.Get(filter_category::kNotes), entries,
                      std::mem_fn(&LDGRAccountEntry::GetNotes));
}

int LDGRFilter::Filter_Type(EntryList& entries) const {
  ForEachTextRule(settings_.Get(filter_category::kType),
                  [&](const Rule& rule, std::string_view text) {
                    const TextTest test(rule.qualifier, text);
                    TypeNameTest type_test(test);
                    ApplyRule(entries, rule.keeps_matching, type_test);
                  });
  return 0;
}

int LDGRFilter::Filter_Date(EntryList& entries) const {
  ForEachRule(settings_.Get(filter_category::kDate), [&](const Rule& rule) {
    const bool can_match = rule.HasNumber();
    const DateNumber wanted = rule.data.IntegerValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && DateMatches(rule.qualifier, entry.GetDate(), wanted);
    });
    return true;
  });
  return 0;
}

int LDGRFilter::Filter_Amount(EntryList& entries) const {
  ForEachRule(settings_.Get(filter_category::kAmount), [&](const Rule& rule) {
    const bool can_match = rule.HasNumber();
    const double wanted = rule.data.DoubleValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && AmountMatches(rule.qualifier, entry.GetAmount(), wanted);
    });
    return true;
  });
  return 0;
}

int LDGRFilter::Filter_AmountString(EntryList& entries) const {
  const std::string decimal = CurrentLocale().DecimalSeparator();
  const std::string thousands = CurrentLocale().ThousandsSeparator();
  ForEachTextRule(settings_.Get(filter_category::kAmountString),
                  [&](const Rule& rule, std::string_view text) {
                    const TextTest test(rule.qualifier, WithoutAll(text, thousands));
                    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
                      return test(AmountText(entry.GetAmount(), decimal));
                    });
                  });
  return 0;
}

int LDGRFilter::Filter_CheckNumber(EntryList& /*entries*/) const {
  return 0;
}

int LDGRFilter::Filter_CheckNumberString(EntryList& entries) const {
  ForEachTextRule(settings_.Get(filter_category::kCheckNumberString),
                  [&](const Rule& rule, std::string_view text) {
                    const TextTest test(rule.qualifier, text);
                    KeepOnly(entries, [&](const LDGRAccountEntry& entry) {
                      if (!entry.IsCheck()) return false;
                      std::array<char, 12> digits;  // the longest is -2147483648
                      const char* const end =
                          std::to_chars(digits.begin(), digits.end(), entry.GetCheckNumber()).ptr;
                      return test({digits.data(), end}) == rule.keeps_matching;
                    });
                  });
  return 0;
}

int LDGRFilter::Filter_Check(EntryList& entries) const {
  return FilterByMark(settings_.Get(filter_category::kCheck), entries, &LDGRAccountEntry::IsCheck);
}

int LDGRFilter::Filter_Cleared(EntryList& entries) const {
  return FilterByMark(settings_.Get(filter_category::kCleared), entries,
                      &LDGRAccountEntry::GetCleared);
}

int LDGRFilter::Filter_TaxDeductible(EntryList& entries) const {
  return FilterByMark(settings_.Get(filter_category::kTaxDeductible), entries,
                      &LDGRAccountEntry::GetTaxDeductible);
}

int LDGRFilter::Filter_SplitDescription(EntryList& entries) const {
  return FilterBySplit(settings_.Get(filter_category::kSplitDescription), entries,
                       &LDGRAccountEntrySplit::GetDescription);
}

int LDGRFilter::Filter_SplitToFrom(EntryList& entries) const {
  return FilterBySplit(settings_.Get(filter_category::kSplitToFrom), entries,
                       &LDGRAccountEntrySplit::GetToFrom);
}

}  // namespace tallyfold
