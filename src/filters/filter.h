#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "model/account_entry.h"
#include "plist/value.h"

namespace tallyfold {

// Keys of a filter's rule lists; the key of a list is the category of its rules.
namespace filter_category {
inline constexpr std::string_view kGeneral = "filter_general";
inline constexpr std::string_view kDescription = "filter_description";
inline constexpr std::string_view kDate = "filter_date";
inline constexpr std::string_view kCheck = "filter_check";
inline constexpr std::string_view kCheckNumber = "filter_checknumber";
inline constexpr std::string_view kCheckNumberString = "filter_checknumberstring";
inline constexpr std::string_view kAmount = "filter_amount";
inline constexpr std::string_view kAmountString = "filter_amountstring";
inline constexpr std::string_view kType = "filter_type";
inline constexpr std::string_view kToFrom = "filter_tofrom";
inline constexpr std::string_view kCleared = "filter_cleared";
inline constexpr std::string_view kSplitDescription = "filter_split_description";
inline constexpr std::string_view kSplitToFrom = "filter_split_tofrom";
inline constexpr std::string_view kTaxDeductible = "filter_taxdeductible";
inline constexpr std::string_view kNotes = "filter_notes";
}  // namespace filter_category

// Which entries a rule keeps. Any stored number other than 0 keeps those that match.
enum class FilterLogic : std::int32_t { KeepOthers = 0, KeepMatching = 1 };

// How a rule compares. The numbers are stored; 5 is not used, and a number that a category does
// not know never matches. The marks (check, cleared, tax-deductible) do not look at it.
enum class FilterQualifier : std::int32_t {
  Before = 0,  // dates
  On = 1,
  After = 2,
  GreaterThan = 3,  // amounts, by more than 0.4 currency units
  LessThan = 4,
  Contains = 6,  // texts, ignoring case
  Is = 7,        // texts, ignoring case; amounts, within less than 0.4 currency units
};

// Whether a filter takes text from the search field.
enum class FilterKind : std::int32_t { Fixed = 0, Search = 1 };

// Selects entries of an account by rules. All rules of all lists must hold together. The filter is
// a property-list dictionary (its settings) and has no other state, so it can be stored as it is;
// a rule is a dictionary of "logic", "qualifier" and "data". Whatever the dictionary holds, nothing
// fails: values of a wrong kind never match, and a rule without data ends its list.
class LDGRFilter {
 public:
  // The defaults.
  LDGRFilter();
  // The defaults, then what the dictionary holds; none leaves the defaults. The rule dictionaries
  // are shared with `dictionary`. A name that is no text and a rule list that is no array are
  // logged and keep their default. The lists of check numbers, check number texts and amount texts
  // are never read back.
  explicit LDGRFilter(const std::optional<plist::Dictionary>& dictionary);
  LDGRFilter(const LDGRFilter&) = delete;
  LDGRFilter& operator=(const LDGRFilter&) = delete;
  virtual ~LDGRFilter() = default;

  // Null for none.
  [[nodiscard]] static std::shared_ptr<LDGRFilter> FilterWithDictionary(
      const std::optional<plist::Dictionary>& dictionary);
  // A filter with rules of its own; what the dictionary form never reads back is lost. Null for
  // null.
  [[nodiscard]] static std::shared_ptr<LDGRFilter> FilterWithFilter(const LDGRFilter* filter);

  // The settings themselves, not a copy.
  [[nodiscard]] const plist::Dictionary& asDictionary() const noexcept { return filter_settings_; }
  [[nodiscard]] const plist::Value& objectForKey(std::string_view key) const noexcept;
  // A none value is ignored.
  void setObject(const plist::Value& object, std::string_view key);
  // The name "Untitled Filter", the kind Fixed and fifteen empty lists; other keys stay.
  void Default();

  // Appends a rule. False, and nothing is changed, when the category is none or names no list.
  // Without data (a none value) the rule ends its list when the filter is applied.
  bool AddRuleForCategory(std::optional<std::string_view> category, FilterLogic logic,
                          FilterQualifier qualifier, const plist::Value& data);
  // Removes the rules (as RemoveAllRules does), sets the category and adds the rule.
  virtual bool SetRuleForCategory(std::optional<std::string_view> category, FilterLogic logic,
                                  FilterQualifier qualifier, const plist::Value& data);
  // None and a category without a list do nothing.
  void RemoveRulesForCategory(std::optional<std::string_view> category);
  // Leaves the lists of check numbers, check number texts, amount texts, notes and tax-deductible
  // marks as they are.
  void RemoveAllRules();
  // Puts `data` into every rule of nine lists and drops all date rules; the lists of check numbers,
  // check number texts, amount texts, notes and tax-deductible marks are left alone. A none value
  // is ignored.
  void SetData(const plist::Value& data);
  // The data of the first rule of that list, "" when there is none.
  [[nodiscard]] plist::Value GetDataForCategory(std::optional<std::string_view> category) const;
  [[nodiscard]] plist::Value GetDataForSetCategory() const;

  // A missing value is ignored.
  void SetName(std::optional<std::string_view> name);
  [[nodiscard]] std::string GetName() const;
  // The list that the search text goes into. A missing value is ignored; none when no text is set.
  void SetCategory(std::optional<std::string_view> category);
  [[nodiscard]] std::optional<std::string> GetCategory() const;
  void SetType(FilterKind kind);
  [[nodiscard]] FilterKind GetType() const;
  // Number within the application's list of filters; -1 when not set.
  void SetNumber(std::int32_t number);
  [[nodiscard]] std::int32_t GetNumber() const;

  // The entries that pass, in the order they had.
  [[nodiscard]] EntryList Filter(const EntryList& entries) const;
  // The same for a list that nobody needs any more: where all entries pass, it comes back itself.
  [[nodiscard]] EntryList Filter(EntryList&& entries) const;

  // The passes of Filter, one for each category: each removes from `entries` what its rules do not
  // keep, and returns 0.
  int Filter_General(EntryList& entries) const;
  int Filter_Description(EntryList& entries) const;
  int Filter_Date(EntryList& entries) const;
  int Filter_Amount(EntryList& entries) const;
  int Filter_AmountString(EntryList& entries) const;
  int Filter_Type(EntryList& entries) const;
  int Filter_Check(EntryList& entries) const;
  // Does nothing: rules about check numbers are kept but never applied.
  int Filter_CheckNumber(EntryList& entries) const;
  // Removes every entry that is no check, whatever the rule's logic.
  int Filter_CheckNumberString(EntryList& entries) const;
  int Filter_Cleared(EntryList& entries) const;
  int Filter_ToFrom(EntryList& entries) const;
  // These two remove every entry without a split, whatever the rule's logic.
  int Filter_SplitDescription(EntryList& entries) const;
  int Filter_SplitToFrom(EntryList& entries) const;
  int Filter_Notes(EntryList& entries) const;
  int Filter_TaxDeductible(EntryList& entries) const;

 private:
  plist::Dictionary filter_settings_;
};

}  // namespace tallyfold
