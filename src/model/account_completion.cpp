#include <algorithm>
#include <unordered_set>

#include "model/account.h"
#include "model/text.h"

namespace tallyfold {
namespace {

// The entries and the text of theirs that a completion list is made of.
struct Source {
  bool (LDGRAccountEntry::*is_kind)() const noexcept;
  const std::string& (LDGRAccountEntry::*text)() const noexcept;
  bool without_splits = false;

  // The entry's text, or "" when it is not to be offered.
  [[nodiscard]] std::string_view TextOf(const LDGRAccountEntry& entry) const {
    if (without_splits && entry.GetSplit()) return {};
    return (entry.*text)();
  }
};

constexpr Source kDebitDescriptions{&LDGRAccountEntry::IsDebit, &LDGRAccountEntry::GetDescription};
constexpr Source kDepositDescriptions{&LDGRAccountEntry::IsDeposit,
                                      &LDGRAccountEntry::GetDescription};
constexpr Source kTransferDescriptions{&LDGRAccountEntry::IsTransfer,
                                       &LDGRAccountEntry::GetDescription};
constexpr Source kTos{&LDGRAccountEntry::IsDebit, &LDGRAccountEntry::GetToFrom, true};
constexpr Source kFroms{&LDGRAccountEntry::IsDeposit, &LDGRAccountEntry::GetToFrom, true};

std::vector<const LDGRAccountEntry*> EntriesOf(const Source& source, const EntryList& entries) {
  std::vector<const LDGRAccountEntry*> result;
  for (const auto& entry : entries) {
    if (((*entry).*source.is_kind)()) result.push_back(entry.get());
  }
  return result;
}

std::vector<const LDGRAccountEntry*> NewestFirst(const Source& source, const EntryList& entries) {
  auto result = EntriesOf(source, entries);
  std::stable_sort(result.begin(), result.end(),
                   [](const auto* a, const auto* b) { return a->GetNumber() > b->GetNumber(); });
  return result;
}

TextList AllTexts(const Source& source, const EntryList& entries) {
  // A distinct text by its folded form, which lives in `seen`.
  struct Text {
    std::string_view folded;
    std::string_view spelling;
  };
  std::unordered_set<std::string> seen;
  // Most entries repeat a text letter by letter, which needs no folding to be found out.
  std::unordered_set<std::string_view> spellings;
  std::vector<Text> texts;
  for (const auto& entry : entries) {
    if (!((*entry).*source.is_kind)()) continue;
    const std::string_view text = source.TextOf(*entry);
    if (text.empty() || !spellings.insert(text).second) continue;
    const auto [folded, is_new] = seen.insert(FoldCase(text));
    if (is_new) texts.push_back({*folded, text});
  }
  std::sort(texts.begin(), texts.end(),
            [](const Text& a, const Text& b) { return a.folded < b.folded; });
  TextList result;
  result.reserve(texts.size());
  for (const Text& text : texts) result.emplace_back(text.spelling);
  return result;
}

// Distinct texts of the newest entries. `ends(position, count)` tells whether the list ends with
// the text just added: the position of its entry and how many texts the list held before.
template <typename Ends>
TextList LatestTexts(const Source& source, const EntryList& entries, const Ends& ends) {
  const auto newest = NewestFirst(source, entries);
  std::unordered_set<std::string> seen;
  TextList result;
  for (std::size_t position = 0; position < newest.size(); ++position) {
    const std::string_view text = source.TextOf(*newest[position]);
    if (text.empty() || !seen.insert(FoldCase(text)).second) continue;
    result.emplace_back(text);
    if (ends(position, result.size() - 1)) break;
  }
  return result;
}

TextList SomeTexts(const Source& source, const EntryList& entries, std::int32_t count) {
  return LatestTexts(source, entries, [count](std::size_t, std::size_t held) {
    return static_cast<std::int64_t>(held) >= count;
  });
}

// Calls the member for the style; empty for a style that does not exist.
TextList PreferredTexts(const LDGRAccount& account, std::int32_t style, std::int32_t count,
                        TextList (LDGRAccount::*all)() const,
                        TextList (LDGRAccount::*some)(std::int32_t) const,
                        const TextList& specific) {
  switch (style) {
    case 0:
      return (account.*all)();
    case 1:
      return (account.*some)(count);
    case 2:
      return specific;
    default:
      return {};
  }
}

// True when anything was missing.
bool AppendMissing(TextList& texts, const TextList& additions) {
  const std::size_t size = texts.size();
  std::unordered_set<std::string> seen;
  for (const std::string& text : texts) seen.insert(FoldCase(text));
  for (const std::string& text : additions) {
    if (seen.insert(FoldCase(text)).second) texts.push_back(text);
  }
  return texts.size() != size;
}

}  // namespace

TextList LDGRAccount::DebitDescriptions_All() const {
  return IsLocked() ? TextList() : AllTexts(kDebitDescriptions, entries_);
}

TextList LDGRAccount::DepositDescriptions_All() const {
  return IsLocked() ? TextList() : AllTexts(kDepositDescriptions, entries_);
}

TextList LDGRAccount::TransferDescriptions_All() const {
  return IsLocked() ? TextList() : AllTexts(kTransferDescriptions, entries_);
}

TextList LDGRAccount::Tos_All() const {
  return IsLocked() ? TextList() : AllTexts(kTos, entries_);
}

TextList LDGRAccount::Froms_All() const {
  return IsLocked() ? TextList() : AllTexts(kFroms, entries_);
}

TextList LDGRAccount::DebitDescriptions_Some(std::int32_t count) const {
  return IsLocked() ? TextList() : SomeTexts(kDebitDescriptions, entries_, count);
}

TextList LDGRAccount::DepositDescriptions_Some(std::int32_t count) const {
  return IsLocked() ? TextList() : SomeTexts(kDepositDescriptions, entries_, count);
}

TextList LDGRAccount::Tos_Some(std::int32_t count) const {
  return IsLocked() ? TextList() : SomeTexts(kTos, entries_, count);
}

TextList LDGRAccount::Froms_Some(std::int32_t count) const {
  return IsLocked() ? TextList() : SomeTexts(kFroms, entries_, count);
}

TextList LDGRAccount::TransferDescriptions_Some(std::int32_t count) const {
  return LatestTexts(kTransferDescriptions, entries_, [count](std::size_t position, std::size_t) {
    return static_cast<std::int64_t>(position) >= count;
  });
}

TextList LDGRAccount::GetPreferredDebitDescriptions() const {
  return PreferredTexts(*this, preference_descriptions_style_,
                        preference_descriptions_some_selection_,
                        &LDGRAccount::DebitDescriptions_All, &LDGRAccount::DebitDescriptions_Some,
                        preferred_debit_descriptions_);
}

TextList LDGRAccount::GetPreferredDepositDescriptions() const {
  return PreferredTexts(*this, preference_descriptions_style_,
                        preference_descriptions_some_selection_,
                        &LDGRAccount::DepositDescriptions_All,
                        &LDGRAccount::DepositDescriptions_Some, preferred_deposit_descriptions_);
}

TextList LDGRAccount::GetPreferredTransferDescriptions() const {
  return PreferredTexts(*this, preference_descriptions_style_,
                        preference_descriptions_some_selection_,
                        &LDGRAccount::TransferDescriptions_All,
                        &LDGRAccount::TransferDescriptions_Some, preferred_transfer_descriptions_);
}

TextList LDGRAccount::GetPreferredTos() const {
  return PreferredTexts(*this, preference_to_from_style_, preference_to_from_some_selection_,
                        &LDGRAccount::Tos_All, &LDGRAccount::Tos_Some, preferred_tos_);
}

TextList LDGRAccount::GetPreferredFroms() const {
  return PreferredTexts(*this, preference_to_from_style_, preference_to_from_some_selection_,
                        &LDGRAccount::Froms_All, &LDGRAccount::Froms_Some, preferred_froms_);
}

void LDGRAccount::SetPreferredDebitDescriptions(TextList texts) {
  Change(preferred_debit_descriptions_, std::move(texts));
}

void LDGRAccount::SetPreferredDepositDescriptions(TextList texts) {
  Change(preferred_deposit_descriptions_, std::move(texts));
}

void LDGRAccount::SetPreferredTransferDescriptions(TextList texts) {
  Change(preferred_transfer_descriptions_, std::move(texts));
}

void LDGRAccount::SetPreferredTos(TextList texts) {
  Change(preferred_tos_, std::move(texts));
}

void LDGRAccount::SetPreferredFroms(TextList texts) {
  Change(preferred_froms_, std::move(texts));
}

void LDGRAccount::importDescriptionsFromAccount(const LDGRAccount& other) {
  for (TextList LDGRAccount::*list :
       {&LDGRAccount::preferred_debit_descriptions_, &LDGRAccount::preferred_deposit_descriptions_,
        &LDGRAccount::preferred_transfer_descriptions_}) {
    if (AppendMissing(this->*list, other.*list)) NoteChange(ChangeKind::Options);
  }
}

void LDGRAccount::importToFromsFromAccount(const LDGRAccount& other) {
  for (TextList LDGRAccount::*list :
       {&LDGRAccount::preferred_tos_, &LDGRAccount::preferred_froms_}) {
    if (AppendMissing(this->*list, other.*list)) NoteChange(ChangeKind::Options);
  }
}

}  // namespace tallyfold
