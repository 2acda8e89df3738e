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
#include <utility>
#include <vector>

#include "filters/filter.h"
#include "filters/filter_rule.h"
#include "model/account.h"
#include "model/amounts.h"
#include "model/current_account.h"
#include "model/entry_walk.h"
#include "model/text.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

// What is left of the entries while the passes go over them. They own nothing: sharing and letting
// go 100,000 entries takes longer than looking at them.
using Remaining = std::vector<const LDGRAccountEntry*>;

template <typename Keeps>
void KeepOnly(Remaining& entries, Keeps keeps) {
  std::size_t kept = 0;
  WalkEntryTexts(entries, [&](const LDGRAccountEntry& entry) {
    if (keeps(entry)) entries[kept++] = &entry;
  });
  entries.resize(kept);
}

template <typename Matches>
void ApplyRule(Remaining& entries, bool keeps_matching, Matches matches) {
  KeepOnly(entries,
           [&](const LDGRAccountEntry& entry) { return matches(entry) == keeps_matching; });
}

template <typename Field>
void FilterByText(const plist::Value& list, Remaining& entries, Field field) {
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    ApplyRule(entries, rule.keeps_matching,
              [&](const LDGRAccountEntry& entry) { return test(field(entry)); });
  });
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

void FilterBySplit(const plist::Value& list, Remaining& entries, SplitText split_text) {
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    KeepOnly(entries, [&](const LDGRAccountEntry& entry) {
      const auto& split = entry.GetSplit();
      return split != nullptr && AnyLineMatches(*split, split_text, test) == rule.keeps_matching;
    });
  });
}

using Mark = bool (LDGRAccountEntry::*)() const noexcept;

void FilterByMark(const plist::Value& list, Remaining& entries, Mark mark) {
  ForEachRule(list, [&](const PreparedRule& rule) {
    const bool can_match = rule.HasNumber();
    const bool wanted = rule.data.BooleanValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && (entry.*mark)() == wanted;
    });
    return true;
  });
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

// --- The passes ---------------------------------------------------------------------------------

void PassGeneral(const plist::Value& list, Remaining& entries) {
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    TypeNameTest type_test(test);
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      if (test(entry.GetDescription()) || test(entry.GetToFrom()) || type_test(entry)) return true;
      if (const auto& split = entry.GetSplit()) {
        if (AnyLineMatches(*split, &LDGRAccountEntrySplit::GetDescription, test)) return true;
        if (AnyLineMatches(*split, &LDGRAccountEntrySplit::GetToFrom, test)) return true;
      }
      return test.IsForContents() && test(entry.GetNotes());
    });
  });
}

void PassDescription(const plist::Value& list, Remaining& entries) {
  FilterByText(list, entries, std::mem_fn(&LDGRAccountEntry::GetDescription));
}

void PassDate(const plist::Value& list, Remaining& entries) {
  ForEachRule(list, [&](const PreparedRule& rule) {
    const bool can_match = rule.HasNumber();
    const DateNumber wanted = rule.data.IntegerValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && DateMatches(rule.qualifier, entry.GetDate(), wanted);
    });
    return true;
  });
}

void PassAmount(const plist::Value& list, Remaining& entries) {
  ForEachRule(list, [&](const PreparedRule& rule) {
    const bool can_match = rule.HasNumber();
    const double wanted = rule.data.DoubleValue();
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return can_match && AmountMatches(rule.qualifier, entry.GetAmount(), wanted);
    });
    return true;
  });
}

void PassAmountString(const plist::Value& list, Remaining& entries) {
  const std::string decimal = CurrentLocale().DecimalSeparator();
  const std::string thousands = CurrentLocale().ThousandsSeparator();
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, WithoutAll(text, thousands));
    ApplyRule(entries, rule.keeps_matching, [&](const LDGRAccountEntry& entry) {
      return test(AmountText(entry.GetAmount(), decimal));
    });
  });
}

void PassType(const plist::Value& list, Remaining& entries) {
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    TypeNameTest type_test(test);
    ApplyRule(entries, rule.keeps_matching, type_test);
  });
}

void PassCheck(const plist::Value& list, Remaining& entries) {
  FilterByMark(list, entries, &LDGRAccountEntry::IsCheck);
}

void PassCheckNumberString(const plist::Value& list, Remaining& entries) {
  ForEachTextRule(list, [&](const PreparedRule& rule, std::string_view text) {
    const TextTest test(rule.qualifier, text);
    KeepOnly(entries, [&](const LDGRAccountEntry& entry) {
      if (!entry.IsCheck()) return false;
      std::array<char, 12> digits;  // the longest is -2147483648
      const char* const end =
          std::to_chars(digits.begin(), digits.end(), entry.GetCheckNumber()).ptr;
      return test({digits.data(), end}) == rule.keeps_matching;
    });
  });
}

void PassCleared(const plist::Value& list, Remaining& entries) {
  FilterByMark(list, entries, &LDGRAccountEntry::GetCleared);
}

void PassToFrom(const plist::Value& list, Remaining& entries) {
  FilterByText(list, entries, std::mem_fn(&LDGRAccountEntry::GetToFrom));
}

void PassSplitDescription(const plist::Value& list, Remaining& entries) {
  FilterBySplit(list, entries, &LDGRAccountEntrySplit::GetDescription);
}

void PassSplitToFrom(const plist::Value& list, Remaining& entries) {
  FilterBySplit(list, entries, &LDGRAccountEntrySplit::GetToFrom);
}

void PassNotes(const plist::Value& list, Remaining& entries) {
  FilterByText(list, entries, std::mem_fn(&LDGRAccountEntry::GetNotes));
}

void PassTaxDeductible(const plist::Value& list, Remaining& entries) {
  FilterByMark(list, entries, &LDGRAccountEntry::GetTaxDeductible);
}

// Rules about check numbers are kept but never applied.
void PassCheckNumber(const plist::Value& /*list*/, Remaining& /*entries*/) {}

using Pass = void (*)(const plist::Value& list, Remaining& entries);

// In the order in which Filter applies them.
constexpr std::array kPasses = {
    std::pair{filter_category::kGeneral, Pass{PassGeneral}},
    std::pair{filter_category::kDescription, Pass{PassDescription}},
    std::pair{filter_category::kDate, Pass{PassDate}},
    std::pair{filter_category::kAmount, Pass{PassAmount}},
    std::pair{filter_category::kAmountString, Pass{PassAmountString}},
    std::pair{filter_category::kType, Pass{PassType}},
    std::pair{filter_category::kCheck, Pass{PassCheck}},
    std::pair{filter_category::kCheckNumber, Pass{PassCheckNumber}},
    std::pair{filter_category::kCheckNumberString, Pass{PassCheckNumberString}},
    std::pair{filter_category::kCleared, Pass{PassCleared}},
    std::pair{filter_category::kToFrom, Pass{PassToFrom}},
    std::pair{filter_category::kSplitDescription, Pass{PassSplitDescription}},
    std::pair{filter_category::kSplitToFrom, Pass{PassSplitToFrom}},
    std::pair{filter_category::kNotes, Pass{PassNotes}},
    std::pair{filter_category::kTaxDeductible, Pass{PassTaxDeductible}},
};

Remaining AllOf(const EntryList& entries) {
  Remaining all;
  all.reserve(entries.size());
  for (const auto& entry : entries) all.push_back(entry.get());
  return all;
}

// The entries that remain, which stand in the same order.
EntryList OnlyRemaining(const EntryList& entries, const Remaining& remaining) {
  EntryList kept;
  kept.reserve(remaining.size());
  for (const auto& entry : entries) {
    if (kept.size() == remaining.size()) break;
    if (entry.get() == remaining[kept.size()]) kept.push_back(entry);
  }
  return kept;
}

int ApplyPass(const plist::Value& list, Pass pass, EntryList& entries) {
  Remaining remaining = AllOf(entries);
  pass(list, remaining);
  if (remaining.size() != entries.size()) entries = OnlyRemaining(entries, remaining);
  return 0;
}

Remaining PassedBy(const plist::Dictionary& settings, const EntryList& entries) {
  Remaining remaining = AllOf(entries);
  for (const auto& [category, pass] : kPasses) pass(settings.Get(category), remaining);
  return remaining;
}

}  // namespace

EntryList LDGRFilter::Filter(const EntryList& entries) const {
  const Remaining remaining = PassedBy(filter_settings_, entries);
  return remaining.size() == entries.size() ? entries : OnlyRemaining(entries, remaining);
}

EntryList LDGRFilter::Filter(EntryList&& entries) const {
  const Remaining remaining = PassedBy(filter_settings_, entries);
  if (remaining.size() == entries.size()) return std::move(entries);
  return OnlyRemaining(entries, remaining);
}

int LDGRFilter::Filter_General(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kGeneral), PassGeneral, entries);
}

int LDGRFilter::Filter_Description(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kDescription), PassDescription, entries);
}

int LDGRFilter::Filter_Date(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kDate), PassDate, entries);
}

int LDGRFilter::Filter_Amount(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kAmount), PassAmount, entries);
}

int LDGRFilter::Filter_AmountString(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kAmountString), PassAmountString, entries);
}

int LDGRFilter::Filter_Type(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kType), PassType, entries);
}

int LDGRFilter::Filter_Check(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kCheck), PassCheck, entries);
}

int LDGRFilter::Filter_CheckNumber(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kCheckNumber), PassCheckNumber, entries);
}

int LDGRFilter::Filter_CheckNumberString(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kCheckNumberString), PassCheckNumberString,
                   entries);
}

int LDGRFilter::Filter_Cleared(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kCleared), PassCleared, entries);
}

int LDGRFilter::Filter_ToFrom(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kToFrom), PassToFrom, entries);
}

int LDGRFilter::Filter_SplitDescription(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kSplitDescription), PassSplitDescription,
                   entries);
}

int LDGRFilter::Filter_SplitToFrom(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kSplitToFrom), PassSplitToFrom, entries);
}

int LDGRFilter::Filter_Notes(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kNotes), PassNotes, entries);
}

int LDGRFilter::Filter_TaxDeductible(EntryList& entries) const {
  return ApplyPass(filter_settings_.Get(filter_category::kTaxDeductible), PassTaxDeductible,
                   entries);
}

}  // namespace tallyfold
